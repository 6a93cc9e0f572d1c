#pragma once

// Names the flashes of the glow: gentle for a new selection, strong for a copy.
enum class Pulse { gentle, strong };

// Computes the motion of the glow as a function of time alone. Times are seconds on
// any clock that never runs backwards.
class HaloMotion {
public:
    static constexpr double restOpacity = 0.85;

    // Describes what a pulse makes of the glow at one moment.
    struct Flash {
        double swell = 1; // how many times larger the glow is
        double opacity = restOpacity;
    };

    // Starts turning the colours, unless they turn already.
    void startSpin(double now);
    // Ends spin and pulse; the colours stay where they are.
    void stop(double now);
    // Pauses all motion, or resumes it where it stood.
    void setPaused(bool paused, double now);
    // Starts a pulse in place of one that is still running.
    void pulse(Pulse kind, double now);

    // Returns how far the colours have turned, counter-clockwise; 1 is a whole
    // turn.
    [[nodiscard]] double turn(double now) const;
    [[nodiscard]] Flash flash(double now) const;
    [[nodiscard]] bool pulsing(double now) const;
    [[nodiscard]] bool paused() const { return m_paused; }
    // Returns whether the next moment looks different from this one.
    [[nodiscard]] bool moving(double now) const;

private:
    [[nodiscard]] double clock(double now) const { return (m_paused ? m_pausedAt : now) - m_lost; }

    bool m_paused = false;
    bool m_spinning = false;
    double m_pausedAt = 0;
    double m_lost = 0;   // seconds spent paused
    double m_start = 0;  // when the spin began, on the clock without pauses
    double m_turned = 0; // turns made before the spin began
    double m_pulseStart = 0;
    double m_pulseLasts = 0; // zero without a pulse
    double m_pulseSwell = 1;
};
