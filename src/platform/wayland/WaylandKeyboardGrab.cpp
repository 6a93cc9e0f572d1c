#include "platform/wayland/WaylandKeyboardGrab.h"

#include "platform/wayland/QtQueue.h"

#include <QWidget>
#include <QWindow>

#include <keyboard-shortcuts-inhibit-unstable-v1-client.h>

#include <utility>

WaylandKeyboardGrab::WaylandKeyboardGrab(std::shared_ptr<QtQueue> queue)
    : m_queue(std::move(queue))
    , m_manager(m_queue->bind<zwp_keyboard_shortcuts_inhibit_manager_v1>(
          zwp_keyboard_shortcuts_inhibit_manager_v1_interface, 1))
{}

WaylandKeyboardGrab::~WaylandKeyboardGrab()
{
    release();
    if (m_manager)
        zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(m_manager);
}

void WaylandKeyboardGrab::take(QWidget &window)
{
    release(); // a second inhibitor of one window is an error
    QWindow *handle = window.window()->windowHandle();
    wl_surface *surface = handle ? QtQueue::surfaceOf(*handle) : nullptr;
    wl_seat *seat = QtQueue::seat();
    if (!m_manager || !surface || !seat)
        return;
    m_inhibitor = zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(m_manager, surface, seat);
    m_queue->flush();
}

void WaylandKeyboardGrab::release()
{
    if (auto *inhibitor = std::exchange(m_inhibitor, nullptr)) {
        zwp_keyboard_shortcuts_inhibitor_v1_destroy(inhibitor);
        m_queue->flush();
    }
}
