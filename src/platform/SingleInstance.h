#pragma once

#include <functional>
#include <memory>

// Names what a start of the program may want of the instance that is already
// running.
enum class Wish { settings, capture, quit };

// Lets only one Vellumora run on a display: a second start hands its wish to the
// first one and ends. Each display of a user has an instance of its own.
class SingleInstance {
public:
    enum class Standing {
        first,      // this process is the one that stays
        handedOver, // another process has the wish and will grant it
        unanswered, // another process runs, but does not answer
    };

    virtual ~SingleInstance() = default;

    // Finds out where this process stands; one that is first stays so until it
    // ends. Needs no application object. Waits for a few seconds at most, and only
    // for a process that is just starting, ending or stuck.
    [[nodiscard]] virtual Standing claim(Wish wish) = 0;

    // Begins to receive the wishes of other processes, including those sent since
    // the claim. Needs an application object.
    virtual void serve() = 0;

    // Called on the main thread, from the event loop.
    std::function<void(Wish)> onWish;
};

[[nodiscard]] std::unique_ptr<SingleInstance> makeSingleInstance();

// Hands the wish to the first process, if there is one that answers. Uses only the
// C++ library, so that a start which has nothing else to do need not load anything
// else.
[[nodiscard]] bool handOver(Wish wish);
