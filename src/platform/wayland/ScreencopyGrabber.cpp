#include "platform/wayland/ScreencopyGrabber.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/OutputCopies.h"

#include "wlr-screencopy-unstable-v1-client.h"

namespace {

constexpr std::uint32_t latestVersion = 3;
constexpr int withoutPointer = 0;

class Copy final : public OutputCopy {
public:
    Copy(OutputCopies &all, std::unique_ptr<Output> asked, zwlr_screencopy_manager_v1 *manager)
        : OutputCopy(all, std::move(asked))
        , m_frame(zwlr_screencopy_manager_v1_capture_output(manager, withoutPointer, output().proxy()))
    {
        zwlr_screencopy_frame_v1_add_listener(m_frame, &listener, this);
    }
    ~Copy() override { zwlr_screencopy_frame_v1_destroy(m_frame); }

private:
    static const zwlr_screencopy_frame_v1_listener listener;

    static Copy &self(void *data) { return *static_cast<Copy *>(data); }

    void send(wl_buffer *buffer, QSize) override { zwlr_screencopy_frame_v1_copy(m_frame, buffer); }

    zwlr_screencopy_frame_v1 *m_frame;
    SharedBuffers::Layout m_layout{};
};

const zwlr_screencopy_frame_v1_listener Copy::listener{
    .buffer =
        [](void *data, zwlr_screencopy_frame_v1 *frame, std::uint32_t format, std::uint32_t width,
           std::uint32_t height, std::uint32_t stride) {
            self(data).m_layout = {format, QSize(int(width), int(height)), int(stride)};
            // Older compositors offer one kind of buffer and do not say that it was the last.
            if (zwlr_screencopy_frame_v1_get_version(frame)
                < ZWLR_SCREENCOPY_FRAME_V1_BUFFER_DONE_SINCE_VERSION)
                self(data).copyInto(self(data).m_layout);
        },
    .flags =
        [](void *data, zwlr_screencopy_frame_v1 *, std::uint32_t flags) {
            const bool inverted = flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT;
            self(data).setRows(inverted ? Rows::bottomFirst : Rows::topFirst);
        },
    .ready = [](void *data, zwlr_screencopy_frame_v1 *, std::uint32_t, std::uint32_t,
                std::uint32_t) { self(data).end(true); },
    .failed = [](void *data, zwlr_screencopy_frame_v1 *) { self(data).end(false); },
    .damage
    = [](void *, zwlr_screencopy_frame_v1 *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .linux_dmabuf = [](void *, zwlr_screencopy_frame_v1 *, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .buffer_done = [](void *data, zwlr_screencopy_frame_v1 *) { self(data).copyInto(self(data).m_layout); },
};

class Protocol final : public CopyProtocol {
public:
    explicit Protocol(const Connection &connection)
        : m_manager(
            connection.bind<zwlr_screencopy_manager_v1>(zwlr_screencopy_manager_v1_interface, latestVersion))
    {}
    ~Protocol() override { zwlr_screencopy_manager_v1_destroy(m_manager); }
    Q_DISABLE_COPY_MOVE(Protocol)

    std::unique_ptr<OutputCopy> ask(OutputCopies &all, std::unique_ptr<Output> output) override
    {
        return std::make_unique<Copy>(all, std::move(output), m_manager);
    }

private:
    zwlr_screencopy_manager_v1 *m_manager;
};

} // namespace

ScreencopyGrabber::ScreencopyGrabber(std::shared_ptr<Connection> connection)
    : CopyGrabber(std::move(connection), {&zwlr_screencopy_manager_v1_interface})
{}

QString ScreencopyGrabber::name() const { return QStringLiteral("wlr-screencopy"); }

std::unique_ptr<CopyProtocol> ScreencopyGrabber::bind(const Connection &connection) const
{
    return std::make_unique<Protocol>(connection);
}
