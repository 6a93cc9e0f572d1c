#include "platform/wayland/SurfaceFrames.h"

#include "platform/wayland/PictureMemory.h"
#include "platform/wayland/QtQueue.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr int bytesPerPixel = 4;
constexpr std::size_t usualFrames = 3; // one that shows, one on its way there, one to draw on
// How long to wait for the compositor to let go of one, in milliseconds. It does so once
// it has seen the next, which is sooner than there would be memory for a third.
constexpr int patience = 1000;
constexpr int patienceForTwo = 4;

} // namespace

class SurfaceFrames::Frame {
public:
    Frame(wl_shm *shm, QSize size);
    ~Frame();
    Q_DISABLE_COPY_MOVE(Frame)

    QImage image;       // null when there was no memory
    QRegion stale;      // where other frames have been drawn on since
    bool shown = false; // the compositor may be reading it
    wl_buffer *buffer = nullptr;

private:
    void *m_address;
};

SurfaceFrames::Frame::Frame(wl_shm *shm, QSize size) : stale(QRect({}, size))
{
    const qsizetype stride = qsizetype(size.width()) * bytesPerPixel;
    const qsizetype bytes = stride * size.height();
    const Descriptor memory = PictureMemory::make(bytes);
    if (!memory.isOpen())
        return;
    m_address
        = mmap(nullptr, static_cast<size_t>(bytes), PROT_READ | PROT_WRITE, MAP_SHARED, memory.number(), 0);
    if (m_address == MAP_FAILED)
        return;
    image
        = QImage(static_cast<uchar *>(m_address), size.width(), size.height(), stride, QImage::Format_RGB32);
    wl_shm_pool *pool = wl_shm_create_pool(shm, memory.number(), static_cast<int>(bytes));
    buffer = wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(), static_cast<int>(stride),
                                       WL_SHM_FORMAT_XRGB8888);
    wl_shm_pool_destroy(pool);
    static constexpr wl_buffer_listener listener{
        .release = [](void *self, wl_buffer *) { static_cast<Frame *>(self)->shown = false; }};
    wl_buffer_add_listener(buffer, &listener, this);
}

SurfaceFrames::Frame::~Frame()
{
    if (image.isNull())
        return;
    wl_buffer_destroy(buffer);
    munmap(m_address, static_cast<size_t>(image.sizeInBytes()));
}

SurfaceFrames::SurfaceFrames(std::shared_ptr<QtQueue> queue)
    : m_queue(std::move(queue))
    , m_shm(m_queue->bind<wl_shm>(wl_shm_interface, 1))
{}

SurfaceFrames::~SurfaceFrames()
{
    m_frames.clear();
    if (m_shm)
        wl_shm_destroy(m_shm);
}

void SurfaceFrames::resize(QSize size)
{
    if (size == m_size)
        return;
    m_size = size;
    m_last = nullptr;
    m_frames.clear();
}

QImage *SurfaceFrames::draw(const QRegion &region)
{
    m_queue->dispatch();
    Frame *frame = m_last && !m_last->shown ? m_last : unused();
    if (!frame)
        return nullptr;
    bringUpToDate(*frame, region);
    for (const auto &other : m_frames)
        if (other.get() != frame)
            other->stale += region & QRect({}, m_size);
    m_last = frame;
    return &frame->image;
}

SurfaceFrames::Frame *SurfaceFrames::unused()
{
    const auto isUnused = [](const auto &frame) { return !frame->shown; };
    if (m_frames.size() > 1)
        m_queue->waitFor([&] { return std::ranges::any_of(m_frames, isUnused); },
                         m_frames.size() < usualFrames ? patienceForTwo : patience);
    if (const auto found = std::ranges::find_if(m_frames, isUnused); found != m_frames.end())
        return found->get();
    if (!m_shm || m_size.isEmpty())
        return nullptr;
    auto made = std::make_unique<Frame>(m_shm, m_size);
    if (made->image.isNull())
        return nullptr;
    return m_frames.emplace_back(std::move(made)).get();
}

void SurfaceFrames::bringUpToDate(Frame &frame, const QRegion &except) const
{
    if (m_last && m_last != &frame)
        for (const QRect &rect : frame.stale - except)
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                std::memcpy(frame.image.scanLine(y) + qsizetype(rect.left()) * bytesPerPixel,
                            m_last->image.constScanLine(y) + qsizetype(rect.left()) * bytesPerPixel,
                            static_cast<size_t>(rect.width()) * bytesPerPixel);
    frame.stale = {};
}

wl_buffer *SurfaceFrames::show()
{
    if (!m_last)
        return nullptr;
    m_last->shown = true;
    return m_last->buffer;
}

// One that nobody looks at.
void SurfaceFrames::forgetOne()
{
    const auto found = std::ranges::find_if(
        m_frames, [this](const auto &frame) { return !frame->shown && frame.get() != m_last; });
    if (found != m_frames.end())
        m_frames.erase(found);
}

void SurfaceFrames::makeSpare()
{
    m_queue->dispatch();
    // A compositor that had not answered for a while has made more of them necessary.
    for (std::size_t more = m_frames.size(); more > usualFrames; --more)
        forgetOne();
    if (!m_last || !m_last->shown || m_frames.size() > 1)
        return;
    if (Frame *spare = unused())
        bringUpToDate(*spare, {});
}
