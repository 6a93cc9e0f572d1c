#pragma once

#include <QHash>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

class QScreen;

// Speaks to the X server through the connection that the application object already
// has. Every rectangle is in device pixels of the root window.
namespace Xcb {

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
// Owns a reply or an error of xcb and frees it.
template <typename T>
using Reply = std::unique_ptr<T, Free>;

[[nodiscard]] xcb_connection_t *connection();
[[nodiscard]] xcb_screen_t *screen();
[[nodiscard]] xcb_window_t root();
// Returns the current area of the root window, which changes when monitors come and
// go.
[[nodiscard]] QRect rootArea();

// Interns the name on every call. Returns XCB_ATOM_NONE when that fails.
[[nodiscard]] xcb_atom_t atom(const char *name);
[[nodiscard]] bool hasExtension(xcb_extension_t *extension);

// Returns whether somebody owns a selection, such as the one that a compositor
// holds.
[[nodiscard]] bool selectionOwned(const QByteArray &name);
// Returns the name of a selection that exists once per screen, such as
// "_NET_WM_CM_S0".
[[nodiscard]] QByteArray perScreen(const char *prefix);

// Returns the monitors by RandR name, which is the name of Qt's screen.
[[nodiscard]] QHash<QString, QRect> monitors();

[[nodiscard]] QPoint pointer();

// Returns Qt's screen for the monitor that the pointer is on; null when it is on
// none.
[[nodiscard]] QScreen *screenUnderPointer();

// Waits until the server has carried out all requests so far.
void sync();

} // namespace Xcb
