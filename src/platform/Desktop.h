#pragma once

#include <QStringList>
#include <QUrl>

class Clipboard;

// Provides small services of the desktop. All of them fail silently.
class Desktop {
public:
    virtual ~Desktop() = default;

    virtual void beep() = 0;
    // Plays the short sound after a copy. Returns at once.
    virtual void playPop() = 0;
    // Returns whether that sound can be heard. May take as long as a sound server
    // takes to answer.
    [[nodiscard]] virtual bool hasSound() = 0;
    virtual void hapticTick() = 0;

    // Returns whether the user wants reduced motion at this moment; follows the
    // desktop's settings live.
    [[nodiscard]] virtual bool reduceMotion() const = 0;

    virtual void openWeb(const QUrl &address) = 0;

    // Returns the clipboard, which lives as long as the desktop.
    [[nodiscard]] virtual Clipboard &clipboard() = 0;

    // Returns the languages in order of preference, such as "fr-CA".
    [[nodiscard]] virtual QStringList preferredLanguages() const = 0;
};
