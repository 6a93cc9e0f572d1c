#include "platform/wayland/LayerSurface.h"

#include "platform/wayland/QtQueue.h"

namespace {

constexpr std::uint32_t knownVersion = 4;
constexpr std::uint32_t destroyableShell = 3;
constexpr std::uint32_t keyboardOnDemand = 4;
constexpr std::int32_t coverAll = -1; // panels too, instead of making room for them
constexpr std::uint32_t allEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM
                                   | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
constexpr int patience = 1000; // milliseconds

} // namespace

std::unique_ptr<LayerShell> LayerShell::bind(std::shared_ptr<QtQueue> queue)
{
    auto *shell = queue->bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, knownVersion);
    return shell ? std::unique_ptr<LayerShell>(new LayerShell(std::move(queue), shell)) : nullptr;
}

LayerShell::LayerShell(std::shared_ptr<QtQueue> queue, zwlr_layer_shell_v1 *shell)
    : m_queue(std::move(queue))
    , m_shell(shell)
{}

LayerShell::~LayerShell()
{
    if (zwlr_layer_shell_v1_get_version(m_shell) >= destroyableShell)
        zwlr_layer_shell_v1_destroy(m_shell);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(m_shell));
}

LayerSurface::LayerSurface(const LayerShell &shell, QWindow &window, QScreen &screen)
    : m_shell(shell)
    , m_surface(QtQueue::surfaceOf(window))
    , m_layer(zwlr_layer_shell_v1_get_layer_surface(shell.shell(), m_surface, QtQueue::outputOf(screen),
                                                    ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "vellumora-overlay"))
{
    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void *self, zwlr_layer_surface_v1 *layer, std::uint32_t serial, std::uint32_t width,
               std::uint32_t height) {
                zwlr_layer_surface_v1_ack_configure(layer, serial);
                static_cast<LayerSurface *>(self)->configure(
                    {static_cast<int>(width), static_cast<int>(height)});
            },
        .closed =
            [](void *self, zwlr_layer_surface_v1 *) {
                if (const auto &closed = static_cast<LayerSurface *>(self)->onClosed)
                    closed();
            },
    };
    zwlr_layer_surface_v1_add_listener(m_layer, &listener, this);
    zwlr_layer_surface_v1_set_anchor(m_layer, allEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_layer, coverAll);
    zwlr_layer_surface_v1_set_size(m_layer, 0, 0); // as the edges have it
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layer,
                                                     ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE);
    commit();
}

LayerSurface::~LayerSurface()
{
    zwlr_layer_surface_v1_destroy(m_layer);
    m_shell.queue().flush();
}

std::optional<QSize> LayerSurface::waitForSize()
{
    m_shell.queue().waitFor([this] { return m_size.has_value(); }, patience);
    return m_size;
}

void LayerSurface::configure(QSize size)
{
    const bool first = !m_size;
    m_size = size;
    if (!first && onSize)
        onSize(size);
}

void LayerSurface::setExclusiveKeyboard(bool exclusive)
{
    const auto otherwise = zwlr_layer_surface_v1_get_version(m_layer) >= keyboardOnDemand
                               ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_ON_DEMAND
                               : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        m_layer, exclusive ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE : otherwise);
    commit();
}

void LayerSurface::commit()
{
    wl_surface_commit(m_surface);
    m_shell.queue().flush();
}
