#include "platform/wayland/OutputCopies.h"

#include "platform/wayland/ScreenScale.h"
#include "platform/wayland/Upright.h"

#include "wlr-screencopy-unstable-v1-client.h"

#include <algorithm>

namespace {

constexpr std::uint32_t latestVersion = 3;
constexpr int withoutPointer = 0;

} // namespace

struct OutputCopies::Copy {
    enum class State { asked, copied, failed };

    OutputCopies &all;
    std::unique_ptr<Output> output;
    zwlr_screencopy_frame_v1 *frame = nullptr;
    SharedBuffers::Layout layout{};
    QImage image; // what the compositor writes into
    Rows rows = Rows::topFirst;
    State state = State::asked;

    static const zwlr_screencopy_frame_v1_listener listener;
};

const zwlr_screencopy_frame_v1_listener OutputCopies::Copy::listener{
    .buffer =
        [](void *data, zwlr_screencopy_frame_v1 *frame, std::uint32_t format, std::uint32_t width,
           std::uint32_t height, std::uint32_t stride) {
            auto &copy = *static_cast<Copy *>(data);
            copy.layout = {format, QSize(int(width), int(height)), int(stride)};
            // Older compositors offer one kind of buffer and do not say that it was the last.
            if (zwlr_screencopy_frame_v1_get_version(frame)
                < ZWLR_SCREENCOPY_FRAME_V1_BUFFER_DONE_SINCE_VERSION)
                copy.all.ask(copy);
        },
    .flags =
        [](void *data, zwlr_screencopy_frame_v1 *, std::uint32_t flags) {
            const bool inverted = flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT;
            static_cast<Copy *>(data)->rows = inverted ? Rows::bottomFirst : Rows::topFirst;
        },
    .ready =
        [](void *data, zwlr_screencopy_frame_v1 *, std::uint32_t, std::uint32_t, std::uint32_t) {
            auto &copy = *static_cast<Copy *>(data);
            copy.all.end(copy, true);
        },
    .failed =
        [](void *data, zwlr_screencopy_frame_v1 *) {
            auto &copy = *static_cast<Copy *>(data);
            copy.all.end(copy, false);
        },
    .damage
    = [](void *, zwlr_screencopy_frame_v1 *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .linux_dmabuf = [](void *, zwlr_screencopy_frame_v1 *, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .buffer_done =
        [](void *data, zwlr_screencopy_frame_v1 *) {
            auto &copy = *static_cast<Copy *>(data);
            copy.all.ask(copy);
        },
};

OutputCopies::OutputCopies(std::shared_ptr<Connection> connection, std::shared_ptr<SharedBuffers> buffers)
    : m_connection(std::move(connection))
    , m_buffers(std::move(buffers))
    , m_manager(
          m_connection->bind<zwlr_screencopy_manager_v1>(zwlr_screencopy_manager_v1_interface, latestVersion))
{}

OutputCopies::~OutputCopies()
{
    for (const auto &copy : m_copies)
        zwlr_screencopy_frame_v1_destroy(copy->frame);
    m_copies.clear();
    if (m_manager)
        zwlr_screencopy_manager_v1_destroy(m_manager);
    m_connection->flush();
}

void OutputCopies::start()
{
    if (!m_manager)
        return;
    for (auto &output : Outputs::all(*m_connection)) {
        auto copy = std::make_unique<Copy>(*this, std::move(output));
        copy->frame
            = zwlr_screencopy_manager_v1_capture_output(m_manager, withoutPointer, copy->output->proxy());
        zwlr_screencopy_frame_v1_add_listener(copy->frame, &Copy::listener, copy.get());
        m_copies.push_back(std::move(copy));
    }
    m_connection->flush();
}

void OutputCopies::ask(Copy &copy)
{
    const auto buffer = m_buffers->take(copy.layout);
    if (!buffer)
        return end(copy, false);
    zwlr_screencopy_frame_v1_copy(copy.frame, buffer->proxy());
    m_connection->flush();
    // Takes its time for a large picture, which passes while the compositor copies.
    copy.image = SharedBuffers::picture(buffer);
}

// The session that begins with the pictures does not begin within an event of the
// compositor, or none of its own would come.
void OutputCopies::end(Copy &copy, bool copied)
{
    copy.state = copied ? Copy::State::copied : Copy::State::failed;
    if (complete())
        QMetaObject::invokeMethod(this, &OutputCopies::finished, Qt::QueuedConnection);
}

bool OutputCopies::complete() const
{
    return std::ranges::none_of(m_copies, [](const auto &copy) { return copy->state == Copy::State::asked; });
}

std::vector<ScreenShot> OutputCopies::take()
{
    std::vector<ScreenShot> all;
    for (const auto &copy : m_copies) {
        QScreen *screen = copy->output->screen();
        if (!screen || !Outputs::isThere(*m_connection, *copy->output))
            continue;
        QImage image;
        if (copy->state == Copy::State::copied) {
            // Not before: what the compositor copies has no opacity.
            SharedBuffers::makeOpaque(copy->image);
            image = upright(std::move(copy->image), copy->output->transform(), copy->rows);
        }
        all.push_back(ScreenScale::shot(*screen, image));
    }
    ScreenScale::sort(all);
    return all;
}
