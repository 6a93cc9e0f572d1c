#pragma once

#include <QCoroTask>
#include <QImage>
#include <QVariantMap>

#include <optional>

// The picture of one screen as KWin hands it over.
namespace KWinPicture {

// Either of them is empty.
struct Answer {
    QImage image;
    QString problem;
};

// Asks for the screen of that name and reads what KWin writes.
[[nodiscard]] QCoro::Task<Answer> take(QString screen);

// What KWin says about the bytes that it is going to write.
struct Layout {
    QSize size; // device pixels
    int stride; // bytes from one row to the next
    QImage::Format format;
};
// Absent when that is nothing that could be read.
[[nodiscard]] std::optional<Layout> layoutOf(const QVariantMap &description);

} // namespace KWinPicture
