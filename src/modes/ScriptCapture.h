#pragma once

#include <QRect>
#include <QString>

#include <optional>

struct Platform;

// Takes one picture for a script: no overlay, no question, nothing kept.
namespace ScriptCapture {

// Names what is to be in the picture and where it goes.
struct Order {
    // Device pixels from the screen's top left corner, or from the desk's zero where
    // no screen is named.
    std::optional<QRect> region = std::nullopt;
    // A name as the system has it, or "todas" for the whole desk. Where neither this
    // nor a region is given, the screen under the pointer is taken.
    std::optional<QString> screen = std::nullopt;
    QString output; // a file, or "-" for standard output
};

// Writes the picture as a PNG file. Returns the exit status; when that is not
// success, a sentence has gone to standard error.
[[nodiscard]] int run(Platform &platform, const Order &order);

} // namespace ScriptCapture
