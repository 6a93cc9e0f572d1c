#include "halo/HaloView.h"

#include "base/Bands.h"
#include "base/Painting.h"

#include <QMetaObject>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {

constexpr double smallest = 2; // points; a selection no larger has no glow
constexpr int pixelsInPiece = 250'000;

// Takes as much of the region away as is painted without being felt.
QRegion takePiece(QRegion &region)
{
    QRegion piece;
    int pixels = 0;
    for (const QRect &rect : std::as_const(region)) {
        const int rows = std::min((pixelsInPiece - pixels) / rect.width(), rect.height());
        if (rows <= 0)
            break;
        piece += QRect(rect.topLeft(), QSize(rect.width(), rows));
        pixels += rows * rect.width();
    }
    region -= piece;
    return piece;
}

} // namespace

HaloView::HaloView(QSizeF size, double scale, std::function<bool()> reduceMotion)
    : m_space(size, scale)
    , m_reduceMotion(std::move(reduceMotion))
{
    m_clock.start();
    HaloColors::fill(m_colors, 0);
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.callOnTimeout(this, &HaloView::askForFrame);
}

void HaloView::setGround(Ground ground)
{
    m_ground = std::move(ground);
    m_tilesOf.reset();
}

void HaloView::update(const std::optional<QRectF> &rect)
{
    const bool hides = !rect || rect->width() <= smallest || rect->height() <= smallest;
    if (hides && isHidden())
        return;
    if (hides) {
        m_band.reset();
    } else {
        HaloBand::Shape shape
            = m_band ? m_band->shape() : HaloBand::Shape{.opacity = HaloMotion::restOpacity};
        shape.selection = m_space.toDevice(*rect);
        shape.hole = m_space.toPixels(*rect);
        shape.scale = m_space.scale();
        startSpin();
        if (m_band && m_band->shape() == shape)
            return goOn();
        if (m_band && shape.wayFrom(m_band->shape()) && !m_motion.pulsing(now()))
            moveTo(shape);
        else
            reshape(shape);
    }
    want(HaloPacing::Reason::change);
}

// What is painted from now on, perhaps in pieces before the next frame.
void HaloView::reshape(const HaloBand::Shape &shape)
{
    m_band.emplace(shape);
    m_tinted += m_band->area(screen());
}

// A band that only moves has to be computed once.
void HaloView::moveTo(const HaloBand::Shape &shape)
{
    if (!m_tilesOf || !shape.wayFrom(*m_tilesOf))
        computeTiles();
    m_band->moveTo(shape);
    m_tinted += m_band->area(screen());
}

void HaloView::startSpin()
{
    if (!m_reduceMotion())
        m_motion.startSpin(now());
}

// What stands still shows the same colours everywhere, however faintly.
void HaloView::setPaused(bool paused)
{
    const bool moved = m_band && m_motion.moving(now());
    m_motion.setPaused(paused, now());
    if (paused && moved)
        want(HaloPacing::Reason::change);
    goOn();
}

void HaloView::pulse(Pulse kind)
{
    if (isHidden() || m_reduceMotion())
        return;
    m_motion.pulse(kind, now());
    goOn();
}

QRect HaloView::screen() const { return m_space.toPixels(m_space.bounds()); }

void HaloView::want(HaloPacing::Reason reason)
{
    m_pacing.want(reason, now());
    arm();
}

// For as long as something moves.
void HaloView::goOn()
{
    if (m_band && m_motion.moving(now()))
        want(m_motion.pulsing(now()) ? HaloPacing::Reason::pulse : HaloPacing::Reason::turn);
}

void HaloView::arm()
{
    if (const auto due = m_pacing.due())
        m_timer.start(std::chrono::milliseconds(std::lround(std::ceil(std::max(*due - now(), 0.0) * 1000))));
    else
        m_timer.stop();
}

// Whole, but for a selection that is being dragged: then in pieces, so that no
// step of the drag has to wait for all of it.
void HaloView::askForFrame()
{
    if (m_unasked.isEmpty())
        beginFrame();
    const bool inPieces = m_pacing.reason() == HaloPacing::Reason::change;
    const QRegion piece = inPieces ? takePiece(m_unasked) : std::exchange(m_unasked, {});
    if (piece.isEmpty())
        return m_pacing.drop();
    m_pacing.ask();
    onFrame(m_space.widgetPointsOf(piece));
}

