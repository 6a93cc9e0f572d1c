#include "overlay/OverlayView.h"

#include "base/Log.h"
#include "base/Rect.h"
#include "l10n/L10n.h"
#include "marks/Kinds.h"
#include "marks/SelectionGeometry.h"
#include "overlay/OverlaySession.h"
#include "overlay/canvas/Loupe.h"
#include "overlay/canvas/ScreenPixels.h"
#include "overlay/canvas/ShapeHint.h"
#include "platform/Clipboard.h"
#include "platform/Desktop.h"
#include "toolbar/ColorHex.h"
#include "toolbar/ColorName.h"
#include "toolbar/RecentColors.h"

#include <QCursor>
#include <QMouseEvent>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto tipShows = 3s;

} // namespace

// The position in the scene is exact; the event's own position is rounded to
// whole points, which is a pixel off on a dense screen. Only when the pointer
// comes off a button is the exact one missing.
QPointF OverlayView::pointOf(const QSinglePointEvent &event) const
{
    const QPointF exact = mapFrom(window(), event.scenePosition());
    const bool plausible = (exact - event.position()).manhattanLength() <= 2;
    return m_space.fromWidget(plausible ? exact : event.position());
}

// Notes where the pointer is, and the key that lets it take hold of marks.
QPointF OverlayView::see(const QSinglePointEvent &event)
{
    m_pointer = pointOf(event);
    m_grab.pointerAt(m_pointer);
    m_grab.arm(event.modifiers().testFlag(Qt::AltModifier));
    return m_pointer;
}

bool OverlayView::gestureActive() const
{
    return m_drawing.active() || m_selectionDrag.active() || m_grab.active();
}

void OverlayView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (refusedByPanel())
        return;
    const QPointF at = see(*event);
    if (m_eyedropper.picking())
        return takeColor(at);
    m_bars.closePalette();
    if (m_drawing.active() || m_grab.active())
        return;
    if (!m_state.selection)
        startSelection(at);
    else if (const auto handle = SelectionGeometry::handleAt(*m_state.selection, at))
        m_selectionDrag.resize(*handle);
    else if (m_state.selection->contains(at))
        pressInside(at);
    else
        pressOutside(at);
    refresh();
}

// Qt sends the second press of a double click as this event alone.
void OverlayView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_windowPick.expectSecond();
    mousePressEvent(event);
}

// An open save panel waits for its answer first.
bool OverlayView::refusedByPanel()
{
    if (m_output.panelOpen())
        m_desktop.beep();
    return m_output.panelOpen();
}

void OverlayView::pressInside(QPointF at)
{
    if (m_grab.armed() || m_state.grip)
        followPointer(); // it may be elsewhere than it was last seen, and the key up
    if (m_state.grip)
        return takeMark();
    if (m_state.tool)
        return startDrawing(at);
    m_selectionDrag.move(at);
    setCursor(Qt::ClosedHandCursor);
}

void OverlayView::startDrawing(QPointF at)
{
    m_text.commitText();
    if (*m_state.tool == Tool::text)
        return m_text.startText(at);
    m_drawing.begin(at);
    m_canvas.touchMark(*m_state.current);
    m_canvas.halo().setPaused(true);
}

void OverlayView::continueDrawing(QPointF to, Qt::KeyboardModifiers modifiers)
{
    const Annotation &mark = *m_state.current;
    const bool freehand = isFreehand(mark.tool);
    if (!freehand)
        m_canvas.touchMark(mark); // where it has been
    m_bars.fadeBar(clamped(to, *m_state.selection));
    m_drawing.extend(to, modifiers.testFlag(Qt::ShiftModifier));
    if (freehand)
        m_canvas.strokeGrew(mark);
    else
        m_canvas.touchMark(mark);
}

// The stroke has become a shape while the button is still down.
void OverlayView::snapped(const ShapeRecognizer::Result &shape)
{
    const Annotation &mark = *m_state.current;
    m_drawing.setSnapped();
    Log::write(QStringLiteral("figura: ") + QString::fromStdString(shape.name));
    m_desktop.hapticTick();
    m_canvas.showSnap(mark);
}

void OverlayView::offerShapeHint()
{
    if (!ShapeHint::offerShapeHint(*m_state.current, m_drawing.snapped()))
        return;
    const QRectF bubble = ShapeHint::bubble(m_state.current->points.last(), m_state.bounds);
    m_tip.present(bubble, tipShows,
                  [bubble](QPainter &painter) { ShapeHint::drawShapeHint(painter, bubble); });
}

void OverlayView::finishDrawing()
{
    m_hold.cancel();
    if (isFreehand(m_state.current->tool))
        offerShapeHint();
    m_canvas.halo().setPaused(false);
    m_drawing.commit();
}

// A click outside never throws marks away.
void OverlayView::pressOutside(QPointF at)
{
    if (m_state.annotations.empty() && !m_text.isOpen())
        return startSelection(at);
    m_text.commitText();
    m_desktop.beep();
}

void OverlayView::startSelection(QPointF at)
{
    if (!m_state.selection)
        m_windowPick.press(at);
    rememberRegion(); // the press may be a slip
    m_text.commitText();
    m_state.discardMarks();
    m_session.selectionStarted(*this);
    m_regionKeys.forgetCorner();
    m_selectionDrag.create(at);
}

void OverlayView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF at = see(*event);
    if (m_eyedropper.picking())
        return moveLoupe(at);
    if (!gestureActive())
        return followPointer();
    if (!event->buttons().testFlag(Qt::LeftButton))
        return endGesture(at); // its release went to somebody else
    const QPointF inside = clamped(at, m_state.bounds);
    if (m_drawing.active())
        return continueDrawing(inside, event->modifiers());
    if (m_grab.active())
        return carryMark(inside);
    m_windowPick.pointerMoved(inside);
    m_selectionDrag.drag(inside);
    followEdge(event->modifiers());
    refresh();
}

