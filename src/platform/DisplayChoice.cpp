#include "platform/DisplayChoice.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using Kind = DisplayChoice::Kind;

constexpr const char *firstSocket = "wayland-0"; // where nobody has named another

std::string variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

// The environment of programs that were started by a service manager names the kind of
// the session, but not its socket.
std::string compositorName()
{
    const std::string name = variable("WAYLAND_DISPLAY");
    return name.empty() && variable("XDG_SESSION_TYPE") == "wayland" ? firstSocket : name;
}

bool listens(const std::string &path)
{
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    if (path.size() >= sizeof name.sun_path)
        return false;
    std::memcpy(name.sun_path, path.data(), path.size());
    const int attempt = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const bool reached
        = connect(attempt, reinterpret_cast<const sockaddr *>(&name), sizeof name) == 0 || errno == EAGAIN;
    close(attempt);
    return reached;
}

bool compositorListens()
{
    const std::string name = compositorName();
    return !name.empty() && listens(name.front() == '/' ? name : variable("XDG_RUNTIME_DIR") + '/' + name);
}

std::optional<Kind> kindOf(std::string_view platform)
{
    constexpr struct {
        std::string_view start;
        Kind kind;
    } rows[] = {{"wayland", Kind::wayland},
                {"xcb", Kind::x11},
                {"x11", Kind::x11},
                {"offscreen", Kind::imaginary},
                {"minimal", Kind::imaginary}};
    const auto *row
        = std::ranges::find_if(rows, [&](const auto &each) { return platform.starts_with(each.start); });
    return row == std::end(rows) ? std::nullopt : std::optional(row->kind);
}

// Those of Qt's platforms that are among ours, in the user's order.
std::vector<Kind> chosenInQt()
{
    std::vector<Kind> kinds;
    const std::string all = variable("QT_QPA_PLATFORM");
    for (size_t start = 0; start < all.size();) {
        const size_t end = std::min(all.find(';', start), all.size());
        if (const auto kind = kindOf(std::string_view(all).substr(start, end - start)))
            kinds.push_back(*kind);
        start = end + 1;
    }
    return kinds;
}

bool isThere(Kind kind)
{
    switch (kind) {
    case Kind::wayland: return compositorListens();
    case Kind::x11: return !variable("DISPLAY").empty();
    case Kind::imaginary: return true;
    }
    return false;
}

// What a compositor that has gone has left in the environment must not keep the
// program from an X server.
Kind preferred()
{
    if (compositorName().empty())
        return Kind::x11;
    const bool named = !variable("WAYLAND_DISPLAY").empty();
    const bool alone = named && !isThere(Kind::x11);
    return alone || compositorListens() ? Kind::wayland : Kind::x11;
}

Kind chosen()
{
    const std::vector<Kind> inQt = chosenInQt();
    if (!inQt.empty() && inQt.front() == Kind::imaginary)
        return Kind::imaginary;
    const auto forced = kindOf(variable("VELLUMORA_PLATAFORMA"));
    if (forced && forced != Kind::imaginary)
        return *forced;
    if (inQt.size() == 1)
        return inQt.front();
    const auto found = std::ranges::find_if(inQt, isThere);
    return found == inQt.end() ? preferred() : *found;
}

// An X server has a colon in its name; of its screens the program uses the first one
// only.
std::string withoutScreen(std::string name)
{
    const auto screen = name.find('.', std::min(name.rfind(':'), name.size()));
    if (screen != std::string::npos)
        name.resize(screen);
    return name.starts_with("unix:") ? name.substr(4) : name;
}

// A compositor's socket may be named by its path.
std::string withoutRuntimeFolder(const std::string &name)
{
    const std::string folder = variable("XDG_RUNTIME_DIR") + '/';
    return name.starts_with(folder) ? name.substr(folder.size()) : name;
}

} // namespace

DisplayChoice DisplayChoice::make()
{
    const Kind kind = chosen();
    if (kind != Kind::wayland)
        return {kind, variable("DISPLAY")};
    const std::string name = compositorName();
    return {kind, name.empty() ? firstSocket : name};
}

std::string DisplayChoice::key() const
{
    std::string key = kind == Kind::wayland ? withoutRuntimeFolder(name) : withoutScreen(name);
    std::replace(key.begin(), key.end(), '/', '_');
    return key;
}
