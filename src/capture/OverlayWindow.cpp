#include "capture/OverlayWindow.h"

#include "access/Spoken.h"
#include "overlay/OverlaySession.h"
#include "overlay/OverlayView.h"

#include <QCloseEvent>

OverlayWindow::OverlayWindow(const ScreenShot &shot, OverlaySession &session, Desktop &desktop)
    : m_screen(shot.screen)
    , m_session(session)
    , m_view(new OverlayView(shot, session, desktop, this))
{
    Spoken::setRole(*this, QAccessible::Window);
    setWindowTitle(QStringLiteral("Vellumora"));
    setAttribute(Qt::WA_OpaquePaintEvent); // the view covers all of it
    setFocusProxy(m_view);
}

// Where points do not divide the screen evenly, the window may be a fraction
// larger than the picture.
void OverlayWindow::resizeEvent(QResizeEvent *) { m_view->setGeometry(rect()); }

// Something outside wants the window gone: the capture ends in good order.
void OverlayWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_session.finish();
}
