#pragma once

#include <QRectF>

class QPainter;
struct Annotation;

// The line of a freehand stroke. A long one is made of several pieces, because
// the effort to fill a path grows much faster than its length; where it is cut
// does not depend on what is painted, so that screen and picture agree.
namespace StrokePath {

// How many pieces a stroke of that many points has; none below two points.
[[nodiscard]] qsizetype pieces(qsizetype points);
// How many points a stroke has when that many of its pieces are as they will stay.
[[nodiscard]] qsizetype pointsOf(qsizetype finishedPieces);
// The piece that goes on to the point with that index.
[[nodiscard]] qsizetype pieceOf(qsizetype point);

// Draws the stroke, as far as it can show in the exposed part of the view.
void draw(QPainter &painter, const Annotation &stroke, const QRectF &exposed);
// Draws one of its pieces in the full colour, also of a stroke that is translucent.
void drawPiece(QPainter &painter, const Annotation &stroke, qsizetype piece, const QRectF &exposed);
// How much of what is below a stroke in full colour is to be covered, 0 to 1.
[[nodiscard]] double opacity(const Annotation &stroke);

} // namespace StrokePath
