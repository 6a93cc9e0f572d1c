#pragma once

#include <QImage>
#include <QList>

// Returns the pictures side by side. All have the same height in device pixels.
[[nodiscard]] QImage strip(const QList<QImage> &pictures);
