#include "platform/wayland/ExtCopyGrabber.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/OutputCopies.h"

#include "ext-image-capture-source-v1-client.h"
#include "ext-image-copy-capture-v1-client.h"

#include <utility>

namespace {

constexpr std::uint32_t version = 1;
constexpr std::uint32_t withoutPointer = 0;
constexpr int mostAttempts = 5; // of a compositor that wants something else each time

struct Managers {
    ext_output_image_capture_source_manager_v1 *sources;
    ext_image_copy_capture_manager_v1 *sessions;
};

// What the compositor wants to copy into; it may want something else later on.
struct Constraints {
    QSize size; // device pixels
    std::vector<std::uint32_t> formats = {};
};

// A session on the output and in it one frame at a time. A frame that failed because
// of its buffer is followed by another one, with a buffer as is wanted now.
class Copy final : public OutputCopy {
public:
    Copy(OutputCopies &all, std::unique_ptr<Output> asked, const Managers &managers)
        : OutputCopy(all, std::move(asked))
        , m_source(
              ext_output_image_capture_source_manager_v1_create_source(managers.sources, output().proxy()))
        , m_session(
              ext_image_copy_capture_manager_v1_create_session(managers.sessions, m_source, withoutPointer))
    {
        ext_image_copy_capture_session_v1_add_listener(m_session, &sessionListener, this);
    }
    ~Copy() override
    {
        destroyFrame();
        ext_image_copy_capture_session_v1_destroy(m_session);
        ext_image_capture_source_v1_destroy(m_source);
    }

private:
    static const ext_image_copy_capture_session_v1_listener sessionListener;
    static const ext_image_copy_capture_frame_v1_listener frameListener;

    static Copy &self(void *data) { return *static_cast<Copy *>(data); }

    void constrained();
    void attempt();
    void failed(std::uint32_t reason);
    void send(wl_buffer *buffer, QSize size) override;
    void destroyFrame();

    ext_image_capture_source_v1 *m_source;
    ext_image_copy_capture_session_v1 *m_session;
    ext_image_copy_capture_frame_v1 *m_frame = nullptr;
    Constraints m_arriving;
    std::optional<Constraints> m_wanted; // absent once a frame was asked for by them
    int m_attempts = 0;
};

const ext_image_copy_capture_session_v1_listener Copy::sessionListener{
    .buffer_size =
        [](void *data, ext_image_copy_capture_session_v1 *, std::uint32_t width, std::uint32_t height) {
            self(data).m_arriving.size = {int(width), int(height)};
        },
    .shm_format = [](void *data, ext_image_copy_capture_session_v1 *,
                     std::uint32_t format) { self(data).m_arriving.formats.push_back(format); },
    .dmabuf_device = [](void *, ext_image_copy_capture_session_v1 *, wl_array *) {},
    .dmabuf_format = [](void *, ext_image_copy_capture_session_v1 *, std::uint32_t, wl_array *) {},
    .done = [](void *data, ext_image_copy_capture_session_v1 *) { self(data).constrained(); },
    .stopped = [](void *data, ext_image_copy_capture_session_v1 *) { self(data).end(false); },
};

const ext_image_copy_capture_frame_v1_listener Copy::frameListener{
    .transform
    = [](void *data, ext_image_copy_capture_frame_v1 *,
         std::uint32_t transform) { self(data).setTransform(static_cast<wl_output_transform>(transform)); },
    .damage = [](void *, ext_image_copy_capture_frame_v1 *, int, int, int, int) {},
    .presentation_time
    = [](void *, ext_image_copy_capture_frame_v1 *, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .ready = [](void *data, ext_image_copy_capture_frame_v1 *) { self(data).end(true); },
    .failed
    = [](void *data, ext_image_copy_capture_frame_v1 *, std::uint32_t reason) { self(data).failed(reason); },
};

void Copy::constrained()
{
    m_wanted = std::exchange(m_arriving, {});
    if (!m_frame)
        attempt();
}

void Copy::attempt()
{
    if (!isPending())
        return;
    const Constraints wanted = *std::exchange(m_wanted, std::nullopt);
    const auto layout = SharedBuffers::layoutFor(wanted.size, wanted.formats);
    if (!layout || m_attempts++ == mostAttempts)
        return end(false);
    copyInto(*layout);
}

void Copy::send(wl_buffer *buffer, QSize size)
{
    m_frame = ext_image_copy_capture_session_v1_create_frame(m_session);
    ext_image_copy_capture_frame_v1_add_listener(m_frame, &frameListener, this);
    ext_image_copy_capture_frame_v1_attach_buffer(m_frame, buffer);
    // Nothing of what the buffer may hold is of this moment.
    ext_image_copy_capture_frame_v1_damage_buffer(m_frame, 0, 0, size.width(), size.height());
    ext_image_copy_capture_frame_v1_capture(m_frame);
}

// What is wanted instead may have been said before or is said soon.
void Copy::failed(std::uint32_t reason)
{
    destroyFrame();
    if (reason != EXT_IMAGE_COPY_CAPTURE_FRAME_V1_FAILURE_REASON_BUFFER_CONSTRAINTS)
        end(false);
    else if (m_wanted)
        attempt();
}

void Copy::destroyFrame()
{
    if (m_frame)
        ext_image_copy_capture_frame_v1_destroy(std::exchange(m_frame, nullptr));
}

class Protocol final : public CopyProtocol {
public:
    explicit Protocol(const Connection &connection)
        : m_managers{connection.bind<ext_output_image_capture_source_manager_v1>(
                         ext_output_image_capture_source_manager_v1_interface, version),
                     connection.bind<ext_image_copy_capture_manager_v1>(
                         ext_image_copy_capture_manager_v1_interface, version)}
    {}
    ~Protocol() override
    {
        ext_output_image_capture_source_manager_v1_destroy(m_managers.sources);
        ext_image_copy_capture_manager_v1_destroy(m_managers.sessions);
    }
    Q_DISABLE_COPY_MOVE(Protocol)

    std::unique_ptr<OutputCopy> ask(OutputCopies &all, std::unique_ptr<Output> output) override
    {
        return std::make_unique<Copy>(all, std::move(output), m_managers);
    }

private:
    Managers m_managers;
};

} // namespace

ExtCopyGrabber::ExtCopyGrabber(std::shared_ptr<Connection> connection)
    : CopyGrabber(std::move(connection), {&ext_output_image_capture_source_manager_v1_interface,
                                          &ext_image_copy_capture_manager_v1_interface})
{}

QString ExtCopyGrabber::name() const { return QStringLiteral("ext-image-copy-capture"); }

std::unique_ptr<CopyProtocol> ExtCopyGrabber::bind(const Connection &connection) const
{
    return std::make_unique<Protocol>(connection);
}
