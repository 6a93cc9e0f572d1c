#pragma once

#include "platform/QtClipboard.h"
#include "platform/wayland/DataControl.h"

#include <QGuiApplication>

#include <memory>

// What Qt offers is gone with the last window that had the keyboard, on some compositors,
// and a slow reader holds up the main thread. So the compositor's own control of the
// clipboard is used where there is one, and Qt's clipboard elsewhere.
class WaylandClipboard final : public Clipboard {
public:
    explicit WaylandClipboard(std::shared_ptr<Connection> connection)
        : m_control(DataControl::bind(std::move(connection)))
    {}

    bool offer(const Formats &formats) override
    {
        if (m_control)
            return m_control->offer(formats);
        // A compositor drops, without a word, what comes from a program without the keyboard.
        return m_qt.offer(formats) && QGuiApplication::focusWindow();
    }

    // What was copied inside a text field is Qt's on every compositor.
    Formats offered() const override
    {
        return m_control && m_control->offered() ? *m_control->offered() : m_qt.offered();
    }

    bool isEmpty() const override { return m_control ? m_control->isEmpty() : m_qt.isEmpty(); }

private:
    std::unique_ptr<DataControl> m_control; // absent where the compositor has none
    QtClipboard m_qt;
};
