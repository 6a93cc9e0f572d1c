#pragma once

#include <QImage>
#include <QUrl>

#include <functional>

// The file in which a portal hands over a picture.
namespace PortalPicture {

// Reads the picture and deletes its file, whatever comes of it: nobody has asked for
// a file. Null when that is not a whole picture, or its size is not acceptable.
[[nodiscard]] QImage take(const QUrl &address, const std::function<bool(QSize)> &acceptable);

} // namespace PortalPicture
