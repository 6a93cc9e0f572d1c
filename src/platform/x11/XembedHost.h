#pragma once

#include "platform/freedesktop/TrayHost.h"

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

// Finds the tray of older panels, which owns a selection of the X server.
class XembedHost final : public TrayHost, public QAbstractNativeEventFilter {
public:
    XembedHost();

    bool present() const override;

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    std::uint8_t m_selectionNotify = 0; // event number; 0 when the server tells nothing
    xcb_atom_t m_selection;
};
