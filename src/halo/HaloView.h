#pragma once

#include "base/ViewSpace.h"
#include "halo/HaloBand.h"
#include "halo/HaloDrift.h"
#include "halo/HaloMotion.h"
#include "halo/HaloPacing.h"

#include <QElapsedTimer>
#include <QImage>
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
    // Takes the size of the screen in points, its pixels per point, and the
    // user's wish for stillness, which is asked for whenever something would
    // begin to move.
    HaloView(QSizeF size, double scale, std::function<bool()> reduceMotion);

    // Tells that a part of the screen looks different now and should be painted:
    // as often as HaloPacing allows, and never while nothing moves.
    std::function<void(const QRegion &)> onFrame;

    // Gives it the screen as it looks beneath the glow, in device pixels. A
    // picture that is not RGB32 or does not reach as far as the screen is not
    // used: the glow is then blended upon what has been painted.
    void setGround(const QImage &picture);
    // Frames this rectangle from the next frame on. There is no glow when it is
    // absent, or of 2 points and less either way.
    void update(const std::optional<QRectF> &rect);
    // Makes whatever moves stand still, or go on where it stood.
    void setPaused(bool paused);
    // Flashes, unless the glow is hidden or the user wants stillness.
    void pulse(Pulse kind);

    [[nodiscard]] bool isHidden() const { return !m_band; }
    [[nodiscard]] bool paused() const { return m_motion.paused(); }
    [[nodiscard]] bool pulsing() const { return m_motion.pulsing(now()); }
    // Returns whether no frame is under way. A glow that moves never rests.
    [[nodiscard]] bool resting() const { return m_pacing.state() == HaloPacing::State::idle; }

    // Returns where draw() paints all there is and nothing is needed beneath, in
    // widget points.
    [[nodiscard]] QRegion covered() const { return kept() ? m_covered : QRegion(); }
    // Draws this part of the glow, in widget points.
    void draw(QPainter &painter, const QRegion &exposed);

private:
    [[nodiscard]] double now() const { return double(m_clock.nsecsElapsed()) * 1e-9; }
    [[nodiscard]] QRect screen() const;
    void reshape(const HaloBand::Shape &shape);
    void startSpin();
    void want(HaloPacing::Reason reason);
    void goOn();
    void arm();
    void askForFrame();
    void beginFrame();
    void beginWhole(double at);
    void frameShown();
    [[nodiscard]] bool onlyTurns(double at) const;
    [[nodiscard]] bool kept() const { return m_band && m_tilesOf == m_band->shape(); }
    void keepTiles();
    void paintKept(QPainter &painter, const QRegion &pixels) const;
    void paintAnew(QPainter &painter, const QRegion &pixels) const;

    const ViewSpace m_space;
    const double m_scale;
    const std::function<bool()> m_reduceMotion;
    QElapsedTimer m_clock;
    HaloMotion m_motion;
    HaloPacing m_pacing;
    QTimer m_timer; // rings when the pacing is due
    HaloColors::Table m_colors{};
    HaloDrift m_drift;

    std::optional<HaloBand> m_band; // as painted now; absent while hidden
    std::vector<HaloTile> m_tiles;  // all of the band that has this shape
    std::optional<HaloBand::Shape> m_tilesOf;
    QRegion m_covered; // by them, as far as they have a ground
    QImage m_ground;   // null until there is one

    QRegion m_tinted;  // pixels that the glow may have touched on the screen
    QRegion m_unasked; // pieces of the frame that are still to be asked for, in pixels
};
