#pragma once

#include "platform/KeyboardGrab.h"
#include "platform/KeyboardLayout.h"

// Types an ampersand with every key.
class FakeLayout final : public KeyboardLayout {
public:
    std::optional<QString> textOfKey(std::uint32_t) const override { return QStringLiteral("&"); }
};

// Records which window has the keyboard.
class FakeKeyboardGrab final : public KeyboardGrab {
public:
    void take(QWidget &window) override { holder = &window; }
    void release() override { holder = nullptr; }

    QWidget *holder = nullptr;
};
