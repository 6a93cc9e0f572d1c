#pragma once

#include "platform/WindowList.h"

#include <cstdint>
#include <memory>
#include <optional>

// Learns the order of the windows from the window manager, or where there is none from
// the server. All questions about them are sent at once, and the answers are
// only read when somebody wants to know.
class X11WindowList final : public WindowList {
public:
    X11WindowList();
    ~X11WindowList() override;

    void freeze() override;
    std::vector<QRect> framesOn(const ScreenShot &shot) override;
    void forget() override;

private:
    struct Atoms;
    class Question;

    [[nodiscard]] std::vector<QRect> answers();

    std::unique_ptr<const Atoms> m_atoms;   // present once there was a first capture
    std::vector<Question> m_questions;      // the topmost window first; those not read yet
    std::optional<std::uint32_t> m_desktop; // the one that shows, where there are several
    std::vector<QRect> m_frames;            // the topmost first, in pixels of the root window
};
