#pragma once

#include "platform/WindowList.h"

#include <QString>

#include <memory>

class KWinScript;

// Has KWin run a script that tells it where the windows are. KWin 5 and 6 name things
// differently; the script knows both.
class KWinWindowList final : public WindowList {
public:
    KWinWindowList();
    ~KWinWindowList() override;

    // Returns true in a session of KDE that has a message bus.
    [[nodiscard]] static bool present();

    void freeze() override;
    std::vector<QRect> framesOn(const ScreenShot &shot) override;
    void forget() override;

private:
    std::unique_ptr<KWinScript> m_script; // present during a capture
};
