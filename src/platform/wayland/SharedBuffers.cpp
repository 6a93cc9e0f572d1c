#include "platform/wayland/SharedBuffers.h"

#include "platform/wayland/PictureMemory.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace {

constexpr std::uint32_t fourLetters(const char (&name)[5])
{
    return std::uint32_t(name[0]) | std::uint32_t(name[1]) << 8 | std::uint32_t(name[2]) << 16
           | std::uint32_t(name[3]) << 24;
}

constexpr int alignment = 4; // bytes, of every row

struct PixelLayout {
    std::uint32_t format;
    QImage::Format image;
    int bytes; // a pixel
};
// The easiest to read first. A screen is opaque, whatever stands where the opacity would be.
constexpr PixelLayout layouts[] = {
    {WL_SHM_FORMAT_XRGB8888, QImage::Format_RGB32, 4}, {WL_SHM_FORMAT_ARGB8888, QImage::Format_RGB32, 4},
    {fourLetters("XB24"), QImage::Format_RGBX8888, 4}, {fourLetters("AB24"), QImage::Format_RGBX8888, 4},
    {fourLetters("XR30"), QImage::Format_RGB30, 4},    {fourLetters("XB30"), QImage::Format_BGR30, 4},
    {fourLetters("BG24"), QImage::Format_RGB888, 3},   {fourLetters("RG24"), QImage::Format_BGR888, 3},
};

const PixelLayout *layoutOf(std::uint32_t format)
{
    const auto *found = std::ranges::find(layouts, format, &PixelLayout::format);
    return found == std::end(layouts) ? nullptr : found;
}

// What the compositor says is not believed blindly: the picture is read by it.
constexpr int mostPixels = 32768; // along one side

bool makesSense(QSize size)
{
    return !size.isEmpty() && size.width() <= mostPixels && size.height() <= mostPixels;
}

bool makesSense(const SharedBuffers::Layout &layout)
{
    const PixelLayout *pixels = layoutOf(layout.format);
    const QSize size = layout.size;
    return pixels && makesSense(size) && layout.stride % alignment == 0
           && layout.stride >= size.width() * pixels->bytes && layout.stride <= 2 * mostPixels * 4
           && qsizetype(layout.stride) * size.height() <= std::numeric_limits<int>::max();
}

} // namespace

class SharedBuffers::Memory final : public Buffer {
public:
    Memory(const std::shared_ptr<Connection> &connection, wl_shm *shm, const Layout &as)
        : layout(as)
        , descriptor(PictureMemory::make(bytes()))
        , m_connection(connection)
    {
        if (!descriptor.isOpen())
            return;
        wl_shm_pool *pool = wl_shm_create_pool(shm, descriptor.number(), static_cast<int>(bytes()));
        m_buffer
            = wl_shm_pool_create_buffer(pool, 0, as.size.width(), as.size.height(), as.stride, as.format);
        wl_shm_pool_destroy(pool);
    }

    ~Memory() override
    {
        // A picture may outlive the connection; the compositor then lets go by itself.
        if (m_buffer && !m_connection.expired())
            wl_buffer_destroy(m_buffer);
    }

    [[nodiscard]] wl_buffer *proxy() const override { return m_buffer; }
    [[nodiscard]] qsizetype bytes() const { return qsizetype(layout.stride) * layout.size.height(); }

    const Layout layout;
    const Descriptor descriptor;

private:
    std::weak_ptr<Connection> m_connection;
    wl_buffer *m_buffer = nullptr;
};

// What a picture keeps alive while it is looked at.
struct SharedBuffers::Mapping {
    std::shared_ptr<Memory> memory;
    void *address;

    static void release(void *mapping)
    {
        const std::unique_ptr<Mapping> self(static_cast<Mapping *>(mapping));
        const auto bytes = static_cast<size_t>(self->memory->bytes());
        std::memset(self->address, 0, bytes); // what it showed does not outlive it
        munmap(self->address, bytes);
    }
};

SharedBuffers::SharedBuffers(std::shared_ptr<Connection> connection)
    : m_connection(std::move(connection))
    , m_shm(m_connection->bind<wl_shm>(wl_shm_interface, 1))
{}

SharedBuffers::~SharedBuffers()
{
    if (m_shm)
        wl_shm_destroy(m_shm);
}

std::optional<SharedBuffers::Layout> SharedBuffers::layoutFor(QSize size,
                                                              const std::vector<std::uint32_t> &formats)
{
    const auto *pixels = std::ranges::find_if(layouts, [&](const PixelLayout &known) {
        return std::ranges::find(formats, known.format) != formats.end();
    });
    if (pixels == std::end(layouts) || !makesSense(size))
        return std::nullopt;
    int stride = size.width() * pixels->bytes;
    while (stride % alignment != 0)
        stride += pixels->bytes; // compositors want whole pixels
    return Layout{pixels->format, size, stride};
}

std::shared_ptr<SharedBuffers::Buffer> SharedBuffers::take(const Layout &layout)
{
    if (!m_shm || !makesSense(layout))
        return nullptr;
    const auto fits = [&](const std::shared_ptr<Memory> &memory) {
        return memory.use_count() == 1 && memory->layout == layout;
    };
    const auto kept = std::ranges::find_if(m_kept, fits);
    auto memory = kept == m_kept.end() ? std::make_shared<Memory>(m_connection, m_shm, layout) : *kept;
    if (!memory->proxy())
        return nullptr;
    m_used.push_back(memory);
    return memory;
}

QImage SharedBuffers::picture(const std::shared_ptr<Buffer> &buffer)
{
    const auto memory = std::static_pointer_cast<Memory>(buffer);
    const Layout &layout = memory->layout;
    void *address = mmap(nullptr, static_cast<size_t>(memory->bytes()), PROT_READ | PROT_WRITE,
                         MAP_SHARED | MAP_POPULATE, memory->descriptor.number(), 0);
    if (address == MAP_FAILED)
        return {};
    QImage image(static_cast<uchar *>(address), layout.size.width(), layout.size.height(), layout.stride,
                 layoutOf(layout.format)->image, &Mapping::release, new Mapping{memory, address});
    return image;
}

void SharedBuffers::forgetUnused() { m_kept = std::exchange(m_used, {}); }
