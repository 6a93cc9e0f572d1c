#pragma once

#include "base/ScreenShot.h"

#include <QByteArray>
#include <QRect>

#include <vector>

// Reads the tree of windows that sway describes in JSON.
namespace SwayTree {

// Returns the frames on that screen of all windows that show, but for this process's
// own, the topmost first, in device pixels of its picture, y downwards. Empty when the
// text is no such tree, or knows no output of that name.
[[nodiscard]] std::vector<QRect> framesOn(const ScreenShot &shot, const QByteArray &json);

} // namespace SwayTree
