#pragma once

#include "platform/wayland/ScreenSource.h"

// Has KWin write the picture of every screen into a pipe. KWin does so for programs
// whose desktop entry asks for that.
class KWinGrabber final : public ScreenSource {
public:
    QString name() const override;
    QCoro::Task<Result> grab() override;
};
