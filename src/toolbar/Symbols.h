#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QStringView>

class QPainter;

// Draws the glyphs of the bars, which form one visual family.
namespace Symbols {

enum class Weight { regular, semibold };

struct Symbol {
    QStringView name; // such as u"arrow.up.right"
    double size;      // points; size of the text that the glyph stands beside
    QColor tint;
    Weight weight = Weight::regular;
};

// Returns the side of the square that a glyph is drawn in, in points.
[[nodiscard]] double side(double size);

// Returns a picture of the glyph, which is rendered on the first call and then
// kept. Its device pixel ratio is the scale, in pixels per point. The picture is
// transparent when there is no such symbol.
[[nodiscard]] QImage picture(const Symbol &symbol, double scale);

// Draws the glyph on whole pixels, in a space whose y grows downwards.
void draw(QPainter &painter, QPointF centre, const Symbol &symbol);

} // namespace Symbols
