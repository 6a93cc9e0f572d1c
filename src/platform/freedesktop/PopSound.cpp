#include "platform/freedesktop/PopSound.h"

#include <QDir>
#include <QFile>

#include <canberra.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// A kernel device that can play. Asking the sound library for one on a machine
// without makes it complain on the terminal.
bool soundCardPresent()
{
    return !QDir(QStringLiteral("/dev/snd")).entryList({QStringLiteral("pcm*p")}, QDir::System).isEmpty();
}

ca_context *opened(const char *driver)
{
    ca_context *context = nullptr;
    if (ca_context_create(&context) != CA_SUCCESS)
        return nullptr;
    if (ca_context_set_driver(context, driver) == CA_SUCCESS && ca_context_open(context) == CA_SUCCESS)
        return context;
    ca_context_destroy(context);
    return nullptr;
}

// A file that nobody has to remove, however the program ends; negative when there
// can be none.
int soundInMemory()
{
    QFile sound(QStringLiteral(":/vellumora/pop.wav"));
    if (!sound.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray bytes = sound.readAll();
    const int memory = memfd_create("pop.wav", MFD_CLOEXEC);
    if (memory >= 0)
        (void)!write(memory, bytes.constData(), static_cast<size_t>(bytes.size()));
    return memory;
}

} // namespace

PopSound::PopSound()
{
    m_thread.setMaxThreadCount(1);
    m_thread.setExpiryTimeout(0);
}

PopSound::~PopSound()
{
    m_thread.waitForDone();
    if (m_context)
        ca_context_destroy(m_context);
    if (m_memory >= 0)
        close(m_memory);
}

void PopSound::play()
{
    m_thread.start([this] { playNow(); });
}

void PopSound::ring()
{
    m_thread.start([this] {
        if (prepare())
            ca_context_play(m_context, 0, CA_PROP_EVENT_ID, "bell-window-system", CA_PROP_APPLICATION_NAME,
                            "Vellumora", CA_PROP_MEDIA_ROLE, "event", nullptr);
    });
}

bool PopSound::audible()
{
    bool answer = false;
    m_thread.start([&] { answer = prepare(); });
    m_thread.waitForDone();
    return answer;
}

bool PopSound::prepare()
{
    if (m_context)
        return true;
    if (m_memory < 0)
        m_memory = soundInMemory();
    if (m_memory < 0)
        return false;
    m_file = QByteArrayLiteral("/proc/self/fd/") + QByteArray::number(m_memory);
    m_context = opened("pulse");
    if (!m_context && soundCardPresent())
        m_context = opened("alsa");
    return m_context != nullptr;
}

void PopSound::playNow()
{
    if (!prepare())
        return;
    // Without a sound device this fails, and silence is the right answer.
    ca_context_play(m_context, 0, CA_PROP_MEDIA_FILENAME, m_file.constData(), CA_PROP_APPLICATION_NAME,
                    "Vellumora", CA_PROP_EVENT_DESCRIPTION, "Pop", CA_PROP_MEDIA_ROLE, "event", nullptr);
}
