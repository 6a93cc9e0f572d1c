#include "platform/wayland/Outputs.h"

#include <QGuiApplication>

#include <algorithm>

namespace {

constexpr std::uint32_t withNames = 4;

Output &self(void *data) { return *static_cast<Output *>(data); }

// Whether height and width change places.
bool isTurned(wl_output_transform transform) { return (transform & WL_OUTPUT_TRANSFORM_90) != 0; }

} // namespace

const wl_output_listener Output::listener{
    .geometry =
        [](void *data, wl_output *, int x, int y, int, int, int, const char *, const char *, int transform) {
            self(data).m_transform = static_cast<wl_output_transform>(transform);
            self(data).m_place = {x, y};
        },
    .mode =
        [](void *data, wl_output *, std::uint32_t flags, int width, int height, int) {
            if (flags & WL_OUTPUT_MODE_CURRENT)
                self(data).m_mode = {width, height};
        },
    .done = [](void *data, wl_output *) { self(data).m_described = true; },
    .scale = [](void *, wl_output *, int) {},
    .name = [](void *data, wl_output *, const char *name) { self(data).m_name = QString::fromUtf8(name); },
    .description = [](void *, wl_output *, const char *) {},
};

Output::Output(const Connection &connection, const Connection::Global &global)
    : m_global(global.name)
    , m_proxy(connection.bind<wl_output>(global, wl_output_interface, withNames))
{
    wl_output_add_listener(m_proxy, &listener, this);
}

Output::~Output()
{
    if (wl_output_get_version(m_proxy) >= WL_OUTPUT_RELEASE_SINCE_VERSION)
        wl_output_release(m_proxy);
    else
        wl_output_destroy(m_proxy);
}

QSize Output::nativeSize() const { return isTurned(m_transform) ? m_mode.transposed() : m_mode; }

QScreen *Output::screen() const
{
    // A compositor that names no outputs says where each of them is.
    const auto isThis = [this](const QScreen *screen) {
        return m_name.isEmpty() ? screen->geometry().topLeft() == m_place : screen->name() == m_name;
    };
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(screens, isThis);
    return found == screens.end() ? nullptr : *found;
}

namespace Outputs {

std::vector<std::unique_ptr<Output>> all(const Connection &connection)
{
    std::vector<std::unique_ptr<Output>> outputs;
    for (const Connection::Global &global : connection.globals())
        if (global.interface == wl_output_interface.name)
            outputs.push_back(std::make_unique<Output>(connection, global));
    return outputs;
}

bool isThere(const Connection &connection, const Output &output)
{
    return std::ranges::any_of(connection.globals(), [&](const Connection::Global &global) {
        return global.name == output.global();
    });
}

} // namespace Outputs
