#include "platform/x11/X11KeyboardGrab.h"

#include "platform/x11/Xcb.h"

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto retryPause = 10ms; // while another program holds the keyboard

} // namespace

X11KeyboardGrab::X11KeyboardGrab()
{
    m_retry.setInterval(retryPause);
    m_retry.setSingleShot(true);
    m_retry.callOnTimeout([this] { grab(); });
}

X11KeyboardGrab::~X11KeyboardGrab() { release(); }

void X11KeyboardGrab::take(QWidget &window)
{
    m_window = &window;
    m_wanted = true;
    grab();
}

// Keys still go to whichever own window has the focus.
void X11KeyboardGrab::grab()
{
    if (!m_window)
        return;
    auto *c = Xcb::connection();
    const auto cookie = xcb_grab_keyboard(c, 1, static_cast<xcb_window_t>(m_window->internalWinId()),
                                          XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Xcb::Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(c, cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        m_retry.start();
}

void X11KeyboardGrab::release()
{
    m_retry.stop();
    m_window.clear();
    if (!std::exchange(m_wanted, false))
        return;
    xcb_ungrab_keyboard(Xcb::connection(), XCB_CURRENT_TIME);
    xcb_flush(Xcb::connection());
}
