#pragma once

#include <QRectF>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

class ViewSpace;

// Something that shows for a moment above everything else, the bar included,
// and is never in the way of the mouse.
class Notice final : public QWidget {
public:
    using Draw = std::function<void(QPainter &)>; // in the view's space

    // The space must outlive it.
    Notice(QWidget &overlay, const ViewSpace &space);

    // Instead of what it shows now. The area is all that the drawing touches, in
    // view points.
    void present(const QRectF &area, std::chrono::milliseconds lasts, Draw draw);
    // The same, but it goes when what it shows now would have gone.
    void replace(const QRectF &area, Draw draw);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const ViewSpace &m_space;
    Draw m_draw;
    QTimer m_end;
};
