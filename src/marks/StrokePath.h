#pragma once

#include <QRectF>

class QPainter;
struct Annotation;

// Draws the line of a freehand stroke. A long stroke is drawn in several pieces,
// because the cost of filling a path grows much faster than its length. The cuts do
// not depend on what is painted, so the screen and the picture agree.
namespace StrokePath {

// Returns how many pieces a stroke of so many points has; none for fewer than two
// points.
[[nodiscard]] qsizetype pieces(qsizetype points);
// Returns how many points a stroke has when so many of its pieces are complete and
// no longer change.
[[nodiscard]] qsizetype pointsOf(qsizetype finishedPieces);
// Returns the index of the piece that draws the step to the point with that index.
[[nodiscard]] qsizetype pieceOf(qsizetype point);

// Draws the stroke, as far as it can show in the exposed part of the view.
void draw(QPainter &painter, const Annotation &stroke, const QRectF &exposed);
// Draws one piece of the stroke in its full colour, even if the stroke is
// translucent.
void drawPiece(QPainter &painter, const Annotation &stroke, qsizetype piece, const QRectF &exposed);
// Returns how opaque the stroke is, once drawn in its full colour, from 0 to 1.
[[nodiscard]] double opacity(const Annotation &stroke);

} // namespace StrokePath
