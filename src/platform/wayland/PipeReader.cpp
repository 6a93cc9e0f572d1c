#include "platform/wayland/PipeReader.h"

#include <cerrno>

PipeReader::PipeReader(Descriptor pipe, std::span<uchar> into)
    : m_pipe(std::move(pipe))
    , m_missing(into)
    , m_arrivals(m_pipe.number(), QSocketNotifier::Read)
{
    fcntl(m_pipe.number(), F_SETFL, fcntl(m_pipe.number(), F_GETFL) | O_NONBLOCK);
    connect(&m_arrivals, &QSocketNotifier::activated, this, &PipeReader::read);
}

// What is there at the moment; the event loop calls again when there is more.
void PipeReader::read()
{
    const ssize_t got = ::read(m_pipe.number(), m_missing.data(), m_missing.size());
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    m_missing = m_missing.subspan(static_cast<size_t>(std::max<ssize_t>(got, 0)));
    if (got > 0 && !complete())
        return;
    m_arrivals.setEnabled(false);
    emit ended();
}