void OverlayView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endGesture(pointOf(*event));
}

// After a double click on a window, which is selected as it stood when the screens
// froze.
bool OverlayView::selectWindow()
{
    const auto at = m_windowPick.release();
    if (!at || m_state.selection)
        return false;
    const auto frame = WindowPick::frameAt(m_session.windowsIn(m_shot), m_space.pixelAt(*at));
    if (frame)
        m_state.selection = m_space.fromPixels(*frame);
    return frame.has_value();
}

void OverlayView::finishSelecting()
{
    const bool selecting = m_selectionDrag.active();
    const bool dragged = m_selectionDrag.release();
    if (selectWindow() || dragged) {
        m_canvas.refresh(); // a glow that is still hidden does not flash
        m_canvas.halo().pulse(Pulse::gentle);
    }
    if (selecting)
        saySize();
}

void OverlayView::endGesture(QPointF at)
{
    m_pointer = at;
    m_grab.pointerAt(at);
    if (m_grab.active())
        return leaveMark(&MarkGrab::putDown);
    if (m_drawing.active())
        finishDrawing();
    else
        finishSelecting();
    followEdge({});
    m_bars.fadeBar(std::nullopt);
    followPointer();
    refresh();
}

void OverlayView::enterEvent(QEnterEvent *event)
{
    see(*event);
    followPointer();
}

void OverlayView::leaveEvent(QEvent *)
{
    m_grab.pointerAt(std::nullopt);
    if (m_state.grip && !gestureActive())
        followPointer();
}

// A pointer that goes over to a bar, a panel or a text field has not left the view.
void OverlayView::childEvent(QChildEvent *event)
{
    if (event->added())
        event->child()->installEventFilter(this);
    QWidget::childEvent(event);
}

bool OverlayView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Enter)
        leaveEvent(event);
    if (const auto *child = qobject_cast<const QWidget *>(watched))
        m_canvas.paintedOver(*child);
    return QWidget::eventFilter(watched, event);
}

void OverlayView::takeMark()
{
    m_text.commitText();
    m_grab.take();
    m_canvas.halo().setPaused(true);
    followPointer();
}

void OverlayView::carryMark(QPointF to)
{
    m_bars.fadeBar(clamped(to, *m_state.selection));
    m_grab.carry(to);
    m_canvas.followGrip();
}

// Lets go of the mark, here or where it was.
void OverlayView::leaveMark(void (MarkGrab::*how)())
{
    (m_grab.*how)();
    m_canvas.halo().setPaused(false);
    m_bars.fadeBar(std::nullopt);
    followPointer();
    refresh();
}

// A text that is being typed has this key for itself.
void OverlayView::removeMark()
{
    if (!m_text.isOpen() && m_state.grip)
        leaveMark(&MarkGrab::remove);
}

void OverlayView::startPicking()
{
    if (gestureActive())
        endGesture(m_pointer);
    m_text.commitText();
    // The loupe is above everything, and every pixel can be picked.
    m_bars.hideBar();
    m_widthSample.hide();
    m_tip.hide();
    if (underMouse()) // perhaps over a button, which keeps its moves to itself
        m_pointer = m_space.fromWidget(QPointF(mapFromGlobal(QCursor::pos())));
    m_eyedropper.startPicking(m_pointer);
    m_canvas.touch(Loupe::area(m_pointer));
    sayColor();
    followPointer();
}

void OverlayView::moveLoupe(QPointF to)
{
    m_canvas.touch(Loupe::area(*m_eyedropper.pickPoint()));
    m_eyedropper.pointerMoved(to);
    m_canvas.touch(Loupe::area(to));
    sayColor();
}

// What the loupe shows, once it rests.
void OverlayView::sayColor()
{
    m_announcer.sayAtRest([this] {
        const auto at = m_eyedropper.pickPoint();
        const auto color = at ? ScreenPixels::pixelColor(m_shot, *at) : std::nullopt;
        return color ? spokenColor(*color) : QString();
    });
}

void OverlayView::takeColor(QPointF at)
{
    if (const auto color = ScreenPixels::pixelColor(m_shot, at)) {
        setColor(*color);
        RecentColors::add(*color);
    }
    stopPicking();
}

void OverlayView::copyColor()
{
    const auto color = ScreenPixels::pixelColor(m_shot, *m_eyedropper.pickPoint());
    const QByteArray text = color ? hex(*color).toLatin1() : QByteArray();
    if (color
        && m_desktop.clipboard().offer(
            {{QStringLiteral("text/plain;charset=utf-8"), text}, {QStringLiteral("text/plain"), text}}))
        m_announcer.say(L10n::t(u"Copiado ✓"));
    else
        m_desktop.beep();
    stopPicking();
}

void OverlayView::stopPicking()
{
    m_canvas.touch(Loupe::area(*m_eyedropper.pickPoint()));
    m_eyedropper.stop();
    placeBars();
    followPointer();
}

// The wheel sets the width of the marks to come.
void OverlayView::wheelEvent(QWheelEvent *event)
{
    event->accept();
    m_pointer = pointOf(*event); // perhaps over a bar
    const auto step = m_wheel.turned(event->angleDelta().y());
    if (!step || !m_state.selection || m_output.panelOpen())
        return;
    setLineWidth(KeyCommands::nextLineWidth(m_state.lineWidth, *step));
    if (m_bars.barShows())
        m_widthSample.show(m_pointer);
}
