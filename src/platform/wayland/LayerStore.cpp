#include "platform/wayland/LayerStore.h"

#include "base/ViewSpace.h"
#include "platform/wayland/QtQueue.h"

#include <QBackingStore>
#include <QLibraryInfo>
#include <QVersionNumber>
#include <QWidget>
#include <QWindow>
#include <private/qguiapplication_p.h>
#include <private/qwidget_p.h>
#include <private/qwidgetrepaintmanager_p.h>
#include <qpa/qplatformintegration.h>
#include <qpa/qplatformwindow.h>

#include <limits>

namespace {

// A step of the hand that comes right after a frame of the glow is worth replacing that
// for. Any more would only keep the compositor from what it does.
constexpr int mostUnseen = 2;
constexpr int everywhere = std::numeric_limits<int>::max();
constexpr int mostRects = 64; // more cost the compositor more than what lies between them

double scaleOf(const QWindow &window) { return window.handle()->devicePixelRatio(); }

QRegion pixelsOf(const QRegion &region, const QWindow &window)
{
    return ViewSpace(window.size(), scaleOf(window)).pixelsOf(region);
}

// Qt asks the platform for a window's store and takes none from anywhere else.
class Supplier final : public QPlatformIntegration {
public:
    explicit Supplier(std::shared_ptr<QtQueue> queue) : m_queue(std::move(queue)) {}

    QPlatformBackingStore *createPlatformBackingStore(QWindow *window) const override
    {
        return new LayerStore(window, m_queue);
    }
    QPlatformWindow *createPlatformWindow(QWindow *) const override { return nullptr; }
    QAbstractEventDispatcher *createEventDispatcher() const override { return nullptr; }

    // The window has been made, so nothing but the store is asked for.
    std::unique_ptr<QBackingStore> storeFor(QWindow &window)
    {
        QPlatformIntegration *platform = std::exchange(QGuiApplicationPrivate::platform_integration, this);
        auto store = std::make_unique<QBackingStore>(&window);
        QGuiApplicationPrivate::platform_integration = platform;
        return store;
    }

private:
    std::shared_ptr<QtQueue> m_queue;
};

} // namespace

void LayerStore::giveTo([[maybe_unused]] QWidget &window,
                        [[maybe_unused]] const std::shared_ptr<QtQueue> &queue)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
    // A program that was built with this version may run with a later one.
    if (QLibraryInfo::version() >= QVersionNumber(6, 5))
        return;
    QTLWExtra &extra = *QWidgetPrivate::get(&window)->topData();
    delete std::exchange(extra.backingStore, Supplier(queue).storeFor(*window.windowHandle()).release());
    if (extra.repaintManager)
        extra.repaintManager->setBackingStore(extra.backingStore);
#endif
}

LayerStore::LayerStore(QWindow *window, std::shared_ptr<QtQueue> queue)
    : QPlatformBackingStore(window)
    , m_queue(std::move(queue))
    , m_frames(m_queue)
{}

LayerStore::~LayerStore()
{
    if (m_frame)
        wl_callback_destroy(m_frame);
}

QPaintDevice *LayerStore::paintDevice() { return m_picture ? m_picture : &m_nowhere; }

void LayerStore::resize(const QSize &size, const QRegion &)
{
    m_frames.resize((QSizeF(size) * scaleOf(*window())).toSize());
    m_picture = nullptr;
}

void LayerStore::beginPaint(const QRegion &region)
{
    m_picture = m_frames.draw(pixelsOf(region, *window()));
    if (!m_picture) {
        m_nowhere = QImage(1, 1, QImage::Format_RGB32);
        return;
    }
    m_picture->setDevicePixelRatio(scaleOf(*window()));
    if (!std::exchange(m_nowhere, {}).isNull())
        window()->requestUpdate(); // of the whole: what has been lost is not known
}

void LayerStore::flush(QWindow *, const QRegion &region, const QPoint &offset)
{
    m_damage += pixelsOf(region.translated(offset), *window());
    if (m_unseen < mostUnseen)
        show();
}

void LayerStore::show()
{
    wl_surface *surface = QtQueue::surfaceOf(*window());
    wl_buffer *buffer = surface && window()->isExposed() ? m_frames.show() : nullptr;
    if (!buffer)
        return;
    wl_surface_attach(surface, buffer, 0, 0);
    damage(surface);
    if (!m_frame)
        awaitFrame(surface);
    ++m_unseen;
    wl_surface_commit(surface);
    m_queue->flush();
}

void LayerStore::damage(wl_surface *surface)
{
    if (wl_proxy_get_version(reinterpret_cast<wl_proxy *>(surface))
        < WL_SURFACE_DAMAGE_BUFFER_SINCE_VERSION) {
        m_damage = {};
        return wl_surface_damage(surface, 0, 0, everywhere, everywhere);
    }
    if (m_damage.rectCount() > mostRects)
        m_damage = m_damage.boundingRect();
    for (const QRect &rect : std::exchange(m_damage, {}))
        wl_surface_damage_buffer(surface, rect.x(), rect.y(), rect.width(), rect.height());
}

// The compositor says when it wants the next picture.
void LayerStore::awaitFrame(wl_surface *surface)
{
    static constexpr wl_callback_listener listener{.done = [](void *data, wl_callback *, std::uint32_t) {
        auto *self = static_cast<LayerStore *>(data);
        wl_callback_destroy(std::exchange(self->m_frame, nullptr));
        self->m_unseen = 0;
        self->m_damage.isEmpty() ? self->m_frames.makeSpare() : self->show();
    }};
    m_frame = m_queue->frameOf(surface);
    wl_callback_add_listener(m_frame, &listener, this);
}
