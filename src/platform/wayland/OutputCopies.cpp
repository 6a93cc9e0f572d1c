#include "platform/wayland/OutputCopies.h"

#include "platform/wayland/ScreenScale.h"

#include <algorithm>
#include <utility>

OutputCopy::OutputCopy(OutputCopies &all, std::unique_ptr<Output> output)
    : m_all(all)
    , m_output(std::move(output))
{}

void OutputCopy::copyInto(const SharedBuffers::Layout &layout)
{
    m_buffer = m_all.m_buffers->take(layout);
    m_image = {};
    if (!m_buffer)
        return end(false);
    send(m_buffer->proxy(), layout.size);
    m_all.m_connection->flush();
    // A large one takes its time, which passes while the compositor copies; but first
    // the other outputs are asked for, and their answers heard, or they would be copied later.
    QMetaObject::invokeMethod(
        &m_all, [this] { lookAtBuffer(); }, Qt::QueuedConnection);
}

void OutputCopy::lookAtBuffer()
{
    if (m_buffer)
        m_image = SharedBuffers::picture(std::exchange(m_buffer, nullptr));
}

void OutputCopy::end(bool copied)
{
    if (!isPending())
        return;
    m_state = copied ? State::copied : State::failed;
    m_all.ended();
}

QImage OutputCopy::take()
{
    if (m_state != State::copied)
        return {};
    lookAtBuffer();
    return upright(std::move(m_image), m_transform.value_or(m_output->transform()), m_rows);
}

OutputCopies::OutputCopies(std::shared_ptr<Connection> connection, std::shared_ptr<SharedBuffers> buffers,
                           std::unique_ptr<CopyProtocol> protocol)
    : m_connection(std::move(connection))
    , m_buffers(std::move(buffers))
    , m_protocol(std::move(protocol))
{}

OutputCopies::~OutputCopies()
{
    m_copies.clear();
    m_protocol.reset();
    m_connection->flush();
}

void OutputCopies::start()
{
    for (auto &output : Outputs::all(*m_connection))
        m_copies.push_back(m_protocol->ask(*this, std::move(output)));
    m_connection->flush();
}

// The session that begins with the pictures does not begin within an event of the
// compositor, or none of its own would come.
void OutputCopies::ended()
{
    if (complete())
        QMetaObject::invokeMethod(this, &OutputCopies::finished, Qt::QueuedConnection);
}

bool OutputCopies::complete() const
{
    return std::ranges::none_of(m_copies, [this](const auto &copy) {
        return copy->isPending() && Outputs::isThere(*m_connection, copy->output());
    });
}

std::vector<ScreenShot> OutputCopies::take()
{
    std::vector<ScreenShot> all;
    for (const auto &copy : m_copies) {
        QScreen *screen = copy->output().screen();
        if (screen && Outputs::isThere(*m_connection, copy->output()))
            all.push_back(ScreenScale::shot(*screen, copy->take()));
    }
    ScreenScale::sort(all);
    return all;
}
