#include "overlay/OverlayView.h"

#include "base/Overloaded.h"
#include "base/Rect.h"
#include "overlay/OverlaySession.h"
#include "overlay/canvas/Rendering.h"
#include "overlay/gestures/LastRegion.h"
#include "platform/KeyCodes.h"

#include <QKeyEvent>

namespace {

bool isCommandKey(int key) { return key == Qt::Key_Control || key == Qt::Key_Meta; }

// For as long as its key is held.
bool goesOn(const KeyCommands::Meaning &meaning)
{
    return meaning == KeyCommands::Meaning(Command::undo) || std::holds_alternative<ArrowStep>(meaning);
}

} // namespace

void OverlayView::keyPressEvent(QKeyEvent *event)
{
    followKeys(*event);
    if (helpDrag(*event))
        return;
    const auto key = KeyCodes::latinKey(*event);
    const auto meaning = KeyCommands::meaning(QKeyCombination(event->modifiers() & ~Qt::KeypadModifier, key),
                                              m_state.selection.has_value());
    if (!meaning || (event->isAutoRepeat() && !goesOn(*meaning)))
        return QWidget::keyPressEvent(event);
    if (m_eyedropper.picking() && meaning == KeyCommands::Meaning(Command::copy) && key == Qt::Key_C)
        return copyColor();
    obey(*meaning);
}

void OverlayView::keyReleaseEvent(QKeyEvent *event)
{
    followKeys(*event);
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        m_selectionDrag.letGo();
    if (isCommandKey(event->key()))
        followEdge(event->modifiers());
    QWidget::keyReleaseEvent(event);
}

// The key may come and go while the pointer rests.
void OverlayView::followKeys(const QKeyEvent &event)
{
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    if (event.isAutoRepeat() || alt == m_grab.armed())
        return;
    m_grab.arm(alt);
    if (!gestureActive())
        followPointer();
}

// The keys that are held while a region is dragged out or resized.
bool OverlayView::helpDrag(const QKeyEvent &event)
{
    if (!m_selectionDrag.movesEdge())
        return false;
    if (event.key() == Qt::Key_Space)
        m_selectionDrag.hold(clamped(m_pointer, m_state.bounds));
    else if (isCommandKey(event.key()))
        followEdge(event.modifiers());
    else
        return false;
    return true;
}

// The loupe shows where the edge that moves comes to lie.
void OverlayView::followEdge(Qt::KeyboardModifiers held)
{
    const bool wanted = m_selectionDrag.movesEdge() && KeyCommands::isCommand(held);
    if (!wanted && !m_canvas.showsEdges())
        return;
    m_canvas.showEdges(wanted ? std::optional(clamped(m_pointer, m_state.bounds)) : std::nullopt);
    setCursor(wanted ? Qt::BlankCursor : Qt::CrossCursor);
    if (wanted)
        m_bars.hideBar();
    else
        placeBars();
}

// Tab belongs to the editor while it has the keys itself; in a panel on it Tab goes
// from field to field. The window need not be the active one to get keys.
bool OverlayView::focusNextPrevChild(bool next)
{
    const QWidget *focus = window()->focusWidget();
    return focus && focus != this && QWidget::focusNextPrevChild(next);
}

void OverlayView::obey(const KeyCommands::Meaning &meaning)
{
    if (refusedByPanel())
        return;
    const Overloaded follow{
        [this](Command command) { run(command); },
        [this](Tool tool) { toggleTool(tool); },
        [this](const ArrowStep &step) { moveByKey(step); },
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
    case Command::nextCorner: return nextCorner();
    case Command::lastRegion: return m_session.underPointer(*this).selectAgain();
    case Command::removeMark: return removeMark();
    }
}

void OverlayView::nextCorner()
{
    if (!m_text.isOpen())
        m_regionKeys.nextCorner();
}

// A selection that was not dragged out.
void OverlayView::select(const QRectF &region)
{
    m_session.selectionStarted(*this);
    m_regionKeys.forgetCorner();
    m_state.selection = region;
    refresh();
    m_canvas.halo().pulse(Pulse::gentle); // which needs the glow to show
    saySize();
    followPointer();
}

void OverlayView::selectAgain()
{
    if (const auto region = LastRegion::on(m_screenName, m_state.bounds))
        select(*region);
}

void OverlayView::selectAtPointer()
{
    select(m_space.fromPixels(m_space.toNearestPixels(m_regionKeys.start(m_pointer))));
}

void OverlayView::rememberRegion() const
{
    if (m_state.selection && Rendering::canBeRendered(*m_state.selection))
        LastRegion::remember(m_screenName, *m_state.selection);
}

void OverlayView::moveByKey(const ArrowStep &step)
{
    // An open text leaves some of these keys to us.
    if (gestureActive() || m_eyedropper.picking() || m_text.isOpen())
        return;
    if (!m_state.selection)
        return m_session.underPointer(*this).selectAtPointer();
    m_regionKeys.follow(step);
    if (step.ofCorner) // once, however often the key repeats itself
        m_announcer.sayAtRest([this] { return spokenSize(); });
    refresh();
    followPointer();
}
