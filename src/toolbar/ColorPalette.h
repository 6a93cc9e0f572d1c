#pragma once

#include <QColor>
#include <QList>
#include <QWidget>

#include <functional>
#include <optional>

// Shows the panel that the colour button opens: the drawing colours, the eyedropper
// and the recently picked colours.
class ColorPalette final : public QWidget {
    Q_OBJECT

public:
    explicit ColorPalette(QWidget *parent = nullptr);

    // Called with what was clicked. Either may close the palette, through
    // deleteLater().
    std::function<void(const QColor &)> onPick;
    std::function<void()> onEyedropper;

    // Marks the colour in use with a ring wherever it shows.
    void setSelected(const std::optional<QColor> &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void pick(const QColor &color) const;
    void askForEyedropper() const;
    void drawDot(QPainter &painter, const QRectF &dot, const QColor &color) const;
    void drawRecents(QPainter &painter) const;

    const QList<QColor> m_recents; // as they were when the palette opened
    std::optional<QColor> m_selected;
};
