#include "capture/CaptureSession.h"

#include "capture/OverlayWindow.h"
#include "overlay/OverlayView.h"
#include "platform/WindowList.h"
#include "platform/WindowPlacer.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

#include <algorithm>
#include <numeric>

namespace {

// Whether the window shows above the overlays because it belongs to one: a panel
// or the menu of one.
bool belongsToOverlay(const QWidget &window)
{
    for (const QWidget *part = window.parentWidget(); part; part = part->parentWidget())
        if (qobject_cast<const OverlayWindow *>(part))
            return true;
    return false;
}

bool isKeyboardEvent(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride
           || type == QEvent::InputMethod;
}

} // namespace

CaptureSession::CaptureSession(WindowPlacer &placer, WindowList &frozen, Desktop &desktop)
    : m_placer(placer)
    , m_frozen(frozen)
    , m_desktop(desktop)
{}

CaptureSession::~CaptureSession()
{
    onFinish = nullptr;
    finish();
}

void CaptureSession::start(const std::vector<ScreenShot> &shots)
{
    const QScreen *underPointer = m_placer.screenUnderPointer();
    makeWindows(shots, underPointer);
    for (const auto &window : m_windows)
        m_placer.cover(*window, window->shotScreen());
    if (m_windows.empty())
        return;
    qApp->installEventFilter(this);
    makeKey(windowOn(underPointer));
    m_awaitingPointer = !underPointer;
    endWhenScreensChange();
}

// The window of that screen comes last, because what is pixelated on any screen is
// the picture of the view that was made last.
void CaptureSession::makeWindows(const std::vector<ScreenShot> &shots, const QScreen *last)
{
    std::vector<size_t> order(shots.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_partition(order, [&](size_t i) { return shots[i].screen != last; });
    m_windows.resize(shots.size());
    for (const size_t i : order)
        m_windows[i] = std::make_unique<OverlayWindow>(shots[i], *this, m_desktop);
}

// The first one where that screen has none.
OverlayWindow &CaptureSession::windowOn(const QScreen *screen) const
{
    const auto found = std::ranges::find_if(
        m_windows, [&](const auto &window) { return &window->shotScreen() == screen; });
    return found == m_windows.end() ? *m_windows.front() : **found;
}

// Pictures of screens that are no longer there are of no use to anybody.
void CaptureSession::endWhenScreensChange()
{
    connect(qApp, &QGuiApplication::screenAdded, this, [this] { finish(); });
    connect(qApp, &QGuiApplication::screenRemoved, this, [this] { finish(); });
    for (QScreen *screen : QGuiApplication::screens())
        connect(screen, &QScreen::geometryChanged, this, [this] { finish(); });
}

OverlayView &CaptureSession::underPointer(OverlayView &otherwise)
{
    const QScreen *screen = m_placer.screenUnderPointer();
    const auto found = std::ranges::find_if(
        m_windows, [&](const auto &window) { return &window->shotScreen() == screen; });
    return found == m_windows.end() ? otherwise : (*found)->view();
}

void CaptureSession::selectionStarted(OverlayView &in)
{
    m_awaitingPointer = false;
    for (const auto &window : m_windows)
        if (&window->view() != &in)
            window->view().discardSelection();
    for (const auto &window : m_windows)
        if (&window->view() == &in && m_keyWindow != window.get())
            makeKey(*window);
}

void CaptureSession::makeKey(OverlayWindow &window)
{
    m_keyWindow = &window;
    m_placer.giveKeyboard(window);
}

// Where nobody can say on which screen the pointer is, the first window that it enters
// tells.
void CaptureSession::pointerEntered(QObject *target)
{
    auto *window = qobject_cast<OverlayWindow *>(target);
    if (!window)
        return;
    m_awaitingPointer = false;
    window->view().lendPicture();
    if (window != m_keyWindow)
        makeKey(*window);
}

// The system may hand the keys to another overlay than the one that is meant to
// have them, or to a window that opened below the overlays, where nobody sees what
// is typed; they are passed on.
bool CaptureSession::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Enter && m_awaitingPointer)
        pointerEntered(watched);
    if (!isKeyboardEvent(event->type()) || !m_keyWindow)
        return false;
    const auto *widget = qobject_cast<QWidget *>(watched);
    const QWidget *window = widget ? widget->window() : nullptr;
    if (!window || window == m_keyWindow || window->windowType() == Qt::Popup || belongsToOverlay(*window))
        return false;
    QWidget *focus = m_keyWindow->focusWidget();
    QCoreApplication::sendEvent(focus ? focus : &m_keyWindow->view(), event);
    return true;
}

void CaptureSession::finish()
{
    if (std::exchange(m_finished, true))
        return;
    qApp->removeEventFilter(this);
    m_frozen.forget();
    m_placer.endSession();
    m_keyWindow = nullptr;
    for (auto &window : std::exchange(m_windows, {})) {
        window->hide();
        // One of them is probably still in the middle of its own event.
        window.release()->deleteLater();
    }
    if (const auto finished = std::exchange(onFinish, nullptr))
        finished();
}

std::vector<QRect> CaptureSession::windowsIn(const ScreenShot &shot) { return m_frozen.framesOn(shot); }

// The dialog comes up on a screen that is no longer covered.
void CaptureSession::print(const QImage &picture)
{
    const auto open = std::exchange(onPrint, nullptr);
    finish();
    if (open)
        open(picture);
}
