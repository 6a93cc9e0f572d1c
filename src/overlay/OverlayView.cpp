#include "overlay/OverlayView.h"

#include "overlay/Backdrop.h"
#include "overlay/OverlaySession.h"
#include "overlay/Printing.h"
#include "overlay/Rendering.h"
#include "platform/Desktop.h"
#include "toolbar/Theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto copiedShows = 1s;
constexpr auto copiedSeen = 350ms; // then the overlays close

} // namespace

OverlayView::OverlayView(ScreenShot shot, OverlaySession &session, Desktop &desktop, QWidget *parent)
    : QWidget(parent)
    , m_shot(std::move(shot))
    , m_space(m_shot.pointSize)
    , m_session(session)
    , m_desktop(desktop)
    , m_output(*this, desktop)
{
    m_state.bounds = m_space.bounds();
    m_state.color = Theme::drawColors.front();
    m_paintedChrome = Chrome::footprint(scene(), m_space);
    m_output.onCopied = [this] { copied(); };
    m_output.onSaved = [this] { m_session.finish(); };
    resize(m_shot.pointSize.toSize());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void OverlayView::addMark(AnnotationPtr mark)
{
    m_state.annotations.push_back(std::move(mark));
    refresh();
}

std::optional<QImage> OverlayView::renderSelection() const
{
    return Rendering::renderSelection(m_state, m_shot);
}

void OverlayView::copyImage()
{
    if (const auto picture = renderSelection())
        m_output.copy(*picture);
}

void OverlayView::copied()
{
    m_copied.setRemainingTime(copiedShows);
    refresh();
    pulse(Pulse::strong);
    QTimer::singleShot(copiedShows, this, [this] { refresh(); });
    QTimer::singleShot(copiedSeen, this, [this] { m_session.finish(); });
}

void OverlayView::saveImage()
{
    if (const auto picture = renderSelection())
        m_output.save(*picture);
    else
        m_desktop.beep();
}

void OverlayView::printImage()
{
    const auto picture = renderSelection();
    if (!picture)
        return m_desktop.beep();
    m_session.finish();
    Printing::show(*picture);
}

void OverlayView::selectAll()
{
    m_session.selectionStarted(*this);
    m_state.selection = m_state.bounds;
    refresh();
}

void OverlayView::cancel() { m_session.finish(); }

void OverlayView::discardSelection()
{
    m_output.closePanel();
    m_state.selection.reset();
    m_state.annotations.clear();
    refresh();
}

void OverlayView::pulse(Pulse kind)
{
    if (onPulse)
        onPulse(kind);
}

Chrome::Scene OverlayView::scene() const
{
    return {.state = m_state, .scale = m_shot.scale, .justCopied = !m_copied.hasExpired()};
}

// Repaints what the change made different and nothing else: on a large screen a
// whole repaint would be felt in every step of a drag.
void OverlayView::refresh()
{
    const QRegion chrome = Chrome::footprint(scene(), m_space);
    const auto area = [&](const std::optional<QRectF> &selection) {
        return selection ? QRegion(m_space.toWidget(*selection).toAlignedRect()) : QRegion();
    };
    update(m_paintedChrome + chrome + area(m_paintedSelection).xored(area(m_state.selection)));
    m_paintedChrome = chrome;
    m_paintedSelection = m_state.selection;
}

void OverlayView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    Backdrop::draw(painter, m_shot, m_state.selection, event->region());
    painter.setTransform(m_space.upwards(), true);
    Chrome::draw(painter, scene());
}
