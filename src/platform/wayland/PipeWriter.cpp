#include "platform/wayland/PipeWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>

namespace {

constexpr qsizetype atOnce = 1024 * 1024; // bytes; then the user has a turn

// Writing for a reader that has gone raises a signal that ends the process. It is kept
// from this thread for as long as this lives.
class WithoutPipeSignal {
public:
    WithoutPipeSignal()
    {
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &m_pipe, &m_former);
    }

    ~WithoutPipeSignal()
    {
        const timespec atOnceOrNever = {};
        while (sigtimedwait(&m_pipe, nullptr, &atOnceOrNever) < 0 && errno == EINTR) {
        }
        pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
    }
    Q_DISABLE_COPY_MOVE(WithoutPipeSignal)

private:
    sigset_t m_pipe = {};
    sigset_t m_former = {};
};

} // namespace

PipeWriter::PipeWriter(int pipe, QByteArray bytes, QObject *parent)
    : QObject(parent)
    , m_pipe(pipe)
    , m_bytes(std::move(bytes))
    , m_room(pipe, QSocketNotifier::Write)
{
    fcntl(m_pipe, F_SETFL, fcntl(m_pipe, F_GETFL) | O_NONBLOCK);
    fcntl(m_pipe, F_SETPIPE_SZ, static_cast<int>(atOnce)); // refused where pipes are few
    connect(&m_room, &QSocketNotifier::activated, this, &PipeWriter::write);
}

PipeWriter::~PipeWriter()
{
    m_room.setEnabled(false);
    close(m_pipe);
}

void PipeWriter::write()
{
    const WithoutPipeSignal quiet;
    const qsizetype length = std::min(m_bytes.size() - m_written, atOnce);
    const ssize_t written = ::write(m_pipe, m_bytes.constData() + m_written, static_cast<size_t>(length));
    if (written > 0)
        m_written += written;
    const bool goes = written >= 0 || errno == EAGAIN || errno == EINTR;
    if (goes && m_written < m_bytes.size())
        return;
    m_room.setEnabled(false);
    deleteLater();
}
