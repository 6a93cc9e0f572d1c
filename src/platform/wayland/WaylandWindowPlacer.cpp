#include "platform/wayland/WaylandWindowPlacer.h"

#include "platform/wayland/LayerPopups.h"
#include "platform/wayland/LayerStore.h"
#include "platform/wayland/LayerSurface.h"
#include "platform/wayland/QtQueue.h"

#include <QScreen>
#include <QWindow>

namespace {

constexpr auto ordinaryFlags = Qt::Window | Qt::FramelessWindowHint;

// Makes the platform's window, but does not show it yet.
QWindow &prepare(QWidget &window, QScreen &screen, Qt::WindowFlags flags)
{
    window.setWindowFlags(flags);
    window.setScreen(&screen);
    window.setGeometry(screen.geometry());
    window.winId();
    window.windowHandle()->setScreen(&screen);
    return *window.windowHandle();
}

} // namespace

WaylandWindowPlacer::WaylandWindowPlacer(std::shared_ptr<QtQueue> queue)
    : m_queue(std::move(queue))
    , m_shell(LayerShell::bind(m_queue))
{}

WaylandWindowPlacer::~WaylandWindowPlacer() = default;

void WaylandWindowPlacer::beginSession()
{
    const bool menusClosed = OrdinaryWindows::closeMenus();
    const auto windows = OrdinaryWindows::visible();
    if (windows.empty() && !menusClosed)
        return;
    m_ownWindows.hide(windows);
    m_queue->roundtrip();
}

void WaylandWindowPlacer::cover(QWidget &window, QScreen &screen)
{
    OrdinaryWindows::exempt(window);
    auto layer = m_shell ? showAsLayer(window, screen) : nullptr;
    if (!layer)
        showFullScreen(window, screen);
    else if (!m_popups)
        m_popups = std::make_unique<LayerPopups>();
    m_overlays.push_back({&window, std::move(layer)});
}

// Null when the compositor has not made one.
std::unique_ptr<LayerSurface> WaylandWindowPlacer::showAsLayer(QWidget &window, QScreen &screen)
{
    QWindow &handle = prepare(window, screen, ordinaryFlags | Qt::BypassWindowManagerHint);
    auto layer = std::make_unique<LayerSurface>(*m_shell, handle, screen);
    const auto size = layer->waitForSize();
    if (!size)
        return nullptr;
    LayerStore::giveTo(window, m_queue);
    // The layer is still in the middle of its event, which may have come while Qt was
    // about to paint; and closing ends the session.
    layer->onSize = [&window](QSize wanted) {
        QMetaObject::invokeMethod(
            &window, [&window, wanted] { window.resize(wanted); }, Qt::QueuedConnection);
    };
    layer->onClosed = [&window] {
        QMetaObject::invokeMethod(
            &window, [&window] { window.close(); }, Qt::QueuedConnection);
    };
    window.resize(size->isEmpty() ? screen.size() : *size);
    window.show();
    return layer;
}

void WaylandWindowPlacer::showFullScreen(QWidget &window, QScreen &screen)
{
    prepare(window, screen, ordinaryFlags);
    window.showFullScreen();
}

// A compositor gives the keys to one exclusive layer only, and the first of them
// wherever it is.
void WaylandWindowPlacer::giveKeyboard(QWidget &window)
{
    for (const Overlay &overlay : m_overlays)
        if (overlay.layer && overlay.window != &window)
            overlay.layer->setExclusiveKeyboard(false);
    for (const Overlay &overlay : m_overlays) {
        if (overlay.window != &window)
            continue;
        if (overlay.layer)
            overlay.layer->setExclusiveKeyboard(true);
        else
            window.activateWindow();
    }
    window.focusWidget() ? window.focusWidget()->setFocus() : window.setFocus();
}

void WaylandWindowPlacer::endSession()
{
    m_popups.reset();
    m_overlays.clear();
    m_ownWindows.restore();
}
