#pragma once

#include <QSize>

#include <wlr-layer-shell-unstable-v1-client.h>

#include <functional>
#include <memory>
#include <optional>

class QtQueue;
class QScreen;
class QWindow;

// What makes layers: surfaces that the compositor keeps above panels and full-screen
// programs.
class LayerShell {
public:
    // Null where the compositor has no layers.
    [[nodiscard]] static std::unique_ptr<LayerShell> bind(std::shared_ptr<QtQueue> queue);
    ~LayerShell();

    [[nodiscard]] QtQueue &queue() const { return *m_queue; }
    [[nodiscard]] zwlr_layer_shell_v1 *shell() const { return m_shell; }

private:
    LayerShell(std::shared_ptr<QtQueue> queue, zwlr_layer_shell_v1 *shell);

    std::shared_ptr<QtQueue> m_queue;
    zwlr_layer_shell_v1 *m_shell;
};

// Gives a window of Qt's that has no role yet the role of the topmost layer over a whole
// output. Has to go before Qt hides the window, which takes the surface with it.
class LayerSurface {
public:
    // The window has a surface, but is not shown yet. The shell must outlive the layer.
    LayerSurface(const LayerShell &shell, QWindow &window, QScreen &screen);
    ~LayerSurface();
    LayerSurface(const LayerSurface &) = delete;
    LayerSurface &operator=(const LayerSurface &) = delete;

    // Called on the main thread with the size that the compositor wants, in points, when
    // that changes later on.
    std::function<void(QSize)> onSize;
    // Called when the compositor has taken the surface off the screen for good.
    std::function<void()> onClosed;

    // Waits for the compositor's first word, which has to come before the window shows;
    // absent when it does not come.
    [[nodiscard]] std::optional<QSize> waitForSize();

    // Whether the keys go to this layer alone or, where the compositor has that, only
    // after a click.
    void setExclusiveKeyboard(bool exclusive);

private:
    void configure(QSize size);
    void commit();

    const LayerShell &m_shell;
    wl_surface *m_surface;
    zwlr_layer_surface_v1 *m_layer;
    std::optional<QSize> m_size;
};
