#pragma once

#include <optional>

// Decides when the frames of the glow are painted. A frame is wanted, waited for,
// asked for, painted and then on the screen, perhaps piece by piece. Times are
// seconds on any clock that never runs backwards.
class HaloPacing {
public:
    enum class State {
        idle,    // nothing is wanted
        waiting, // a frame is wanted and begins at due()
        asked,   // a frame, or a piece of one, has been asked for and is not painted yet
        painted, // painted, but not yet on the screen
    };

    // Names what a frame is for, the least urgent first. Thirty frames a second are
    // enough for the turning colours; everything else gets sixty.
    enum class Reason { turn, pulse, change };

    // Tells what is left of a frame once part of it is on the screen.
    enum class Rest { nothing, pieces };

    [[nodiscard]] State state() const { return m_state; }
    // Returns the time at which to go on; absent unless waiting.
    [[nodiscard]] std::optional<double> due() const;
    // Returns what the frame under way is for.
    [[nodiscard]] Reason reason() const { return m_reason; }

    // Requests a frame after the one under way. The more the last frame cost, the
    // longer is the pause before the next, so that everything else gets its share
    // of the time.
    void want(Reason reason, double now);
    // Begins the frame that was waited for.
    void begin(double now);
    // Records that the frame, or a piece of it, has been asked for.
    void ask();
    // Gives the frame up, because there is nothing to paint.
    void drop();
    // Returns true when the frame or piece that was asked for is painted for the
    // first time.
    [[nodiscard]] bool paint();
    // Goes on once the painted frame or piece is on the screen.
    void show(Rest rest, double now);

private:
    // Returns how long after the last frame began the wanted one may begin, in
    // seconds.
    [[nodiscard]] double apart() const;

    State m_state = State::idle;
    Reason m_reason = Reason::turn;
    std::optional<Reason> m_wanted; // what the next frame is for; absent when none is wanted
    double m_due = 0;
    double m_begun = 0; // when the last frame began
    double m_cost = 0;  // seconds from there until it was on the screen
};
