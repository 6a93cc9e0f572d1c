#include "overlay/OverlayView.h"

#include "access/Spoken.h"
#include "l10n/L10n.h"
#include "overlay/OverlaySession.h"
#include "overlay/canvas/Chrome.h"
#include "overlay/gestures/Cursors.h"
#include "overlay/gestures/StrokeLog.h"
#include "platform/Desktop.h"
#include "toolbar/Theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto copiedSeen = 350ms; // then the overlays close

EditorState beginning(const ViewSpace &space)
{
    EditorState state;
    state.bounds = space.bounds();
    state.color = Theme::drawColors.front();
    return state;
}

} // namespace

OverlayView::OverlayView(ScreenShot shot, OverlaySession &session, Desktop &desktop, QWidget *parent)
    : QWidget(parent)
    , m_shot(std::move(shot))
    , m_screenName(m_shot.screen ? m_shot.screen->name() : QString())
    , m_space(m_shot.pointSize, m_shot.scale)
    , m_session(session)
    , m_desktop(desktop)
    , m_state(beginning(m_space))
    , m_canvas(*this, m_shot, m_space, m_state, [&desktop] { return desktop.reduceMotion(); })
    , m_output(*this, desktop)
    , m_pointer(m_state.bounds.center())
{
    Spoken::setRole(*this, QAccessible::Canvas);
    setAccessibleName(L10n::t(u"Captura"));
    setAccessibleDescription(L10n::t(u"Arrastra para seleccionar · Intro copia · Esc sale"));
    m_drawing.onRest = [this](QPointF) { m_hold.armHold(); };
    m_hold.onSnapped = [this](const ShapeRecognizer::Result &shape) { snapped(shape); };
    m_hold.onMissed = [this] { StrokeLog::saveMissedStroke(m_state.current->points); };
    m_text.onMark = [this] { refresh(); };
    m_bars.mayAct = [this] { return !refusedByPanel(); };
    m_bars.onTool = [this](Tool tool) { toggleTool(tool); };
    m_bars.onCommand = [this](Command command) { run(command); };
    m_bars.onColor = [this](const QColor &color) { setColor(color); };
    m_bars.followState(); // the colour has been chosen meanwhile
    m_output.onCopied = [this] { copied(); };
    m_output.onSaved = [this] { m_session.finish(); };
    resize(m_shot.pointSize.toSize());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

OverlayView::~OverlayView() { rememberRegion(); }

void OverlayView::lendPicture() { m_canvas.lendPicture(); }

std::optional<QImage> OverlayView::renderSelection()
{
    m_text.commitText();
    if (m_grab.active())
        leaveMark(&MarkGrab::putDown); // the picture shows it where the screen does
    return m_canvas.render();
}

void OverlayView::copyImage()
{
    if (const auto picture = renderSelection())
        m_output.copy(*picture);
}

void OverlayView::copied()
{
    m_canvas.showCopied();
    m_announcer.say(L10n::t(u"Copiado ✓"));
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
    m_session.print(*picture);
}

void OverlayView::selectAll()
{
    m_selectionDrag.cancel(); // or it would go on from a selection that is gone
    followEdge({});
    m_session.selectionStarted(*this);
    m_regionKeys.forgetCorner();
    m_state.selection = m_state.bounds;
    refresh();
    saySize();
}

void OverlayView::undo()
{
    if (m_text.isOpen())
        return m_text.discard();
    if (m_grab.active())
        return leaveMark(&MarkGrab::putBack);
    if (!m_state.undoLast())
        return;
    if (m_grab.armed() && !gestureActive())
        followPointer(); // another mark may be under it now
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
    m_widthSample.follow();
    followPointer();
}

void OverlayView::setColor(const QColor &color)
{
    m_state.color = color;
    m_text.followState();
    m_bars.followState();
    m_widthSample.follow();
}

void OverlayView::setLineWidth(double width)
{
    m_state.lineWidth = width;
    m_text.followState();
    m_bars.followState();
}

void OverlayView::discardSelection()
{
    rememberRegion();
    m_output.closePanel();
    m_bars.closePalette();
    m_bars.fadeBar(std::nullopt);
    m_text.discard();
    m_hold.cancel();
    m_canvas.halo().setPaused(false);
    m_drawing.discard();
    m_selectionDrag.cancel();
    followEdge({});
    if (m_eyedropper.picking())
        stopPicking();
    m_grab.putBack();
    m_state.selection.reset();
    m_state.discardMarks();
    refresh();
}

void OverlayView::followPointer()
{
    if (m_grab.offer(!gestureActive() && !m_eyedropper.picking() && !m_output.panelOpen()))
        m_canvas.followGrip();
    setCursor(m_eyedropper.picking() ? Qt::BlankCursor : Cursors::cursorAt(m_state, m_pointer));
}

void OverlayView::refresh()
{
    m_canvas.refresh();
    placeBars();
}

// Not while the loupe shows, which is above everything. The sample of the width
// goes with the bar, the tip with the selection.
void OverlayView::placeBars()
{
    if (!m_eyedropper.picking() && !m_canvas.showsEdges())
        m_bars.placeBars();
    if (!m_bars.barShows())
        m_widthSample.hide();
    if (!m_state.selection)
        m_tip.hide();
}

QString OverlayView::spokenSize() const
{
    return m_state.selection ? L10n::t(u"Selección: %@", Chrome::sizeText(*m_state.selection, m_shot.scale))
                             : QString();
}

void OverlayView::saySize()
{
    if (m_state.selection)
        m_announcer.say(spokenSize());
}

void OverlayView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    m_canvas.paint(painter, event->region(), m_eyedropper.pickPoint(), m_bars.bar());
}
