#include "overlay/OverlayView.h"

#include "overlay/Cursors.h"
#include "overlay/OverlaySession.h"
#include "overlay/SelectionGeometry.h"
#include "platform/Desktop.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace {

constexpr std::uint32_t scanCodeOffset = 8; // the native scan code is the kernel's key code plus this

std::uint32_t evdevCode(const QKeyEvent &event)
{
    return event.nativeScanCode() > scanCodeOffset ? event.nativeScanCode() - scanCodeOffset : 0;
}

} // namespace

// The position in the scene is exact; the event's own position is rounded to
// whole points, which is a pixel off on a dense screen.
QPointF OverlayView::pointOf(const QMouseEvent &event) const
{
    return m_space.fromWidget(mapFrom(window(), event.scenePosition()));
}

void OverlayView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_output.panelOpen())
        return m_desktop.beep();
    const QPointF at = pointOf(*event);
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

void OverlayView::pressInside(QPointF at)
{
    m_selectionDrag.move(at);
    setCursor(Qt::ClosedHandCursor);
}

// A click outside never throws marks away.
void OverlayView::pressOutside(QPointF at)
{
    if (m_state.annotations.empty())
        startSelection(at);
    else
        m_desktop.beep();
}

void OverlayView::startSelection(QPointF at)
{
    m_state.annotations.clear();
    m_session.selectionStarted(*this);
    m_selectionDrag.create(at);
}

void OverlayView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF at = pointOf(*event);
    if (!m_selectionDrag.active())
        return setCursor(Cursors::cursorAt(m_state, at));
    m_selectionDrag.drag(SelectionGeometry::clamped(at, m_state.bounds));
    refresh();
}

void OverlayView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_selectionDrag.release())
        pulse(Pulse::gentle);
    setCursor(Cursors::cursorAt(m_state, pointOf(*event)));
    refresh();
}

void OverlayView::keyPressEvent(QKeyEvent *event)
{
    const auto key = KeyCommands::latinKey(static_cast<Qt::Key>(event->key()), evdevCode(*event));
    if (const auto command = KeyCommands::meaning(QKeyCombination(event->modifiers(), key)))
        run(*command);
    else
        QWidget::keyPressEvent(event);
}

void OverlayView::run(Command command)
{
    switch (command) {
    case Command::close: return cancel();
    case Command::copy: return copyImage();
    case Command::save: return saveImage();
    case Command::print: return printImage();
    case Command::selectAll: return selectAll();
    }
}
