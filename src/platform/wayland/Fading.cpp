#include "platform/wayland/Fading.h"

#include <QCoroTimer>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace Fading {

QCoro::Task<void> over()
{
    const auto windows = QGuiApplication::topLevelWindows();
    if (std::ranges::any_of(windows, [](const QWindow *window) { return window->handle() != nullptr; }))
        co_await QCoro::sleepFor(250ms);
}

} // namespace Fading
