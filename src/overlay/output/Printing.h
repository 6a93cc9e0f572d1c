#pragma once

#include <QImage>

// Paper. The picture fills the page as far as its shape allows.
namespace Printing {

// Opens the print dialog and returns; the picture is printed when the user says
// so.
void show(const QImage &picture);

// Whether a picture waits for its dialog to be answered.
[[nodiscard]] bool isOpen();

// The largest rectangle of the picture's shape that the page holds, centred.
// Both in the same units.
[[nodiscard]] QRectF fitted(QSizeF picture, const QRectF &page);

} // namespace Printing
