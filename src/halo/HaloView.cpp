#include "halo/HaloView.h"

#include "base/Painting.h"

#include <QMetaObject>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {

constexpr double smallest = 2;                // points; a selection no larger has no glow
constexpr double shortestInterval = 1.0 / 60; // seconds
constexpr double longestInterval = 0.1;
constexpr int pixelsInPiece = 250'000;
constexpr double idleShare = 3; // a frame is followed by this many times its cost without one

QRegion toPoints(const QRegion &pixels, double scale)
{
    QRegion points;
    for (const QRect &rect : pixels)
        points += QRectF(QPointF(rect.topLeft()) / scale, QSizeF(rect.size()) / scale).toAlignedRect();
    return points;
}

QRegion toPixels(const QRegion &points, double scale)
{
    QRegion pixels;
    for (const QRect &rect : points)
        pixels += QRectF(QPointF(rect.topLeft()) * scale, QSizeF(rect.size()) * scale).toAlignedRect();
    return pixels;
}

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
    : m_space(size)
    , m_scale(scale)
    , m_reduceMotion(std::move(reduceMotion))
{
    m_clock.start();
    HaloColors::fill(m_colors, 0);
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.callOnTimeout(this, &HaloView::askForFrame);
}

void HaloView::update(const std::optional<QRectF> &rect)
{
    const bool hides = !rect || rect->width() <= smallest || rect->height() <= smallest;
    if (hides && isHidden())
        return;
    if (hides) {
        m_band.reset();
    } else {
        const QRectF down = m_space.toWidget(*rect);
        HaloBand::Shape shape
            = m_band ? m_band->shape() : HaloBand::Shape{.opacity = HaloMotion::restOpacity};
        shape.selection = {down.topLeft() * m_scale, down.size() * m_scale};
        shape.hole = m_space.toPixels(*rect, m_scale);
        shape.scale = m_scale;
        startSpin();
        if (m_band && m_band->shape() == shape)
            return;
        reshape(shape);
    }
    m_kept = false;
    m_changed = true;
    schedule();
}

// What is painted from now on, perhaps in pieces before the next frame.
void HaloView::reshape(const HaloBand::Shape &shape)
{
    m_band.emplace(shape);
    m_tinted += m_band->area(screen());
}

void HaloView::startSpin()
{
    if (m_reduceMotion())
        return;
    m_motion.startSpin(now());
    schedule();
}

void HaloView::setPaused(bool paused)
{
    m_motion.setPaused(paused, now());
    schedule();
}

void HaloView::pulse(Pulse kind)
{
    if (isHidden() || m_reduceMotion())
        return;
    m_motion.pulse(kind, now());
    schedule();
}

QRect HaloView::screen() const { return m_space.toPixels(m_space.bounds(), m_scale); }

// The next frame, if there is one, as soon as it may come.
void HaloView::schedule()
{
    if (!resting() || !(m_changed || (m_band && m_motion.moving(now()))))
        return;
    const double apart = std::clamp((1 + idleShare) * m_cost, shortestInterval, longestInterval);
    const double wait = std::max(m_begun + apart - now(), 0.0);
    m_timer.start(std::chrono::milliseconds(std::lround(std::ceil(wait * 1000))));
}

// Whole, but for a selection that is being dragged: then in pieces, so that no
// step of the drag has to wait for all of it.
void HaloView::askForFrame()
{
    if (m_unasked.isEmpty())
        beginFrame();
    const QRegion piece = m_inPieces ? takePiece(m_unasked) : std::exchange(m_unasked, {});
    if (piece.isEmpty())
        return;
    m_asked = true;
    onFrame(toPoints(piece, m_scale));
}

void HaloView::beginFrame()
{
    m_begun = now();
    m_inPieces = std::exchange(m_changed, false);
    if (m_reduceMotion())
        m_motion.stop(m_begun);
    m_unasked = std::exchange(m_tinted, {});
    HaloColors::fill(m_colors, m_motion.turn(m_begun));
    if (m_band) {
        HaloBand::Shape shape = m_band->shape();
        const HaloMotion::Flash flash = m_motion.flash(m_begun);
        shape.swell = flash.swell;
        shape.opacity = flash.opacity;
        if (m_band->shape() == shape)
            m_tinted = m_band->area(screen());
        else
            reshape(shape);
        keepTiles();
    }
    m_unasked += m_tinted;
}

// Not while a drag or a pulse changes them with every frame.
void HaloView::keepTiles()
{
    if (m_inPieces || m_motion.pulsing(m_begun)) {
        m_kept = false;
        return;
    }
    if (m_kept)
        return;
    m_tiles.resize(static_cast<std::size_t>(m_tinted.rectCount()));
    std::size_t i = 0;
    for (const QRect &rect : m_tinted)
        m_band->fill(m_tiles[i++], rect);
    m_kept = true;
}

void HaloView::draw(QPainter &painter, const QRegion &exposed)
{
    if (m_band) {
        const Painting::Saved saved(painter);
        painter.scale(1 / m_scale, 1 / m_scale); // from here on in pixels
        for (const QRect &pixels : toPixels(exposed, m_scale)) {
            painter.setClipRect(pixels); // blended in rows, not span by span
            paint(painter, pixels);
        }
    }
    // The rest of the picture is still to be painted and shown.
    if (m_asked && !std::exchange(m_painted, true))
        QMetaObject::invokeMethod(this, &HaloView::frameShown, Qt::QueuedConnection);
}

void HaloView::paint(QPainter &painter, const QRect &pixels)
{
    if (m_kept) {
        for (const HaloTile &tile : m_tiles)
            tile.blend(painter, pixels, m_colors);
        return;
    }
    for (const QRect &rect : m_band->area(screen() & pixels)) {
        m_band->fill(m_piece, rect);
        m_piece.blend(painter, rect, m_colors);
    }
}

void HaloView::frameShown()
{
    m_asked = m_painted = false;
    if (!m_unasked.isEmpty())
        return m_timer.start(0);
    m_cost = now() - m_begun;
    schedule();
}
