#pragma once

#include <QImage>
#include <QRect>
#include <QRectF>
#include <QSize>

#include <vector>

class Raster;
struct Annotation;

// Makes a mosaic of one part of the frozen screen, not of the marks above it. The
// colour of a block is computed when it is first needed, so blocks that other
// mosaics cover cost nothing.
class Mosaic {
public:
    // Takes the part of the frozen screen that the mark covers. Shares the picture
    // of the screen, and so must not outlive the capture.
    explicit Mosaic(const Annotation &mark);

    // Returns whether there is nothing to paint because the mark is too small or
    // off the frozen screen.
    [[nodiscard]] bool isNull() const { return m_colours.empty(); }
    // Writes the exposed part of a mosaic that fills the given place, both in device
    // pixels. A pixel is written if its centre lies in the place. Several threads may
    // call this at once.
    void fill(const Raster &raster, const QRectF &place, const QRect &exposed) const;
    // Returns the device pixels that a mosaic at this place covers.
    [[nodiscard]] static QRect covered(const QRectF &place);

private:
    [[nodiscard]] QRgb colour(int column, int row) const;
    [[nodiscard]] QRgb workOut(int column, int row) const;

    QImage m_screen;
    QRect m_part; // of the screen, device pixels
    QSize m_blocks;
    mutable std::vector<QRgb> m_colours; // row by row from the top; transparent until computed
};

// A mosaic and the place that it fills, in device pixels of the screen.
struct Tessera {
    Mosaic mosaic;
    QRectF place;
};

namespace Pixelation {

// Returns the side of one block in device pixels at a scale of pixels per point.
[[nodiscard]] int blockSide(double scale);

} // namespace Pixelation
