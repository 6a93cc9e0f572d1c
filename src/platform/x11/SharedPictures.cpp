#include "platform/x11/SharedPictures.h"

#include "platform/x11/Xcb.h"

#include <QCoreApplication>

#include <sys/ipc.h>
#include <sys/shm.h>
#include <xcb/shm.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr int bitsPerPixel = 32;

struct PixelLayout {
    std::uint32_t red, green, blue;
    QImage::Format format;
};
constexpr PixelLayout layouts[] = {
    {0xff0000, 0x00ff00, 0x0000ff, QImage::Format_RGB32},
    {0x3ff00000, 0x000ffc00, 0x000003ff, QImage::Format_RGB30},
    {0x000003ff, 0x000ffc00, 0x3ff00000, QImage::Format_BGR30},
};

const xcb_visualtype_t *rootVisual()
{
    const auto *screen = Xcb::screen();
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem; xcb_depth_next(&depth))
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual))
            if (visual.data->visual_id == screen->root_visual)
                return visual.data;
    return nullptr;
}

int rootBitsPerPixel()
{
    const auto *setup = xcb_get_setup(Xcb::connection());
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem; xcb_format_next(&format))
        if (format.data->depth == Xcb::screen()->root_depth)
            return format.data->bits_per_pixel;
    return 0;
}

} // namespace

// Memory that the server is attached to. Marked for removal at once, so that a
// crash leaves nothing behind; Linux lets it be mapped again for as long as the
// server holds on to it.
class SharedPictures::Segment {
public:
    explicit Segment(size_t size) : bytes(size), m_memory(shmget(IPC_PRIVATE, size, IPC_CREAT | 0600))
    {
        if (m_memory < 0)
            return;
        auto *c = Xcb::connection();
        id = xcb_generate_id(c);
        const Xcb::Reply<xcb_generic_error_t> error(
            xcb_request_check(c, xcb_shm_attach_checked(c, id, static_cast<std::uint32_t>(m_memory), 0)));
        attached = !error;
        if (!attached)
            shmctl(m_memory, IPC_RMID, nullptr);
    }

    ~Segment()
    {
        // A picture may outlive the connection; the server then lets go by itself.
        if (attached && QCoreApplication::instance())
            xcb_shm_detach(Xcb::connection(), id);
    }

    Q_DISABLE_COPY_MOVE(Segment)

    [[nodiscard]] void *map()
    {
        void *address = shmat(m_memory, nullptr, 0);
        shmctl(m_memory, IPC_RMID, nullptr);
        return address == reinterpret_cast<void *>(-1) ? nullptr : address;
    }

    const size_t bytes;
    xcb_shm_seg_t id = 0;
    bool attached = false;

private:
    int m_memory;
};

// What a picture keeps alive while it is looked at.
struct SharedPictures::Mapping {
    std::shared_ptr<Segment> segment;
    void *address;

    static void release(void *mapping)
    {
        const std::unique_ptr<Mapping> self(static_cast<Mapping *>(mapping));
        // The server keeps the memory for the next capture, but not what was on the screen.
        std::memset(self->address, 0, self->segment->bytes);
        shmdt(self->address);
    }
};

QImage::Format SharedPictures::rootFormat()
{
    const auto *visual = rootVisual();
    if (!visual || rootBitsPerPixel() != bitsPerPixel)
        return QImage::Format_Invalid;
    const auto *layout = std::ranges::find_if(layouts, [&](const PixelLayout &l) {
        return l.red == visual->red_mask && l.green == visual->green_mask && l.blue == visual->blue_mask;
    });
    return layout == std::end(layouts) ? QImage::Format_Invalid : layout->format;
}

QImage SharedPictures::take(const QRect &area, QImage::Format format)
{
    const qsizetype line = qsizetype(area.width()) * (bitsPerPixel / 8);
    auto segment = freeSegment(static_cast<size_t>(line * area.height()));
    void *address = segment ? segment->map() : nullptr;
    if (!address)
        return {};
    auto *c = Xcb::connection();
    const auto cookie = xcb_shm_get_image(
        c, Xcb::root(), static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
        static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height()), ~0U,
        XCB_IMAGE_FORMAT_Z_PIXMAP, segment->id, 0);
    const Xcb::Reply<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(c, cookie, nullptr));
    if (!reply) {
        shmdt(address);
        return {};
    }
    m_used.push_back(segment);
    return {static_cast<uchar *>(address), area.width(), area.height(), line, format, &Mapping::release,
            new Mapping{segment, address}};
}

void SharedPictures::forgetUnused() { m_segments = std::exchange(m_used, {}); }

std::shared_ptr<SharedPictures::Segment> SharedPictures::freeSegment(size_t bytes)
{
    if (!Xcb::hasExtension(&xcb_shm_id))
        return nullptr;
    const auto fits = [&](const std::shared_ptr<Segment> &segment) {
        return segment.use_count() == 1 && segment->bytes == bytes;
    };
    if (const auto kept = std::ranges::find_if(m_segments, fits); kept != m_segments.end())
        return *kept;
    auto fresh = std::make_shared<Segment>(bytes);
    return fresh->attached ? fresh : nullptr;
}
