#pragma once

#include "platform/wayland/SurfaceFrames.h"

#include <qpa/qplatformbackingstore.h>

#include <memory>

class QWidget;
class QtQueue;

// What Qt keeps a layer's picture in. Qt's own copies the whole of it before each step
// wherever the compositor still reads the last one, which takes longer than painting
// the step; so this takes its place.
class LayerStore final : public QPlatformBackingStore {
public:
    // Gives one to a window that has been made, but not shown. Does nothing with versions
    // of Qt later than 6.4, with which it has not been tried.
    static void giveTo(QWidget &window, const std::shared_ptr<QtQueue> &queue);

    LayerStore(QWindow *window, std::shared_ptr<QtQueue> queue);
    ~LayerStore() override;
    Q_DISABLE_COPY_MOVE(LayerStore)

    QPaintDevice *paintDevice() override;
    void resize(const QSize &size, const QRegion &staticContents) override;
    void beginPaint(const QRegion &region) override;
    void flush(QWindow *window, const QRegion &region, const QPoint &offset) override;

private:
    void show();
    void damage(wl_surface *surface);
    void awaitFrame(wl_surface *surface);

    std::shared_ptr<QtQueue> m_queue;
    SurfaceFrames m_frames;
    QImage *m_picture = nullptr; // being drawn
    QImage m_nowhere;            // drawn on while there is no memory, else null
    QRegion m_damage;            // not shown yet, in device pixels
    int m_unseen = 0;            // pictures, since the compositor wanted one
    wl_callback *m_frame = nullptr;
};
