#include "capture/Capture.h"

#include "base/Log.h"
#include "platform/ScreenGrabber.h"
#include "platform/WindowList.h"
#include "platform/WindowPlacer.h"

#include <algorithm>

namespace Capture {

QCoro::Task<std::optional<std::vector<ScreenShot>>> captureAllScreens(ScreenGrabber &grabber,
                                                                      WindowPlacer &placer,
                                                                      WindowList &windows)
{
    placer.beginSession();
    const auto shots = co_await grabber.grabScreens();
    const auto failed = [](const ScreenShot &shot) { return shot.image.isNull(); };
    const bool read = shots && std::ranges::none_of(*shots, failed);
    if (read && !shots->empty())
        windows.freeze();
    else
        placer.endSession();
    if (read)
        co_return shots;
    Log::write(QStringLiteral("captura -> FALLO"));
    co_return std::nullopt;
}

} // namespace Capture
