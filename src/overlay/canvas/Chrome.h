#pragma once

#include "marks/EditorState.h"

#include <QRectF>
#include <QRegion>
#include <QString>

class QPainter;
class ViewSpace;

// Everything the overlay shows that never reaches the picture. View points, y
// upwards.
namespace Chrome {

struct Scene {
    const EditorState &state;
    double scale;            // pixels per point
    bool haloShows = false;  // the glow stands in for the dashed frame
    bool justCopied = false; // the size badge says so
};

// What belongs to the selection, or the hint in the middle while there is none;
// and the product's badge in the corner.
// Only what shows in the exposed part (view points) has to be drawn.
void draw(QPainter &painter, const Scene &scene, const QRectF &exposed);

// All that draw() may touch, in widget points, rounded outwards.
[[nodiscard]] QRegion footprint(const Scene &scene, const ViewSpace &space);

// The badge above the selection, or inside it when the screen ends there.
[[nodiscard]] QRectF sizeBadge(const QRectF &selection, QSizeF text, const QRectF &bounds);
// In device pixels, such as "1280 × 720".
[[nodiscard]] QString sizeText(const QRectF &selection, double scale);

} // namespace Chrome
