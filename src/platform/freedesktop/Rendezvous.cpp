#include "platform/freedesktop/Rendezvous.h"

#include "platform/DisplayChoice.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

constexpr std::pair<Wish, std::string_view> words[]
    = {{Wish::settings, "ajustes"}, {Wish::capture, "capturar"}, {Wish::quit, "salir"}};
constexpr int waiting = 16; // starts that may queue up while the first one is busy

std::string variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

// Others must not be able to put something into it, or to have it made for us.
bool isOurs(const std::string &folder)
{
    struct stat about = {};
    return lstat(folder.c_str(), &about) == 0 && S_ISDIR(about.st_mode) && about.st_uid == geteuid()
           && (about.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

std::optional<sockaddr_un> address(const std::string &path)
{
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    if (path.size() >= sizeof name.sun_path)
        return std::nullopt;
    std::memcpy(name.sun_path, path.data(), path.size());
    return name;
}

struct Candidate {
    std::string folder;
    bool own; // made by us, where it is missing
};

// What is started by a clock or by another user's shell is told nothing of the
// session, but has to find who runs in it.
std::vector<Candidate> candidates()
{
    const std::string runtime = variable("XDG_RUNTIME_DIR");
    const std::string temporary = variable("TMPDIR");
    const std::string cache = variable("XDG_CACHE_HOME");
    const std::string user = std::to_string(geteuid());
    return {{runtime.empty() ? "/run/user/" + user : runtime, false},
            {(temporary.empty() ? "/tmp" : temporary) + "/vellumora-" + user, true},
            {(cache.empty() ? variable("HOME") + "/.cache" : cache) + "/vellumora", true}};
}

std::optional<Rendezvous::Place> placeIn(const std::string &folder, const std::string &display)
{
    const std::string start = folder + "/vellumora-" + display;
    const Rendezvous::Place place{start + ".lock", start + ".socket"};
    return isOurs(folder) && address(place.socket) ? std::optional(place) : std::nullopt;
}

bool isPlain(char letter) { return letter > ' ' && letter <= '~'; }

const sockaddr *generic(const sockaddr_un &name) { return reinterpret_cast<const sockaddr *>(&name); }

// Closed with its owner.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

void limit(int connection, std::chrono::milliseconds patience)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(patience);
    const timeval time
        = {.tv_sec = seconds.count(), .tv_usec = std::chrono::microseconds(patience - seconds).count()};
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
    setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &time, sizeof time);
}

} // namespace

namespace Rendezvous {

std::vector<Place> places()
{
    std::vector<Place> usable;
    const std::string display = DisplayChoice::make().key();
    for (const Candidate &candidate : candidates())
        if (const auto place = placeIn(candidate.folder, display))
            usable.push_back(*place);
    return usable;
}

std::optional<Place> makePlace()
{
    const std::string display = DisplayChoice::make().key();
    for (const Candidate &candidate : candidates()) {
        if (candidate.own)
            mkdir(candidate.folder.c_str(), S_IRWXU); // it may be there already, from us or from others
        if (const auto place = placeIn(candidate.folder, display))
            return place;
    }
    return std::nullopt;
}

Answer ask(const Place &place, Wish wish, std::chrono::milliseconds patience)
{
    const auto name = address(place.socket);
    const Descriptor connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!name || connection.number() < 0)
        return Answer::nobody;
    limit(connection.number(), patience);
    if (connect(connection.number(), generic(*name), sizeof *name) != 0)
        return errno == EAGAIN ? Answer::silent : Answer::nobody;
    const std::string text = message({wish, variable("XDG_ACTIVATION_TOKEN")});
    if (send(connection.number(), text.data(), text.size(), MSG_NOSIGNAL) < 0)
        return errno == EAGAIN ? Answer::silent : Answer::nobody;
    std::array<char, grantedMessage.size()> answer = {};
    const auto got = recv(connection.number(), answer.data(), answer.size(), MSG_WAITALL);
    if (got < 0 && errno == EAGAIN)
        return Answer::silent;
    return std::string_view(answer.data(), answer.size()) == grantedMessage ? Answer::granted
                                                                            : Answer::nobody;
}

std::string message(const Request &request)
{
    const auto *entry = std::ranges::find(words, request.wish, &std::pair<Wish, std::string_view>::first);
    std::string text(entry->second);
    const std::string &token = request.activation;
    if (std::ranges::all_of(token, isPlain) && text.size() + token.size() + 2 <= longestMessage)
        text += (token.empty() ? "" : " ") + token;
    return text + '\n';
}

std::optional<Request> requestIn(std::string_view message)
{
    if (!message.ends_with('\n'))
        return std::nullopt;
    message.remove_suffix(1);
    const std::size_t blank = std::min(message.find(' '), message.size());
    const auto *entry
        = std::ranges::find(words, message.substr(0, blank), &std::pair<Wish, std::string_view>::second);
    const std::string_view token = message.substr(std::min(blank + 1, message.size()));
    if (entry == std::end(words) || !std::ranges::all_of(token, isPlain))
        return std::nullopt;
    return Request{entry->first, std::string(token)};
}

// The lock is let go by the system, whatever the end of the process. It is never
// removed: two processes could hold locks of the same name then.
Lock take(const Place &place)
{
    Descriptor lock(open(place.lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    if (lock.number() < 0)
        return Lock::unusable;
    fchmod(lock.number(), S_ISVTX | S_IRUSR | S_IWUSR); // not to be tidied away
    if (flock(lock.number(), LOCK_EX | LOCK_NB) == 0) {
        (void)lock.release();
        return Lock::taken;
    }
    return errno == EWOULDBLOCK ? Lock::held : Lock::unusable;
}

int listenAt(const Place &place)
{
    const auto name = address(place.socket);
    Descriptor listening(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!name || listening.number() < 0)
        return -1;
    unlink(place.socket.c_str());
    const mode_t former = umask(S_IRWXG | S_IRWXO);
    const bool bound = bind(listening.number(), generic(*name), sizeof *name) == 0;
    umask(former);
    return bound && listen(listening.number(), waiting) == 0 ? listening.release() : -1;
}

} // namespace Rendezvous
