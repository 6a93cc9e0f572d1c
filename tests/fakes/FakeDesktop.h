#pragma once

#include "platform/Desktop.h"
#include "platform/QtClipboard.h"

// Records what it is asked to do.
class FakeDesktop final : public Desktop {
public:
    void beep() override { ++beeps; }
    void playPop() override { ++pops; }
    bool hasSound() override { return true; }
    void hapticTick() override { ++ticks; }
    bool reduceMotion() const override { return stillness; }
    void openWeb(const QUrl &address) override { opened.append(address); }
    Clipboard &clipboard() override { return onClipboard; }
    QStringList preferredLanguages() const override { return {}; }

    int beeps = 0;
    int pops = 0;
    int ticks = 0;
    bool stillness = false;
    QList<QUrl> opened;
    QtClipboard onClipboard;
};
