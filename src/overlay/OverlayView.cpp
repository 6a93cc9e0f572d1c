#include "overlay/OverlayView.h"

#include "base/Painting.h"
#include "base/Rect.h"
#include "overlay/Cursors.h"
#include "overlay/Loupe.h"
#include "overlay/MarkFootprint.h"
#include "overlay/OverlaySession.h"
#include "overlay/Printing.h"
#include "overlay/Rendering.h"
#include "overlay/StrokeLog.h"
#include "overlay/WidthPreview.h"
#include "platform/Desktop.h"
#include "toolbar/Theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QtConcurrentRun>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto screensFrozen = 100ms; // all of them have been painted for the first time
constexpr auto copiedShows = 1s;
constexpr auto copiedSeen = 350ms; // then the overlays close

} // namespace

OverlayView::OverlayView(ScreenShot shot, OverlaySession &session, Desktop &desktop, QWidget *parent)
    : QWidget(parent)
    , m_shot(std::move(shot))
    , m_space(m_shot.pointSize)
    , m_session(session)
    , m_desktop(desktop)
    , m_halo(m_shot.pointSize, m_shot.scale, [&desktop] { return desktop.reduceMotion(); })
    , m_output(*this, desktop)
{
    m_state.bounds = m_space.bounds();
    m_state.color = Theme::drawColors.front();
    Annotation::background = m_shot.image;
    Annotation::backgroundScale = m_shot.scale;
    Annotation::viewHeight = m_shot.pointSize.height();
    m_paintedChrome = Chrome::footprint(scene(), m_space);
    m_halo.onFrame = [this](const QRegion &area) { update(area); };
    m_drawing.onRest = [this](QPointF) { m_hold.armHold(); };
    m_hold.onSnapped = [this](const ShapeRecognizer::Result &shape) { snapped(shape); };
    m_hold.onMissed = [this] { StrokeLog::saveMissedStroke(m_state.current->points); };
    m_fade.onFrame = [this](const QRectF &area) { touch(area); };
    m_bars.onTool = [this](Tool tool) { toggleTool(tool); };
    m_bars.onCommand = [this](Command command) { run(command); };
    m_bars.onColor = [this](const QColor &color) { setColor(color); };
    m_bars.followState(); // the colour has been chosen meanwhile
    m_output.onCopied = [this] { copied(); };
    m_output.onSaved = [this] { m_session.finish(); };
    QTimer::singleShot(screensFrozen, this, [this] { dimWhole(); });
    resize(m_shot.pointSize.toSize());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

OverlayView::~OverlayView()
{
    // A picture of the screen is not kept longer than it is looked at.
    if (Annotation::background.cacheKey() == m_shot.image.cacheKey())
        Annotation::background = {};
}

// Beside the main thread, which has the user's first steps to follow. The
// capture may be over before the picture is made; a watcher is never told then.
void OverlayView::dimWhole()
{
    connect(&m_dimming, &QFutureWatcherBase::finished, this, [this] {
        m_backdrop.keepDimmed(m_dimming.result());
        m_halo.setGround(m_dimming.result());
    });
    m_dimming.setFuture(QtConcurrent::run(Backdrop::dimmed, m_shot.image));
}

std::optional<QImage> OverlayView::renderSelection()
{
    m_text.commitText();
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
    m_halo.pulse(Pulse::strong);
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

void OverlayView::undo()
{
    if (m_text.isOpen())
        return m_text.discard();
    const QRegion before
        = m_state.annotations.empty() ? QRegion() : MarkFootprint::of(*m_state.annotations.back(), m_space);
    if (const AnnotationPtr mark = m_state.undoLast())
        update(before + MarkFootprint::of(*mark, m_space));
}

void OverlayView::cancel()
{
    if (m_text.isOpen())
        m_text.commitText();
    else
        m_session.finish();
}

void OverlayView::toggleTool(Tool tool)
{
    m_text.commitText();
    m_state.tool = m_state.tool == tool ? std::nullopt : std::optional(tool);
    m_bars.followState();
    followPointer();
}

void OverlayView::setColor(const QColor &color)
{
    m_state.color = color;
    m_text.followState();
    m_bars.followState();
}

void OverlayView::setLineWidth(double width)
{
    m_state.lineWidth = width;
    m_text.followState();
    m_bars.followState();
}

void OverlayView::discardSelection()
{
    m_output.closePanel();
    m_bars.closePalette();
    m_text.discard();
    m_hold.cancel();
    m_halo.setPaused(false);
    m_drawing.discard();
    m_underlay.forget();
    m_selectionDrag.cancel();
    if (m_eyedropper.picking())
        stopPicking();
    m_state.selection.reset();
    m_state.annotations.clear();
    refresh();
}

void OverlayView::followPointer()
{
    setCursor(m_eyedropper.picking() ? Qt::BlankCursor : Cursors::cursorAt(m_state, m_pointer));
}

// Asks for a new picture of a part of the view, in view points.
void OverlayView::touch(const QRectF &area) { update(m_space.toWidget(grown(area, 1)).toAlignedRect()); }

Chrome::Scene OverlayView::scene() const
{
    return {.state = m_state,
            .scale = m_shot.scale,
            .haloShows = !m_halo.isHidden(),
            .justCopied = !m_copied.hasExpired()};
}

// Repaints what the change made different and nothing else: on a large screen a
// whole repaint would be felt in every step of a drag.
void OverlayView::refresh()
{
    m_halo.update(m_state.selection);
    const QRegion chrome = Chrome::footprint(scene(), m_space);
    const auto area = [&](const std::optional<QRectF> &selection) {
        return selection ? QRegion(m_space.toWidget(*selection).toAlignedRect()) : QRegion();
    };
    const bool marksMoved = !m_state.annotations.empty() && m_paintedSelection && m_state.selection
                            && m_paintedSelection->size() == m_state.selection->size()
                            && *m_paintedSelection != *m_state.selection;
    const QRegion before = area(m_paintedSelection);
    const QRegion now = area(m_state.selection);
    update(m_paintedChrome + chrome + (marksMoved ? before + now : before.xored(now)));
    m_paintedChrome = chrome;
    m_paintedSelection = m_state.selection;
    placeBars();
}

// Not while the loupe shows, which is above everything. The sample of the width
// goes with the bar, the tip with the selection.
void OverlayView::placeBars()
{
    if (!m_eyedropper.picking())
        m_bars.placeBars();
    if (!m_bars.barShows())
        m_widthSample.hide();
    if (!m_state.selection)
        m_tip.hide();
}

void OverlayView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    m_backdrop.draw(painter, m_state.selection, event->region() - m_halo.covered());
    m_halo.draw(painter, event->region());
    painter.setTransform(m_space.upwards(), true);
    if (m_state.selection)
        drawMarks(painter, event->region());
    Chrome::draw(painter, scene());
    if (const auto at = m_eyedropper.pickPoint())
        Loupe::draw(painter, m_shot, *at);
}

// Marks never show outside the selection.
void OverlayView::drawMarks(QPainter &painter, const QRegion &exposed)
{
    const Painting::Saved saved(painter);
    painter.setClipRect(*m_state.selection, Qt::IntersectClip);
    const QRectF part = m_space.fromWidget(QRectF(exposed.boundingRect()));
    drawFinished(painter, exposed);
    if (m_fade.running())
        m_fade.draw(painter, part);
    if (m_state.current && !m_fade.draws(m_state.current))
        m_state.current->draw(painter, part);
}

// The painter counts in view points.
void OverlayView::drawFinished(QPainter &painter, const QRegion &exposed)
{
    std::vector<AnnotationPtr> marks = m_state.drawOrder();
    std::erase_if(marks, [this](const AnnotationPtr &mark) { return m_fade.draws(mark); });
    if (m_state.current && !marks.empty()) {
        const Painting::Saved saved(painter);
        painter.setTransform(m_space.upwards(), true); // flipped back
        return m_underlay.draw(painter, *m_state.selection, marks, exposed);
    }
    m_underlay.forget();
    const QRectF part = m_space.fromWidget(QRectF(exposed.boundingRect()));
    for (const AnnotationPtr &mark : marks)
        if (exposed.intersects(MarkFootprint::of(*mark, m_space)))
            mark->draw(painter, part);
}
