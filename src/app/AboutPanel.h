#pragma once

#include <QString>
#include <QUrl>

#include <functional>

// Who made the program, and where it lives.
namespace AboutPanel {

// Returns at once; openLink is called with the address of every link that is
// clicked. A second call while it shows only brings it to the front.
void show(const std::function<void(const QUrl &)> &openLink);

// The credits as rich text, centred.
[[nodiscard]] QString credits();

} // namespace AboutPanel
