#include "platform/wayland/ScreencopyGrabber.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/OutputCopies.h"
#include "platform/wayland/SharedBuffers.h"

#include <QCoroSignal>

#include "wlr-screencopy-unstable-v1-client.h"

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 5s;

} // namespace

ScreencopyGrabber::ScreencopyGrabber(std::shared_ptr<Connection> connection)
    : m_connection(std::move(connection))
    , m_buffers(std::make_shared<SharedBuffers>(m_connection))
{}

bool ScreencopyGrabber::offered() const
{
    return std::ranges::any_of(m_connection->globals(), [](const Connection::Global &global) {
        return global.interface == zwlr_screencopy_manager_v1_interface.name;
    });
}

QString ScreencopyGrabber::name() const { return QStringLiteral("wlr-screencopy"); }

QCoro::Task<ScreenSource::Result> ScreencopyGrabber::grab()
{
    if (!offered())
        co_return Result{.problem = QStringLiteral("no se ofrece")};
    const auto buffers = m_buffers; // this may be gone after the wait
    OutputCopies copies(m_connection, buffers);
    copies.start();
    if (!copies.complete())
        co_await qCoro(&copies, &OutputCopies::finished, patience);
    if (!copies.complete())
        co_return Result{.problem = QStringLiteral("el compositor no contesta"), .final = true};
    auto shots = copies.take();
    buffers->forgetUnused();
    if (!shots.empty()
        && std::ranges::all_of(shots, [](const ScreenShot &shot) { return shot.image.isNull(); }))
        co_return Result{.problem = QStringLiteral("el compositor se niega")};
    Result result;
    result.shots = std::move(shots);
    co_return result;
}
