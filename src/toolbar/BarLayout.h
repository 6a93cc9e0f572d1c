#pragma once

#include <QList>
#include <QRectF>

// Computes where the pieces of a bar lie, in points from its top left corner. Every
// piece is as far from the top as from the bottom, so y may count either way.
namespace BarLayout {

inline constexpr double buttonSide = 32; // points; of a button without text

enum class Kind {
    button,
    separator,
    decoration, // covers the whole bar and takes no room
};

struct Item {
    Kind kind;
    double width = buttonSide; // of a button in a horizontal bar; a vertical one makes it square
};

struct Frames {
    QList<QRectF> items; // in the order of the items
    QSizeF size;         // of the bar
};

[[nodiscard]] Frames layOut(Qt::Orientation orientation, const QList<Item> &items);

// Returns the place of the highlight along the top edge.
[[nodiscard]] QRectF edge(QSizeF bar);

} // namespace BarLayout
