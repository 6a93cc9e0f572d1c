#include "platform/wayland/SwayWindowList.h"

#include "platform/wayland/SwayTree.h"

#include <QLocalSocket>

#include <cstring>

namespace {

constexpr char magic[] = {'i', '3', '-', 'i', 'p', 'c'};
constexpr std::uint32_t getTree = 4;
constexpr qsizetype mostBytes = 1 << 24; // thousands of windows

// In the byte order of the machine, as the compositor writes it.
struct Numbers {
    std::uint32_t length; // bytes of what follows
    std::uint32_t type;
};
constexpr qsizetype headerLength = sizeof magic + sizeof(Numbers);

QByteArray question()
{
    const Numbers numbers{0, getTree};
    return QByteArray(magic, sizeof magic)
        .append(reinterpret_cast<const char *>(&numbers), qsizetype(sizeof numbers));
}

// What stands behind the header; empty while it is not complete.
QByteArray contentOf(const QByteArray &answer)
{
    if (answer.size() < headerLength || !answer.startsWith(QByteArrayView(magic, sizeof magic)))
        return {};
    Numbers numbers{};
    std::memcpy(&numbers, answer.data() + sizeof magic, sizeof numbers);
    const bool whole = numbers.type == getTree && answer.size() - headerLength >= qsizetype(numbers.length);
    return whole ? answer.mid(headerLength, qsizetype(numbers.length)) : QByteArray();
}

} // namespace

SwayWindowList::SwayWindowList(QString socket) : m_path(std::move(socket)) {}

SwayWindowList::~SwayWindowList() = default;

void SwayWindowList::freeze()
{
    forget();
    m_socket = std::make_unique<QLocalSocket>();
    QObject::connect(m_socket.get(), &QLocalSocket::readyRead, m_socket.get(), [this] {
        m_answer += m_socket->readAll();
        if (m_answer.size() > mostBytes)
            m_socket->abort();
    });
    m_socket->connectToServer(m_path);
    m_socket->write(question());
    m_socket->flush();
}

std::vector<QRect> SwayWindowList::framesOn(const ScreenShot &shot)
{
    return SwayTree::framesOn(shot, contentOf(m_answer));
}

void SwayWindowList::forget()
{
    m_socket.reset();
    m_answer.clear();
}
