#include "platform/freedesktop/SocketInstance.h"

#include "platform/freedesktop/ActivationToken.h"
#include "platform/freedesktop/Rendezvous.h"

#include <QDeadlineTimer>
#include <QThread>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 3s;
constexpr auto answerComes = 1s; // or that process is ending
constexpr auto betweenTries = 5ms;

// A start that has come to ask. It goes once it has been heard.
class Guest final : public QObject {
public:
    // The connection becomes its own. The wish is reported once.
    Guest(int connection, std::function<void(Wish)> grant)
        : m_connection(connection)
        , m_words(connection, QSocketNotifier::Read)
        , m_grant(std::move(grant))
    {
        connect(&m_words, &QSocketNotifier::activated, this, [this] { hear(); });
    }

    ~Guest() override { close(m_connection); }
    Q_DISABLE_COPY_MOVE(Guest)

private:
    void hear()
    {
        m_words.setEnabled(false);
        deleteLater();
        std::array<char, Rendezvous::longestMessage> text = {};
        const auto length = recv(m_connection, text.data(), text.size(), MSG_DONTWAIT);
        const auto request
            = Rendezvous::requestIn({text.data(), static_cast<size_t>(std::max<ssize_t>(length, 0))});
        if (!request || hasGone())
            return;
        const auto answer = Rendezvous::grantedMessage;
        (void)send(m_connection, answer.data(), answer.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (request->wish == Wish::settings)
            adoptActivation(QByteArray::fromStdString(request->activation));
        m_grant(request->wish);
    }

    // Who has given up asking may have asked again, or done without.
    [[nodiscard]] bool hasGone() const
    {
        pollfd state = {.fd = m_connection, .events = POLLRDHUP, .revents = 0};
        return poll(&state, 1, 0) > 0;
    }

    const int m_connection;
    QSocketNotifier m_words;
    const std::function<void(Wish)> m_grant;
};

} // namespace

SocketInstance::~SocketInstance()
{
    m_arrivals.reset();
    if (m_listening >= 0)
        close(m_listening);
}

SingleInstance::Standing SocketInstance::claim(Wish wish)
{
    const QDeadlineTimer deadline(patience);
    do {
        for (const auto &place : Rendezvous::places())
            if (Rendezvous::ask(place, wish, answerComes) == Rendezvous::Answer::granted)
                return Standing::handedOver;
        if (becomeFirst())
            return Standing::first;
        QThread::usleep(std::chrono::microseconds(betweenTries).count());
    } while (!deadline.hasExpired());
    return Standing::unanswered;
}

bool SocketInstance::becomeFirst()
{
    const auto place = Rendezvous::makePlace();
    if (!place)
        return true;
    const auto lock = Rendezvous::take(*place);
    if (lock == Rendezvous::Lock::taken)
        m_listening = Rendezvous::listenAt(*place);
    return lock != Rendezvous::Lock::held;
}

void SocketInstance::serve()
{
    if (m_listening < 0)
        return;
    m_arrivals.emplace(m_listening, QSocketNotifier::Read);
    QObject::connect(&*m_arrivals, &QSocketNotifier::activated, &*m_arrivals, [this] { welcome(); });
}

void SocketInstance::welcome()
{
    const int connection = accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (connection < 0)
        return;
    auto *guest = new Guest(connection, [this](Wish wish) {
        if (onWish)
            onWish(wish);
    });
    guest->setParent(&*m_arrivals);
}
