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
class Raster;

// Draws the coloured glow round the selection. The glow is not a widget but a
// picture, which its owner paints between the frozen screen and everything drawn
// upon it, so it never gets in the way of the mouse. Selections are in view points,
// y upwards; regions to paint are in widget points, y downwards.
class HaloView final : public QObject {
public:
    // Takes the size of the screen in points, its device pixels per point, and a
    // function that tells whether the user wants reduced motion. The function is
    // called whenever something is about to move.
    HaloView(QSizeF size, double scale, std::function<bool()> reduceMotion);

    // Called with a part of the screen that looks different now and should be
    // painted: as often as HaloPacing allows, and never while nothing moves.
    std::function<void(const QRegion &)> onFrame;

    // Returns the picture of a part of the screen as it looks beneath the glow, in
    // device pixels and RGB32; null where that is not known.
    using Ground = std::function<QImage(const QRect &pixels)>;
    // Sets what the glow asks for the ground of a band that stands. Without one the
    // glow is blended over what has been painted.
    void setGround(Ground ground);
    // Draws the glow round this rectangle from the next frame on. The glow is
    // hidden when the rectangle is absent, or 2 points or less wide or high.
    void update(const std::optional<QRectF> &rect);
    // Pauses all motion, or resumes it where it stood.
    void setPaused(bool paused);
    // Flashes, unless the glow is hidden or the user wants reduced motion.
    void pulse(Pulse kind);

    [[nodiscard]] bool isHidden() const { return !m_band; }
    [[nodiscard]] bool paused() const { return m_motion.paused(); }
    [[nodiscard]] bool pulsing() const { return m_motion.pulsing(now()); }
    // Returns whether no frame is under way. A glow that moves never rests.
    [[nodiscard]] bool resting() const { return m_pacing.state() == HaloPacing::State::idle; }

    // Returns the widget points that draw() fills completely, so that nothing need
    // be painted beneath.
    [[nodiscard]] QRegion covered() const { return kept() ? m_covered : QRegion(); }
    // Draws this part of the glow, in widget points.
    void draw(QPainter &painter, const QRegion &exposed);

    // The two steps of draw(), for whoever paints what lies beneath in bands: blends the
    // glow over those device pixels of a part that has been painted, as long as they are
    // still at hand. Several threads may call this at once.
    void tint(const Raster &raster, const QRegion &pixels) const;
    // Draws what covered() names, and counts the frame as painted.
    void drawCovered(QPainter &painter, const QRegion &exposed);

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
    void moveTo(const HaloBand::Shape &shape);
    void computeTiles();
    void keepTiles();

    const ViewSpace m_space;
    const std::function<bool()> m_reduceMotion;
    QElapsedTimer m_clock;
    HaloMotion m_motion;
    HaloPacing m_pacing;
    QTimer m_timer; // rings when the pacing is due
    HaloColors::Table m_colors{};
    HaloDrift m_drift;

    std::optional<HaloBand> m_band; // as painted now; absent while hidden
    std::vector<HaloTile> m_tiles;  // the whole band, computed for the shape m_tilesOf,
    std::optional<HaloBand::Shape> m_tilesOf;
    bool m_grounded = false; // the tiles know what shows through, as far as there is a ground
    QRegion m_covered;       // widget points that the tiles fill completely, having a ground
    Ground m_ground;

    QRegion m_tinted;  // pixels that the glow may have touched on the screen
    QRegion m_unasked; // pieces of the frame that are still to be asked for, in pixels
};
