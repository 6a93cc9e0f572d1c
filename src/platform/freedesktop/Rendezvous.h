#pragma once

#include "platform/SingleInstance.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Where the starts of the program on one display meet: a lock and a socket in a
// folder that nobody but the user can write to. Written without Qt, because the
// start of a second process is as slow as the libraries that it loads.
namespace Rendezvous {

struct Place {
    std::string lock;   // held by the process that is first, for as long as it lives
    std::string socket; // where it listens
};

// The places that can be used at the moment, best first: in the user's runtime
// folder, then in folders of our own among the temporary files and in the user's
// cache. Every start looks at the same ones.
[[nodiscard]] std::vector<Place> places();
// The best place, whose folder is made if there is none yet; absent when none of
// them can be used.
[[nodiscard]] std::optional<Place> makePlace();

enum class Answer {
    granted, // it will be done
    nobody,  // nobody listens there, or who did is ending
    silent,  // somebody listens, but has not answered in time
};

// Asks whoever listens there.
[[nodiscard]] Answer ask(const Place &place, Wish wish, std::chrono::milliseconds patience);

// What goes over the socket: a wish one way and the answer the other, each with
// its line end.
[[nodiscard]] std::string_view message(Wish wish);
[[nodiscard]] std::optional<Wish> wishIn(std::string_view message);
inline constexpr std::string_view grantedMessage = "ok\n";

// Takes the lock of a place without waiting, for as long as the process lives.
enum class Lock { taken, held, unusable };
[[nodiscard]] Lock take(const Place &place);

// A socket that listens there; what an earlier process has left is removed.
// Needs the lock. Negative when there can be none.
[[nodiscard]] int listenAt(const Place &place);

} // namespace Rendezvous
