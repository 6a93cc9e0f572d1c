#include "platform/x11/Xcb.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/randr.h>

#include <algorithm>
#include <cstring>

namespace {

QString atomName(xcb_atom_t atom)
{
    auto *c = Xcb::connection();
    const Xcb::Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(c, xcb_get_atom_name(c, atom), nullptr));
    if (!reply)
        return {};
    return QString::fromUtf8(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()));
}

} // namespace

namespace Xcb {

xcb_connection_t *connection()
{
    const auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native->connection();
}

xcb_screen_t *screen() { return xcb_setup_roots_iterator(xcb_get_setup(connection())).data; }

xcb_window_t root() { return screen()->root; }

QRect rootArea()
{
    auto *c = connection();
    const Reply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, root()), nullptr));
    return reply ? QRect(0, 0, reply->width, reply->height) : QRect();
}

xcb_atom_t atom(const char *name)
{
    auto *c = connection();
    const auto cookie = xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(c, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool hasExtension(xcb_extension_t *extension)
{
    const auto *data = xcb_get_extension_data(connection(), extension);
    return data && data->present;
}

bool selectionOwned(const QByteArray &name)
{
    auto *c = connection();
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, atom(name.constData())), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

// The toolkit speaks to the first screen of the display only.
QByteArray perScreen(const char *prefix) { return QByteArray(prefix) + "_S0"; }

QHash<QString, QRect> monitors()
{
    auto *c = connection();
    const Reply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(c, xcb_randr_get_monitors(c, root(), 1), nullptr));
    QHash<QString, QRect> found;
    if (!reply)
        return found;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem;
         xcb_randr_monitor_info_next(&it))
        found.insert(atomName(it.data->name), {it.data->x, it.data->y, it.data->width, it.data->height});
    return found;
}

QPoint pointer()
{
    auto *c = connection();
    const Reply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, root()), nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

// The toolkit's own pointer position is in points, which overlap between screens of
// different scale.
QScreen *screenUnderPointer()
{
    const QPoint at = pointer();
    const auto all = monitors();
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(
        screens, [&](const QScreen *screen) { return all.value(screen->name()).contains(at); });
    return found == screens.end() ? nullptr : *found;
}

void sync()
{
    auto *c = connection();
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
}

} // namespace Xcb
