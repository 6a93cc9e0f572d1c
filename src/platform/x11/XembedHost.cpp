#include "platform/x11/XembedHost.h"

#include "platform/x11/Xcb.h"

#include <QCoreApplication>
#include <QTimer>

#include <xcb/xfixes.h>

XembedHost::XembedHost() : m_selection(Xcb::atom(Xcb::perScreen("_NET_SYSTEM_TRAY").constData()))
{
    if (!Xcb::hasExtension(&xcb_xfixes_id))
        return;
    auto *c = Xcb::connection();
    m_selectionNotify = static_cast<std::uint8_t>(xcb_get_extension_data(c, &xcb_xfixes_id)->first_event
                                                  + XCB_XFIXES_SELECTION_NOTIFY);
    const Xcb::Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(c, xcb_xfixes_query_version(c, 5, 0), nullptr));
    xcb_xfixes_select_selection_input(c, Xcb::root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool XembedHost::present() const { return Xcb::selectionOwned(Xcb::perScreen("_NET_SYSTEM_TRAY")); }

bool XembedHost::nativeEventFilter(const QByteArray &, void *message, qintptr *)
{
    constexpr unsigned sentBit = 0x80;
    const auto *event = static_cast<xcb_generic_event_t *>(message);
    if ((event->response_type & ~sentBit) != m_selectionNotify)
        return false;
    const auto *notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t *>(event);
    if (notify->selection == m_selection && notify->owner != XCB_WINDOW_NONE && onAppeared)
        QTimer::singleShot(0, QCoreApplication::instance(), onAppeared);
    return false;
}
