#pragma once

#include <QImage>
#include <QList>

// Pictures of the same height side by side, in device pixels.
[[nodiscard]] QImage strip(const QList<QImage> &pictures);
