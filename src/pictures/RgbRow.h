#pragma once

#include <QImage>

// Copies one row of a picture whose pixels are QRgb words as three bytes per pixel,
// red first. Alpha is left out.
inline void copyRgbRow(const QImage &picture, int row, uchar *to)
{
    const QRgb *const from = reinterpret_cast<const QRgb *>(picture.constScanLine(row));
    const qsizetype width = picture.width();
    for (qsizetype x = 0; x < width; ++x) {
        to[3 * x] = uchar(from[x] >> 16);
        to[3 * x + 1] = uchar(from[x] >> 8);
        to[3 * x + 2] = uchar(from[x]);
    }
}
