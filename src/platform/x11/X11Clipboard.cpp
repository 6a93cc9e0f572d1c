#include "platform/x11/X11Clipboard.h"

#include "platform/x11/Xcb.h"

#include <QAbstractNativeEventFilter>
#include <QClipboard>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <limits>

using namespace std::chrono_literals;

namespace {

constexpr auto eventComes = 500ms;

// Asks the manager to save everything, and waits for its answer.
class Request final : public QAbstractNativeEventFilter {
public:
    Request() : m_window(xcb_generate_id(Xcb::connection()))
    {
        auto *c = Xcb::connection();
        xcb_create_window(c, XCB_COPY_FROM_PARENT, m_window, Xcb::root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    ~Request() override
    {
        QCoreApplication::instance()->removeNativeEventFilter(this);
        xcb_destroy_window(Xcb::connection(), m_window);
        xcb_flush(Xcb::connection());
    }

    Q_DISABLE_COPY_MOVE(Request)

    void await(std::chrono::milliseconds limit)
    {
        auto *c = Xcb::connection();
        const xcb_atom_t property = Xcb::atom("_VELLUMORA_SAVED"); // absent, which stands for every type
        xcb_convert_selection(c, m_window, Xcb::atom("CLIPBOARD_MANAGER"), Xcb::atom("SAVE_TARGETS"),
                              property, XCB_CURRENT_TIME);
        xcb_flush(c);
        QTimer::singleShot(limit, Qt::PreciseTimer, &m_waiting, &QEventLoop::quit);
        m_waiting.exec(QEventLoop::ExcludeUserInputEvents);
    }

    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override
    {
        const auto &event = *static_cast<const xcb_generic_event_t *>(message);
        if ((event.response_type & 0x7fU) == XCB_SELECTION_NOTIFY
            && reinterpret_cast<const xcb_selection_notify_event_t &>(event).requestor == m_window)
            m_waiting.quit();
        return false;
    }

private:
    const xcb_window_t m_window;
    QEventLoop m_waiting;
};

// Makes Qt believe that somebody else has the clipboard now. It would ask the manager
// again at its end and not serve it, and what a manager fails to read a second time it
// may forget. For everybody else the clipboard stays ours until the process is gone.
void keepQtFromAsking()
{
    auto *c = Xcb::connection();
    const xcb_atom_t clipboard = Xcb::atom("CLIPBOARD");
    const Xcb::Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, clipboard), nullptr));
    if (!reply)
        return;
    xcb_selection_clear_event_t lost = {};
    lost.response_type = XCB_SELECTION_CLEAR;
    lost.time = std::numeric_limits<xcb_timestamp_t>::max(); // later than it was taken
    lost.owner = reply->owner;
    lost.selection = clipboard;
    xcb_send_event(c, 0, reply->owner, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&lost));
    Xcb::sync();
    const QSignalBlocker quiet(QGuiApplication::clipboard()); // or our own fields would look at it
    // Events come by way of a thread of Qt's, which may be late.
    for (const QDeadlineTimer limit(eventComes);
         QGuiApplication::clipboard()->ownsClipboard() && !limit.hasExpired();) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(1);
    }
}

} // namespace

void X11Clipboard::handOver(std::chrono::milliseconds limit)
{
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    if (!clipboard.ownsClipboard() || !Xcb::selectionOwned("CLIPBOARD_MANAGER"))
        return;
    Request().await(limit);
    if (clipboard.ownsClipboard()) // else the manager has it already
        keepQtFromAsking();
}
