#pragma once

#include "base/ViewSpace.h"
#include "halo/HaloBand.h"
#include "halo/HaloMotion.h"

#include <QElapsedTimer>
#include <QObject>
#include <QRegion>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

class QPainter;

// The coloured glow round the selection. It is a picture that its owner paints
// between the frozen screen and everything drawn upon it, and so never in the
// way of the mouse. Selections are in view points, y upwards; what has to be
// painted is in widget points, y downwards.
class HaloView final : public QObject {
public:
    // The size of the screen in points, its pixels per point, and the user's
    // wish for stillness, asked whenever something would begin to move.
    HaloView(QSizeF size, double scale, std::function<bool()> reduceMotion);

    // A part of the screen looks different now and should be painted. At most
    // sixty times a second, and less often where painting takes long.
    std::function<void(const QRegion &)> onFrame;

    // Frames this rectangle from now on; absent, or of 2 points and less either
    // way, there is no glow. The change shows with the next frame.
    void update(const std::optional<QRectF> &rect);
    // Whatever moves stands still until it is told to go on.
    void setPaused(bool paused);
    // A flash; none while hidden or when the user wants stillness.
    void pulse(Pulse kind);

    [[nodiscard]] bool isHidden() const { return !m_band; }
    [[nodiscard]] bool paused() const { return m_motion.paused(); }
    [[nodiscard]] bool pulsing() const { return m_motion.pulsing(now()); }
    // Whether a frame is under way. A glow that moves never comes to rest.
    [[nodiscard]] bool resting() const { return !m_timer.isActive() && !m_asked && m_unasked.isEmpty(); }

    void draw(QPainter &painter, const QRegion &exposed);

private:
    [[nodiscard]] double now() const { return double(m_clock.nsecsElapsed()) * 1e-9; }
    [[nodiscard]] QRect screen() const;
    void reshape(const HaloBand::Shape &shape);
    void startSpin();
    void schedule();
    void askForFrame();
    void beginFrame();
    void frameShown();
    void keepTiles();
    void paint(QPainter &painter, const QRect &pixels);

    const ViewSpace m_space;
    const double m_scale;
    const std::function<bool()> m_reduceMotion;
    QElapsedTimer m_clock;
    HaloMotion m_motion;
    HaloColors::Table m_colors{};

    std::optional<HaloBand> m_band; // as painted now; absent while hidden
    bool m_kept = false;            // as the tiles, from the first frame on that shows it at rest
    std::vector<HaloTile> m_tiles;  // all of it
    HaloTile m_piece;               // some of it, while nothing is kept
    QRegion m_tinted;               // pixels that the glow may have touched on the screen

    QTimer m_timer;         // until the next frame
    bool m_changed = false; // since the last frame began
    bool m_asked = false;   // for a piece that is not on the screen yet
    bool m_painted = false; // it is about to be
    bool m_inPieces = false;
    QRegion m_unasked;  // pieces of the frame that are still to be asked for, in pixels
    double m_begun = 0; // when the last frame began, seconds
    double m_cost = 0;  // seconds until it was on the screen
};
