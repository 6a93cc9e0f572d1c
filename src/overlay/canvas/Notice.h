#pragma once

#include <QRectF>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

class ViewSpace;

// Shows something for a moment above everything else, the bar included. It never
// takes the mouse.
class Notice final : public QWidget {
public:
    using Draw = std::function<void(QPainter &)>; // in the view's space

    // The space must outlive the notice.
    Notice(QWidget &overlay, const ViewSpace &space);

    // Shows the drawing instead of what shows now. The area (view points) is all that
    // the drawing touches.
    void present(const QRectF &area, std::chrono::milliseconds lasts, Draw draw);
    // Shows the drawing for as long as what it replaces would have shown.
    void replace(const QRectF &area, Draw draw);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const ViewSpace &m_space;
    Draw m_draw;
    QTimer m_end;
};
