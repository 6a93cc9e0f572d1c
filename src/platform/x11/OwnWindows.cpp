#include "platform/x11/OwnWindows.h"

#include "platform/x11/Xcb.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEvent>
#include <QThread>

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/xfixes.h>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto longestWait = 500ms;
constexpr auto quietTime = 60ms; // without change after a closing animation
constexpr auto pollPause = 1ms;

// The window manager's frame round a window, or the window itself.
xcb_window_t frameOf(xcb_window_t window)
{
    auto *c = Xcb::connection();
    for (;;) {
        const Xcb::Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
        if (!tree || tree->parent == tree->root || tree->parent == XCB_WINDOW_NONE)
            return window;
        window = tree->parent;
    }
}

bool viewable(xcb_window_t window)
{
    auto *c = Xcb::connection();
    const Xcb::Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool compositorRuns() { return Xcb::selectionOwned(Xcb::perScreen("_NET_WM_CM")); }

// Tells whether the root window has changed since it was asked last.
class ChangeWatch {
public:
    ChangeWatch() : m_damage(xcb_generate_id(m_connection)), m_region(xcb_generate_id(m_connection))
    {
        const Xcb::Reply<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
            m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
        xcb_damage_create(m_connection, m_damage, Xcb::root(), XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
        xcb_xfixes_create_region(m_connection, m_region, 0, nullptr);
    }

    ~ChangeWatch()
    {
        xcb_damage_destroy(m_connection, m_damage);
        xcb_xfixes_destroy_region(m_connection, m_region);
    }

    Q_DISABLE_COPY_MOVE(ChangeWatch)

    [[nodiscard]] bool changed()
    {
        xcb_damage_subtract(m_connection, m_damage, XCB_NONE, m_region);
        const Xcb::Reply<xcb_xfixes_fetch_region_reply_t> region(xcb_xfixes_fetch_region_reply(
            m_connection, xcb_xfixes_fetch_region(m_connection, m_region), nullptr));
        return region && region->extents.width > 0;
    }

private:
    xcb_connection_t *m_connection = Xcb::connection();
    xcb_damage_damage_t m_damage;
    xcb_xfixes_region_t m_region;
};

void waitUntilGone(const std::vector<xcb_window_t> &frames, const QDeadlineTimer &deadline)
{
    for (const xcb_window_t frame : frames)
        while (viewable(frame) && !deadline.hasExpired())
            QThread::usleep(std::chrono::microseconds(pollPause).count());
}

void waitUntilQuiet(const QDeadlineTimer &deadline)
{
    ChangeWatch watch;
    QElapsedTimer quiet;
    quiet.start();
    while (std::chrono::milliseconds(quiet.elapsed()) < quietTime && !deadline.hasExpired()) {
        QThread::usleep(std::chrono::microseconds(pollPause).count());
        if (watch.changed())
            quiet.restart();
    }
}

} // namespace

OwnWindows::OwnWindows() { qApp->installEventFilter(this); }

OwnWindows::~OwnWindows() { keepPixelsBelow(false); }

void OwnWindows::hide()
{
    const bool menusClosed = OrdinaryWindows::closeMenus();
    const auto windows = OrdinaryWindows::visible();
    if (windows.empty() && !menusClosed)
        return;
    const QDeadlineTimer deadline(longestWait);
    std::vector<xcb_window_t> frames;
    for (QWidget *window : windows)
        frames.push_back(frameOf(static_cast<xcb_window_t>(window->winId())));
    const bool composited = compositorRuns();
    m_windows.hide(windows);
    Xcb::sync();
    waitUntilGone(frames, deadline);
    if (composited)
        waitUntilQuiet(deadline);
}

void OwnWindows::restore() { m_windows.restore(); }

bool OwnWindows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return false;
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || !(OrdinaryWindows::isOne(*widget) || OrdinaryWindows::isMenu(*widget)))
        return false;
    if (event->type() == QEvent::Show)
        keepPixelsBelow(!compositorRuns());
    else if (OrdinaryWindows::visible().empty() && !m_windows.anyHidden())
        keepPixelsBelow(false);
    return false;
}

void OwnWindows::keepPixelsBelow(bool wanted)
{
    if (wanted == m_pixelsKept || !Xcb::hasExtension(&xcb_composite_id))
        return;
    auto *c = Xcb::connection();
    if (wanted)
        xcb_composite_redirect_subwindows(c, Xcb::root(), XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    else
        xcb_composite_unredirect_subwindows(c, Xcb::root(), XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    xcb_flush(c);
    m_pixelsKept = wanted;
}
