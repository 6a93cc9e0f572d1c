#include "platform/x11/X11WindowPlacer.h"

#include "platform/x11/OwnWindows.h"
#include "platform/x11/Xcb.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

namespace {

xcb_window_t idOf(const QWidget &window) { return static_cast<xcb_window_t>(window.internalWinId()); }

} // namespace

X11WindowPlacer::X11WindowPlacer(std::shared_ptr<OwnWindows> ownWindows) : m_ownWindows(std::move(ownWindows))
{}

void X11WindowPlacer::beginSession()
{
    m_ownWindows->hide();
    qApp->installEventFilter(this);
    auto *c = Xcb::connection();
    const Xcb::Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    m_former = reply ? Focus{reply->focus, reply->revert_to}
                     : Focus{XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT};
}

void X11WindowPlacer::cover(QWidget &window, QScreen &screen)
{
    OrdinaryWindows::exempt(window);
    window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                          | Qt::BypassWindowManagerHint);
    window.setScreen(&screen);
    window.setGeometry(screen.geometry());
    window.winId();
    window.windowHandle()->setScreen(&screen);
    window.show();
    window.raise();
}

// The grab also stops the desktop's own shortcuts, and keys arrive even where a
// window manager insists on another focus.
void X11WindowPlacer::giveKeyboard(QWidget &window)
{
    m_keyWindow = &window;
    window.activateWindow();
    auto *c = Xcb::connection();
    xcb_set_input_focus(c, XCB_INPUT_FOCUS_PARENT, idOf(window), XCB_CURRENT_TIME);
    if (m_former)
        m_keyboard.take(window);
    window.focusWidget() ? window.focusWidget()->setFocus() : window.setFocus();
}

QScreen *X11WindowPlacer::screenUnderPointer() const { return Xcb::screenUnderPointer(); }

// A dialog that a part of the overlay opens, such as Qt's warning about
// a file that it cannot delete, would wait for an answer behind the overlays.
bool X11WindowPlacer::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = qobject_cast<QDialog *>(watched);
    if (!dialog || !dialog->isWindow() || !dialog->parentWidget())
        return false;
    if (event->type() == QEvent::Polish && !dialog->isVisible()) {
        dialog->setWindowFlags(dialog->windowFlags() | Qt::BypassWindowManagerHint
                               | Qt::WindowStaysOnTopHint);
        dialog->setScreen(dialog->parentWidget()->screen());
    } else if (event->type() == QEvent::Show) {
        putAbove(*dialog);
    } else if (event->type() == QEvent::Hide && m_keyWindow) {
        giveKeyboard(*m_keyWindow);
    }
    return false;
}

void X11WindowPlacer::putAbove(QWidget &dialog)
{
    dialog.move(dialog.parentWidget()->window()->geometry().center() - dialog.rect().center());
    // Once it is on the screen.
    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.raise();
        xcb_set_input_focus(Xcb::connection(), XCB_INPUT_FOCUS_PARENT, idOf(dialog), XCB_CURRENT_TIME);
        xcb_flush(Xcb::connection());
    });
}

void X11WindowPlacer::endSession()
{
    qApp->removeEventFilter(this);
    m_keyWindow.clear();
    if (const auto former = std::exchange(m_former, std::nullopt)) {
        auto *c = Xcb::connection();
        // The former window may be gone by now; then nobody has a claim.
        const Xcb::Reply<xcb_generic_error_t> error(xcb_request_check(
            c, xcb_set_input_focus_checked(c, former->revertTo, former->window, XCB_CURRENT_TIME)));
        m_keyboard.release();
    }
    m_ownWindows->restore();
}
