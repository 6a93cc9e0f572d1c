#include "capture/Capture.h"

#include "base/Log.h"
#include "platform/ScreenGrabber.h"

namespace {

// A picture without pixels would leave a screen that cannot be worked on.
bool usable(const ScreenShot &shot)
{
    return shot.screen && !shot.image.isNull() && shot.scale > 0 && !shot.pointSize.isEmpty();
}

} // namespace

namespace Capture {

QCoro::Task<std::optional<std::vector<ScreenShot>>> captureAllScreens(ScreenGrabber &grabber)
{
    auto shots = co_await grabber.grabScreens();
    if (!shots) {
        Log::write(QStringLiteral("captura -> FALLO"));
        co_return std::nullopt;
    }
    std::erase_if(*shots, [](const ScreenShot &shot) { return !usable(shot); });
    co_return shots;
}

} // namespace Capture
