#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRgb>

// Gives access to the pixels of a picture by where they lie on the screen, in device
// pixels, y downwards. The colours of a large part of the screen are worked out row by
// row, and a painter would cost more than that.
class Raster {
public:
    // Takes a picture of 32 bits a pixel, which must outlive this object and is written
    // to as it is, and where on the screen its upper left corner lies.
    explicit Raster(QImage &picture, QPoint upperLeft = {})
        : Raster(picture.bits(), picture.bytesPerLine(), {upperLeft, picture.size()})
    {}
    // Takes memory that holds the pixels of that area, so many bytes a row.
    Raster(uchar *bits, qsizetype bytesPerLine, const QRect &area)
        : m_bits(bits)
        , m_bytesPerLine(bytesPerLine)
        , m_area(area)
    {}

    [[nodiscard]] const QRect &area() const { return m_area; }
    // Returns the pixel there, which must lie in the area, and those to its right.
    [[nodiscard]] QRgb *at(int x, int y) const
    {
        return reinterpret_cast<QRgb *>(m_bits + (y - m_area.top()) * m_bytesPerLine) + (x - m_area.left());
    }

private:
    uchar *m_bits;
    qsizetype m_bytesPerLine;
    QRect m_area;
};
