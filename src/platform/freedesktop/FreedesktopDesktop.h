#pragma once

#include "platform/Desktop.h"
#include "platform/freedesktop/PopSound.h"

#include <memory>

class SettingsPortal;

// Provides the small services as Linux desktops offer them.
class FreedesktopDesktop final : public Desktop {
public:
    explicit FreedesktopDesktop(std::shared_ptr<const SettingsPortal> settings)
        : m_settings(std::move(settings))
    {}

    void beep() override;
    void playPop() override;
    bool hasSound() override;
    void hapticTick() override {} // no desktop offers one
    bool reduceMotion() const override;
    void openWeb(const QUrl &address) override;
    QStringList preferredLanguages() const override;

private:
    std::shared_ptr<const SettingsPortal> m_settings;
    PopSound m_pop;
};