void HaloView::beginFrame()
{
    const double at = now();
    m_pacing.begin(at);
    if (m_reduceMotion())
        m_motion.stop(at);
    HaloColors::fill(m_colors, m_motion.turn(at));
    if (onlyTurns(at))
        m_unasked = m_band->area(screen(), m_drift.catchUp(m_motion.turn(at)));
    else
        beginWhole(at);
}

// Whether nothing but the colours differs from the last frame.
bool HaloView::onlyTurns(double at) const
{
    return m_pacing.reason() == HaloPacing::Reason::turn && kept() && m_grounded && m_motion.moving(at)
           && !m_motion.pulsing(at);
}

void HaloView::beginWhole(double at)
{
    m_drift.reset(m_motion.turn(at));
    m_unasked = std::exchange(m_tinted, {});
    if (m_band) {
        HaloBand::Shape shape = m_band->shape();
        const HaloMotion::Flash flash = m_motion.flash(at);
        shape.swell = flash.swell;
        shape.opacity = flash.opacity;
        if (m_band->shape() == shape)
            m_tinted = m_band->area(screen());
        else
            reshape(shape);
        if (m_pacing.reason() != HaloPacing::Reason::change && !m_motion.pulsing(at))
            keepTiles();
    }
    m_unasked += m_tinted;
}

void HaloView::computeTiles()
{
    const QRegion area = m_band->area(screen());
    m_tiles.resize(static_cast<std::size_t>(area.rectCount()));
    std::size_t i = 0;
    for (const QRect &rect : area)
        m_band->fill(m_tiles[i++], rect);
    m_covered = {};
    m_tilesOf = m_band->shape();
    m_grounded = false;
}

// Not while a drag or a pulse changes them with every frame.
void HaloView::keepTiles()
{
    if (!kept())
        computeTiles();
    if (std::exchange(m_grounded, true))
        return;
    QRegion grounded;
    for (HaloTile &tile : m_tiles)
        if (const QImage ground = m_ground ? m_ground(tile.pixels) : QImage(); !ground.isNull()) {
            tile.setGround(ground);
            grounded += tile.pixels;
        }
    m_covered = m_space.widgetPointsWithin(grounded);
}

void HaloView::draw(QPainter &painter, const QRegion &exposed)
{
    const QRegion beneath = m_space.pixelsOf(exposed - covered());
    if (m_band) {
        const Painting::Saved saved(painter);
        painter.scale(1 / m_space.scale(), 1 / m_space.scale()); // from here on in pixels
        Bands::blend(painter, beneath & m_band->area(screen()),
                     [this](const Raster &raster, const QRegion &band) { tint(raster, band); });
    }
    drawCovered(painter, exposed);
}

void HaloView::tint(const Raster &raster, const QRegion &pixels) const
{
    if (!m_band || pixels.isEmpty())
        return;
    QRegion open = pixels & m_band->area(screen());
    if (const auto way = m_tilesOf ? m_band->shape().wayFrom(*m_tilesOf) : std::nullopt)
        for (const HaloTile &tile : m_tiles) {
            const QRect place = tile.pixels.translated(*way);
            for (const QRect &rect : open &place)
                tile.blend(raster, rect, *way, m_colors);
            open -= place;
        }
    HaloTile piece;
    for (const QRect &rect : open) {
        m_band->fill(piece, rect);
        piece.blend(raster, rect, {}, m_colors);
    }
}

void HaloView::drawCovered(QPainter &painter, const QRegion &exposed)
{
    if (kept()) {
        const Painting::Saved saved(painter);
        painter.scale(1 / m_space.scale(), 1 / m_space.scale()); // from here on in pixels
        for (const QRect &rect : m_space.pixelsOf(exposed & m_covered)) {
            painter.setClipRect(rect); // blended in rows, not span by span
            for (const HaloTile &tile : m_tiles)
                tile.paint(painter, rect, m_colors);
        }
    }
    // The rest of the picture is still to be painted and shown.
    if (m_pacing.paint())
        QMetaObject::invokeMethod(this, &HaloView::frameShown, Qt::QueuedConnection);
}

void HaloView::frameShown()
{
    m_pacing.show(m_unasked.isEmpty() ? HaloPacing::Rest::nothing : HaloPacing::Rest::pieces, now());
    goOn();
    arm();
}
