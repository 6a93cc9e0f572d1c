#pragma once

#include <optional>

// Decides when the frames of the glow come: a frame is wanted, waited for, asked
// for, painted and then on the screen, perhaps piece by piece. Times are seconds
// on any clock that never runs backwards.
class HaloPacing {
public:
    enum class State {
        idle,    // nothing is wanted
        waiting, // until due()
        asked,   // for a frame, or a piece of one, that is not painted yet
        painted, // but not yet on the screen
    };

    // What a frame is for, the least urgent first. The turning colours are
    // content with thirty frames a second, everything else gets sixty.
    enum class Reason { turn, pulse, change };

    // What is left of a frame once something of it is on the screen.
    enum class Rest { nothing, pieces };

    [[nodiscard]] State state() const { return m_state; }
    // Returns when to go on; absent unless waiting.
    [[nodiscard]] std::optional<double> due() const;
    // Returns what the frame under way is for.
    [[nodiscard]] Reason reason() const { return m_reason; }

    // Wants a frame, after the one under way and after a pause for everybody
    // else that is longer the more the last frame cost.
    void want(Reason reason, double now);
    // Begins the frame that was waited for.
    void begin(double now);
    // Notes that the frame, or a piece of it, has been asked for.
    void ask();
    // Finds that there is nothing to paint.
    void drop();
    // Returns whether this is what was asked for, for the first time.
    [[nodiscard]] bool paint();
    // Goes on once what was painted is on the screen.
    void show(Rest rest, double now);

private:
    // How long after the last frame the wanted one may begin.
    [[nodiscard]] double apart() const;

    State m_state = State::idle;
    Reason m_reason = Reason::turn;
    std::optional<Reason> m_wanted; // of the next frame
    double m_due = 0;
    double m_begun = 0; // when the last frame began
    double m_cost = 0;  // from there until it was on the screen
};
