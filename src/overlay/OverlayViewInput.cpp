#include "overlay/OverlayView.h"

#include "base/Log.h"
#include "base/Overloaded.h"
#include "base/Rect.h"
#include "marks/Kinds.h"
#include "marks/MarkFootprint.h"
#include "marks/SelectionGeometry.h"
#include "overlay/OverlaySession.h"
#include "overlay/canvas/Loupe.h"
#include "overlay/canvas/ScreenPixels.h"
#include "overlay/canvas/ShapeHint.h"
#include "overlay/canvas/WidthPreview.h"
#include "overlay/gestures/Cursors.h"
#include "platform/Desktop.h"
#include "platform/KeyCodes.h"
#include "toolbar/RecentColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto widthShows = 1200ms;
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

void OverlayView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (refusedByPanel())
        return;
    const QPointF at = m_pointer = pointOf(*event);
    if (m_eyedropper.picking())
        return takeColor(at);
    m_bars.closePalette();
    if (m_drawing.active())
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

// An open save panel waits for its answer first.
bool OverlayView::refusedByPanel()
{
    if (m_output.panelOpen())
        m_desktop.beep();
    return m_output.panelOpen();
}

void OverlayView::pressInside(QPointF at)
{
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
    update(MarkFootprint::of(*m_state.current, m_space));
    m_halo.setPaused(true);
}

void OverlayView::continueDrawing(QPointF to, Qt::KeyboardModifiers modifiers)
{
    const Annotation &mark = *m_state.current;
    const bool freehand = isFreehand(mark.tool);
    const QRegion before = freehand ? QRegion() : MarkFootprint::of(mark, m_space);
    m_bars.fadeBar(clamped(to, *m_state.selection));
    m_drawing.extend(to, modifiers.testFlag(Qt::ShiftModifier));
    if (freehand)
        m_marks.prepareFor(mark);
    update(before + (freehand ? MarkFootprint::ofLastStep(mark, m_space) : MarkFootprint::of(mark, m_space)));
}

// The stroke has become a shape while the button is still down.
void OverlayView::snapped(const ShapeRecognizer::Result &shape)
{
    const Annotation &mark = *m_state.current;
    m_drawing.setSnapped();
    Log::write(QStringLiteral("figura: ") + QString::fromStdString(shape.name));
    m_desktop.hapticTick();
    touch(SnapFade::area(mark));
    if (!m_desktop.reduceMotion())
        m_fade.start(mark);
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
    m_halo.setPaused(false);
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
    m_text.commitText();
    m_state.annotations.clear();
    m_session.selectionStarted(*this);
    m_selectionDrag.create(at);
}

void OverlayView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF at = m_pointer = pointOf(*event);
    if (m_eyedropper.picking())
        return moveLoupe(at);
    if (!m_drawing.active() && !m_selectionDrag.active())
        return followPointer();
    if (!event->buttons().testFlag(Qt::LeftButton))
        return endGesture(at); // its release went to somebody else
    const QPointF inside = clamped(at, m_state.bounds);
    if (m_drawing.active())
        return continueDrawing(inside, event->modifiers());
    m_selectionDrag.drag(inside);
    refresh();
}

void OverlayView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endGesture(pointOf(*event));
}

void OverlayView::endGesture(QPointF at)
{
    if (m_drawing.active())
        finishDrawing();
    else if (m_selectionDrag.release())
        m_halo.pulse(Pulse::gentle);
    m_bars.fadeBar(std::nullopt);
    m_pointer = at;
    followPointer();
    refresh();
}

void OverlayView::enterEvent(QEnterEvent *event)
{
    m_pointer = pointOf(*event);
    followPointer();
}

void OverlayView::startPicking()
{
    if (m_drawing.active() || m_selectionDrag.active())
        endGesture(m_pointer);
    m_text.commitText();
    // The loupe is above everything, and every pixel can be picked.
    m_bars.hideBar();
    m_widthSample.hide();
    m_tip.hide();
    if (underMouse()) // perhaps over a button, which keeps its moves to itself
        m_pointer = m_space.fromWidget(QPointF(mapFromGlobal(QCursor::pos())));
    m_eyedropper.startPicking(m_pointer);
    touch(Loupe::area(m_pointer));
    followPointer();
}

void OverlayView::moveLoupe(QPointF to)
{
    touch(Loupe::area(*m_eyedropper.pickPoint()));
    m_eyedropper.pointerMoved(to);
    touch(Loupe::area(to));
}

void OverlayView::takeColor(QPointF at)
{
    if (const auto color = ScreenPixels::pixelColor(m_shot, at)) {
        setColor(*color);
        RecentColors::add(*color);
    }
    stopPicking();
}

void OverlayView::stopPicking()
{
    touch(Loupe::area(*m_eyedropper.pickPoint()));
    m_eyedropper.stop();
    placeBars();
    followPointer();
}

// The wheel sets the width of the marks to come.
void OverlayView::wheelEvent(QWheelEvent *event)
{
    event->accept();
    m_pointer = pointOf(*event);
    const auto step = m_wheel.turned(event->angleDelta().y());
    if (!step || !m_state.selection || m_output.panelOpen())
        return;
    setLineWidth(KeyCommands::nextLineWidth(m_state.lineWidth, *step));
    showWidth(m_pointer);
}

void OverlayView::showWidth(QPointF at)
{
    m_sampleAt = at;
    if (m_bars.barShows())
        sampleWidth(true);
}

// A sample that shows already follows tool and colour for as long as it shows.
void OverlayView::sampleWidth(bool anew)
{
    const auto draw = [this](QPainter &painter) { WidthPreview::draw(painter, m_state, m_sampleAt); };
    const QRectF panel = WidthPreview::panel(m_state, m_sampleAt);
    if (anew)
        m_widthSample.present(panel, widthShows, draw);
    else if (m_widthSample.isVisible())
        m_widthSample.replace(panel, draw);
}

void OverlayView::keyPressEvent(QKeyEvent *event)
{
    const auto key = KeyCodes::latinKey(*event);
    const auto meaning
        = KeyCommands::meaning(QKeyCombination(event->modifiers(), key), m_state.selection.has_value());
    const bool goesOn = meaning == KeyCommands::Meaning(Command::undo); // for as long as its key is held
    if (meaning && (goesOn || !event->isAutoRepeat()))
        obey(*meaning);
    else
        QWidget::keyPressEvent(event);
}

void OverlayView::obey(const KeyCommands::Meaning &meaning)
{
    if (refusedByPanel())
        return;
    const Overloaded follow{
        [this](Command command) { run(command); },
        [this](Tool tool) { toggleTool(tool); },
    };
    std::visit(follow, meaning);
}

void OverlayView::leave()
{
    if (m_eyedropper.picking())
        stopPicking();
    else
        cancel();
}

void OverlayView::run(Command command)
{
    switch (command) {
    case Command::close: return leave();
    case Command::copy: return copyImage();
    case Command::save: return saveImage();
    case Command::print: return printImage();
    case Command::undo: return undo();
    case Command::selectAll: return selectAll();
    case Command::pickColor: return startPicking();
    }
}
