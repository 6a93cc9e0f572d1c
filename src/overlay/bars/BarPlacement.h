#pragma once

#include <QRectF>

// Places the tool bar and its palette. Everything is in view points, y upwards.
namespace BarPlacement {

struct Place {
    QRectF frame;
    bool below; // below the selection's lower edge, or inside along it
};

// Returns the place under the selection, above it if the screen ends there, or
// inside it if the screen ends on both sides.
[[nodiscard]] Place bar(const QRectF &selection, QSizeF size, const QRectF &bounds);

// Returns the place of the palette beside the bar, on the side away from the
// selection if there is room. Middle is the x of the colour button's middle.
[[nodiscard]] QRectF palette(const Place &bar, double middle, QSizeF size, const QRectF &bounds);

// Returns whether a pointer is close enough for the bar to make way.
[[nodiscard]] bool isNear(const QRectF &bar, QPointF pointer);

// Returns whether the screen is too narrow for a bar with words on it.
[[nodiscard]] bool isNarrow(const QRectF &bounds);

} // namespace BarPlacement
