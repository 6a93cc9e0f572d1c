#pragma once

#include "marks/EditorState.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QRegion>
#include <QString>

#include <vector>

class QPainter;
class Raster;
class ViewSpace;

// Draws everything that the overlay shows but the picture never contains.
// Everything is in view points, y upwards.
namespace Chrome {

struct Scene {
    const EditorState &state;
    double scale;            // pixels per point
    bool haloShows = false;  // the glow stands in for the dashed frame
    bool justCopied = false; // the size badge says that the picture was copied
    bool framed = false;     // outline, handles and size badge have been drawn, by a Frame
};

// Draws the outline, handles and size badge of the selection, or the hint in the
// middle while there is none, and the product's badge in the corner. Only what
// shows in the exposed part, in widget points, has to be drawn.
void draw(QPainter &painter, const Scene &scene, const QRegion &exposed);

// Draws the outline of the selection, its handles and the size badge, to be blended in bands.
// Everything is in device pixels, y downwards.
class Frame {
public:
    explicit Frame(const Scene &scene);

    [[nodiscard]] const QRegion &outline() const { return m_outline; }
    [[nodiscard]] QRegion sprites() const; // where handles and badge are
    // Draw what of these is on a part of the screen. Several threads may call them at once.
    void drawOutline(const Raster &raster, const QRegion &part) const;
    void drawSprites(const Raster &raster, const QRegion &part) const;

private:
    struct Sprite {
        QPoint upperLeft;
        QImage picture;

        [[nodiscard]] QRect place() const { return {upperLeft, picture.size()}; }
    };
    QRegion m_outline;
    std::vector<Sprite> m_sprites;
};

// Returns the area that draw() may touch, except for the product's badge, in widget
// points, rounded outwards.
[[nodiscard]] QRegion footprint(const Scene &scene, const ViewSpace &space);

// Returns the place of the size badge above the selection, or inside it if the
// screen ends there.
[[nodiscard]] QRectF sizeBadge(const QRectF &selection, QSizeF text, const QRectF &bounds);
// Returns the place of the product's badge in the corner of the screen.
[[nodiscard]] QRectF productBadge(const QRectF &bounds);
// Returns the size of the selection in device pixels, such as "1280 × 720".
[[nodiscard]] QString sizeText(const QRectF &selection, double scale);

} // namespace Chrome
