#include "overlay/OverlayView.h"

#include "base/Bands.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "overlay/OverlaySession.h"
#include "overlay/canvas/Loupe.h"
#include "overlay/canvas/Rendering.h"
#include "overlay/canvas/WidthPreview.h"
#include "overlay/gestures/Cursors.h"
#include "overlay/gestures/StrokeLog.h"
#include "overlay/output/Printing.h"
#include "platform/Desktop.h"
#include "toolbar/Theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QtConcurrentRun>

#include <algorithm>
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
    , m_space(m_shot.pointSize, m_shot.scale)
    , m_session(session)
    , m_desktop(desktop)
    , m_halo(m_shot.pointSize, m_shot.scale, [&desktop] { return desktop.reduceMotion(); })
    , m_output(*this, desktop)
{
    m_state.bounds = m_space.bounds();
    m_state.color = Theme::drawColors.front();
    lendPicture();
    update(m_damage.follow(scene(), {}));
    m_halo.onFrame = [this](const QRegion &area) { update(area); };
    m_drawing.onRest = [this](QPointF) { m_hold.armHold(); };
    m_hold.onSnapped = [this](const ShapeRecognizer::Result &shape) { snapped(shape); };
    m_hold.onMissed = [this] { StrokeLog::saveMissedStroke(m_state.current->points); };
    m_fade.onFrame = [this](const QRectF &area) {
        touch(area);
        if (!m_fade.running()) // the mark is among the others now
            refresh();
    };
    m_text.onMark = [this] { refresh(); };
    m_bars.mayAct = [this] { return !refusedByPanel(); };
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

void OverlayView::lendPicture()
{
    Annotation::background = m_shot.image;
    Annotation::backgroundScale = m_shot.scale;
    Annotation::viewHeight = m_shot.pointSize.height();
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
    m_fade.stop();
    refresh();
    return Rendering::renderSelection(m_state, m_shot, m_marks);
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
    m_bars.closePalette();
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
    if (m_state.undoLast())
        refresh();
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
    sampleWidth(false);
    followPointer();
}

void OverlayView::setColor(const QColor &color)
{
    m_state.color = color;
    m_text.followState();
    m_bars.followState();
    sampleWidth(false);
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
    m_bars.fadeBar(std::nullopt);
    m_text.discard();
    m_hold.cancel();
    m_halo.setPaused(false);
    m_drawing.discard();
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
void OverlayView::touch(const QRectF &area) { update(m_space.around(area, 1)); }

Chrome::Scene OverlayView::scene() const
{
    return {.state = m_state,
            .scale = m_shot.scale,
            .haloShows = !m_halo.isHidden(),
            .justCopied = !m_copied.hasExpired()};
}

// Repaints what a change of the state has made different, and nothing else.
void OverlayView::refresh()
{
    endStaleFade();
    m_halo.update(m_state.selection);
    update(m_damage.follow(scene(), followMarks()));
    placeBars();
}

// A mark that was moved, undone or taken over is drawn like the others.
void OverlayView::endStaleFade()
{
    const auto fades = [this](const AnnotationPtr &mark) { return m_fade.draws(*mark); };
    const bool inHand = m_state.current && m_fade.draws(*m_state.current);
    if (!inHand && std::ranges::none_of(m_state.annotations, fades))
        m_fade.stop();
}

// Returns on which pixels the finished marks look different.
QRegion OverlayView::followMarks()
{
    std::vector<AnnotationPtr> marks = m_state.drawOrder();
    std::erase_if(marks, [this](const AnnotationPtr &mark) { return m_fade.draws(*mark); });
    return m_marks.follow(marks);
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
    drawScreen(painter, m_space.pixelsOf(event->region() - m_halo.covered()));
    m_halo.draw(painter, event->region());
    painter.setTransform(m_space.upwards(), true);
    if (m_state.selection)
        drawInHand(painter, event->region());
    Chrome::draw(painter, scene(), m_space.fromWidget(QRectF(event->rect())));
    if (const auto at = m_eyedropper.pickPoint())
        Loupe::draw(painter, m_shot, *at);
}

// The frozen screen and the finished marks, which never show outside the selection.
void OverlayView::drawScreen(QPainter &painter, const QRegion &exposed)
{
    const Painting::Saved saved(painter);
    painter.scale(1 / m_shot.scale, 1 / m_shot.scale); // from here on in pixels
    if (!m_state.selection)
        return m_backdrop.draw(painter, {}, exposed);
    const QRect selected = m_space.toNearestPixels(*m_state.selection);
    const QRegion hidden = hiddenByMosaics() & selected;
    m_marks.prepare(exposed & selected);
    Bands::draw(painter, exposed, [&](QPainter &on, const QRegion &band) {
        m_backdrop.draw(on, selected, band - hidden);
        m_marks.draw(on, band & selected);
    });
}

QRegion OverlayView::hiddenByMosaics() const
{
    QRegion hidden = m_marks.covered();
    if (m_state.current && m_state.current->tool == Tool::pixelate && !Mosaic(*m_state.current).isNull())
        hidden += Mosaic::covered(m_space.toDevice(m_state.current->rectFromPoints()));
    return hidden;
}

void OverlayView::drawInHand(QPainter &painter, const QRegion &exposed)
{
    const Painting::Saved saved(painter);
    painter.setClipRect(*m_state.selection, Qt::IntersectClip);
    const QRectF part = m_space.fromWidget(QRectF(exposed.boundingRect()));
    if (m_fade.running())
        m_fade.draw(painter, part);
    if (m_state.current && !m_fade.draws(*m_state.current))
        m_state.current->draw(painter, part);
}
