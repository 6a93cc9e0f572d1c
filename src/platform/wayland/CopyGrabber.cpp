#include "platform/wayland/CopyGrabber.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/OutputCopies.h"
#include "platform/wayland/SharedBuffers.h"

#include <QCoroSignal>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 5s;

} // namespace

CopyGrabber::CopyGrabber(std::shared_ptr<Connection> connection, std::vector<const wl_interface *> globals)
    : m_connection(std::move(connection))
    , m_globals(std::move(globals))
    , m_buffers(std::make_shared<SharedBuffers>(m_connection))
{}

bool CopyGrabber::offered() const
{
    return std::ranges::all_of(m_globals, [this](const wl_interface *needed) {
        return std::ranges::any_of(m_connection->globals(), [needed](const Connection::Global &global) {
            return global.interface == needed->name;
        });
    });
}

QCoro::Task<ScreenSource::Result> CopyGrabber::grab()
{
    if (!offered())
        co_return Result{.problem = QStringLiteral("no se ofrece")};
    const auto buffers = m_buffers; // this may be gone after the wait
    OutputCopies copies(m_connection, buffers, bind(*m_connection));
    copies.start();
    if (!copies.complete())
        co_await qCoro(&copies, &OutputCopies::finished, patience);
    if (!copies.complete())
        co_return Result{.problem = QStringLiteral("el compositor no contesta"), .final = true};
    auto shots = copies.take();
    buffers->forgetUnused();
    if (std::ranges::any_of(shots, [](const ScreenShot &shot) { return shot.image.isNull(); }))
        co_return Result{.problem = QStringLiteral("el compositor se niega")};
    Result result;
    result.shots = std::move(shots);
    co_return result;
}
