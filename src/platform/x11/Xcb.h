#pragma once

#include <QHash>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

class QScreen;

// The X server as the application object already knows it. Every rectangle is
// in device pixels of the root window.
namespace Xcb {

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
// Replies and errors of xcb, freed with their owner.
template <typename T>
using Reply = std::unique_ptr<T, Free>;

[[nodiscard]] xcb_connection_t *connection();
[[nodiscard]] xcb_screen_t *screen();
[[nodiscard]] xcb_window_t root();
// As large as it is now: monitors that come and go change that.
[[nodiscard]] QRect rootArea();

// Interned on every call; null when the server knows no such name.
[[nodiscard]] xcb_atom_t atom(const char *name);
[[nodiscard]] bool hasExtension(xcb_extension_t *extension);

// Whether somebody owns a selection, such as the place of the compositor.
[[nodiscard]] bool selectionOwned(const QByteArray &name);
[[nodiscard]] QByteArray perScreen(const char *prefix);

// The monitors by RandR name, which is the name of the toolkit's screen.
[[nodiscard]] QHash<QString, QRect> monitors();

[[nodiscard]] QPoint pointer();

// The toolkit's screen on the monitor that the pointer is on; null when it is on
// none.
[[nodiscard]] QScreen *screenUnderPointer();

// Waits until the server has carried out all requests so far.
void sync();

} // namespace Xcb
