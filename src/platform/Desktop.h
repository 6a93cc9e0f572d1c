#pragma once

#include <QStringList>
#include <QUrl>

class Clipboard;

// Small services of the desktop. None of them fails out loud.
class Desktop {
public:
    virtual ~Desktop() = default;

    virtual void beep() = 0;
    // The short sound after a copy. Returns at once.
    virtual void playPop() = 0;
    // Whether that can be heard. May take as long as a sound server takes to
    // answer.
    [[nodiscard]] virtual bool hasSound() = 0;
    virtual void hapticTick() = 0;

    // The user's wish at this moment; follows the desktop's settings live.
    [[nodiscard]] virtual bool reduceMotion() const = 0;

    virtual void openWeb(const QUrl &address) = 0;

    // Lives as long as the desktop.
    [[nodiscard]] virtual Clipboard &clipboard() = 0;

    // In order of preference, such as "fr-CA".
    [[nodiscard]] virtual QStringList preferredLanguages() const = 0;
};
