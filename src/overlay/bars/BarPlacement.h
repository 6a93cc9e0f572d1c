#pragma once

#include <QRectF>

// Where the tool bar and its palette go. View points, y upwards.
namespace BarPlacement {

struct Place {
    QRectF frame;
    bool below; // the selection's lower edge, or inside along it
};

// Under the selection, above it where the screen ends there, and inside it
// where it ends on both sides.
[[nodiscard]] Place bar(const QRectF &selection, QSizeF size, const QRectF &bounds);

// Beside the bar, on the side away from the selection if there is room. Middle
// is where the colour button's middle is.
[[nodiscard]] QRectF palette(const Place &bar, double middle, QSizeF size, const QRectF &bounds);

// Whether a pointer is close enough for the bar to make way.
[[nodiscard]] bool isNear(const QRectF &bar, QPointF pointer);

// Too narrow for a bar with words on it.
[[nodiscard]] bool isNarrow(const QRectF &bounds);

} // namespace BarPlacement
