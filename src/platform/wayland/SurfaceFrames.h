#pragma once

#include <QImage>
#include <QRegion>
#include <QSize>

#include <wayland-client.h>

#include <memory>
#include <vector>

class QtQueue;

// The pictures that a surface shows, one after the other. A compositor may read the last
// of them for as long as it shows, and the next is drawn on another; of what has been
// drawn on others in the meantime only that is copied which is not drawn anew. All sizes
// and regions are device pixels, y downwards.
class SurfaceFrames {
public:
    explicit SurfaceFrames(std::shared_ptr<QtQueue> queue);
    ~SurfaceFrames();
    Q_DISABLE_COPY_MOVE(SurfaceFrames)

    // From now on pictures of this size are drawn.
    void resize(QSize size);
    // Returns the picture for drawing that region of it anew. Around the region it is
    // what was drawn last. Null when there is no memory.
    [[nodiscard]] QImage *draw(const QRegion &region);
    // Returns what was drawn last, for the compositor to show until it lets go of it.
    // Null when nothing has been drawn.
    [[nodiscard]] wl_buffer *show();
    // Sees to it that the next picture need not wait for the compositor, nor for memory, and
    // that no more are kept than that takes.
    void makeSpare();

private:
    class Frame;

    [[nodiscard]] Frame *unused();
    void forgetOne();
    void bringUpToDate(Frame &frame, const QRegion &except) const;

    std::shared_ptr<QtQueue> m_queue;
    wl_shm *m_shm;
    QSize m_size;
    std::vector<std::unique_ptr<Frame>> m_frames;
    Frame *m_last = nullptr; // what was drawn last
};
