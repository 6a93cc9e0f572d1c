#pragma once

#include "toolbar/PaletteGeometry.h"

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
    [[nodiscard]] bool isSelected(const QColor &color) const;

    // Returns all that can be clicked, as it is read, and the colour of one of them;
    // the eyedropper has none.
    [[nodiscard]] QList<PaletteGeometry::Hit> items() const;
    [[nodiscard]] std::optional<QColor> colorOf(const PaletteGeometry::Hit &item) const;
    // Does what a click on it does.
    void choose(const PaletteGeometry::Hit &item) const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void drawDot(QPainter &painter, const QRectF &dot, const QColor &color) const;
    void drawRecents(QPainter &painter) const;

    const QList<QColor> m_recents; // as they were when the palette opened
    std::optional<QColor> m_selected;
};
