#pragma once

#include "platform/SingleInstance.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Lets the starts of the program on one display meet, by a lock and a socket in a
// folder that only the user can write to. It is written without Qt, because the
// start of a second process is as slow as the libraries that it loads.
namespace Rendezvous {

struct Place {
    std::string lock;   // file locked by the first process for as long as it lives
    std::string socket; // socket that the first process listens on
};

// Returns the places that can be used at the moment, best first: in the user's
// runtime folder, then in folders of our own among the temporary files and in the
// user's cache. Every start looks at the same places.
[[nodiscard]] std::vector<Place> places();
// Returns the best place and creates its folder if necessary; absent when no place
// can be used.
[[nodiscard]] std::optional<Place> makePlace();

enum class Answer {
    granted, // the wish will be granted
    nobody,  // nobody listens there, or the process that did is ending
    silent,  // somebody listens, but has not answered in time
};

// Sends the wish to the process that listens there, with the token that this
// process was started with, and waits for its answer.
[[nodiscard]] Answer ask(const Place &place, Wish wish, std::chrono::milliseconds patience);

// What is sent: the wish, and the token with which the desktop lets a window come to
// the front; empty where the desktop has given none.
struct Request {
    Wish wish;
    std::string activation;

    bool operator==(const Request &) const = default;
};
inline constexpr std::size_t longestMessage = 256; // bytes

// Convert a request to and from its form on the socket; a token that is no plain
// word is left out. The answer goes the other way; each ends with a line end.
[[nodiscard]] std::string message(const Request &request);
[[nodiscard]] std::optional<Request> requestIn(std::string_view message);
inline constexpr std::string_view grantedMessage = "ok\n";

// Takes the lock of a place without waiting, for as long as the process lives.
enum class Lock { taken, held, unusable };
[[nodiscard]] Lock take(const Place &place);

// Returns a socket that listens there, after removing what an earlier process has
// left. Needs the lock. Negative when no socket can be made.
[[nodiscard]] int listenAt(const Place &place);

} // namespace Rendezvous
