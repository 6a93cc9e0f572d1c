#pragma once

#include "platform/Clipboard.h"
#include "platform/Desktop.h"
#include "platform/freedesktop/PopSound.h"

#include <memory>

class SettingsPortal;

// Provides the small services as Linux desktops offer them.
class FreedesktopDesktop final : public Desktop {
public:
    enum class Bell { ofDisplay, ofSoundTheme };

    FreedesktopDesktop(std::shared_ptr<const SettingsPortal> settings, std::unique_ptr<Clipboard> clipboard,
                       Bell bell)
        : m_settings(std::move(settings))
        , m_clipboard(std::move(clipboard))
        , m_bell(bell)
    {}

    void beep() override;
    void playPop() override;
    bool hasSound() override;
    void hapticTick() override {} // no desktop offers one
    bool reduceMotion() const override;
    void openWeb(const QUrl &address) override;
    Clipboard &clipboard() override { return *m_clipboard; }
    QStringList preferredLanguages() const override;

private:
    std::shared_ptr<const SettingsPortal> m_settings;
    std::unique_ptr<Clipboard> m_clipboard;
    const Bell m_bell;
    PopSound m_pop;
};
