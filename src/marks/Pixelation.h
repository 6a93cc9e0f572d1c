#pragma once

#include <QImage>
#include <QRect>
#include <QRectF>
#include <QSize>

#include <vector>

class QPainter;
struct Annotation;

// The mosaic of one part of the frozen screen, not of the marks above it. A block
// is worked out when it is first asked for, so that what other mosaics cover costs
// nothing.
class Mosaic {
public:
    // Of the part of the frozen screen that the mark covers. It keeps the picture
    // of the screen, and so must not outlive the capture.
    explicit Mosaic(const Annotation &mark);

    // There is nothing to paint: the mark is too small or off the frozen screen.
    [[nodiscard]] bool isNull() const { return m_colours.empty(); }
    // Paints the exposed pixels of the device that the painter counts in, where
    // the mark takes up that place. All pixels whose centres lie in it are covered.
    // Several threads may do so at once.
    void draw(QPainter &painter, const QRectF &place, const QRect &exposed) const;
    // Those pixels.
    [[nodiscard]] static QRect covered(const QRectF &place);

private:
    [[nodiscard]] QRgb colour(int column, int row) const;
    [[nodiscard]] QRgb workOut(int column, int row) const;

    QImage m_screen;
    QRect m_part; // of the screen, device pixels
    QSize m_blocks;
    mutable std::vector<QRgb> m_colours; // row by row from the top; transparent while not known
};

namespace Pixelation {

// How many device pixels of the screen one block stands for at a scale.
[[nodiscard]] int blockSide(double scale);

} // namespace Pixelation
