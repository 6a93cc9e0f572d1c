#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QStringView>

class QPainter;

// The glyphs of the bars, one visual family.
namespace Symbols {

enum class Weight { regular, semibold };

struct Symbol {
    QStringView name; // such as u"arrow.up.right"
    double size;      // points, of the text that it stands beside
    QColor tint;
    Weight weight = Weight::regular;
};

// Returns how wide and high the square is that a glyph is drawn in, in points.
[[nodiscard]] double side(double size);

// Returns a picture, rendered at the first question and kept, with the scale
// (pixels per point) as its device pixel ratio. It is empty of ink when there is
// no such symbol.
[[nodiscard]] QImage picture(const Symbol &symbol, double scale);

// Draws in a space whose y grows downwards, on whole pixels.
void draw(QPainter &painter, QPointF centre, const Symbol &symbol);

} // namespace Symbols
