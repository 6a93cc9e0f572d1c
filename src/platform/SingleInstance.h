#pragma once

#include <functional>
#include <memory>

// What a start of the program may want of the one that runs already.
enum class Wish { settings, capture };

// Lets only one Vellumora run on a display: a second start hands its wish to the
// first one and ends. Two displays of one user have one each.
class SingleInstance {
public:
    enum class Standing {
        first,      // this process is the one that stays
        handedOver, // another one has the wish and will grant it
        unanswered, // another one runs, but does not answer
    };

    virtual ~SingleInstance() = default;

    // Finds out which it is; a process that is first stays so until it is gone.
    // Needs no application object. Waits for a few seconds at most, and only for
    // a process that is just starting, ending or stuck.
    [[nodiscard]] virtual Standing claim(Wish wish) = 0;

    // Begins to hear the wishes of others, also of those who asked since the
    // claim. Needs an application object.
    virtual void serve() = 0;

    // Called on the main thread, from the event loop.
    std::function<void(Wish)> onWish;
};

[[nodiscard]] std::unique_ptr<SingleInstance> makeSingleInstance();

// Hands the wish to the process that is first, if that is at hand and answers.
// Uses nothing but the C++ library, so that a start which has nothing else to do
// need not load anything else either.
[[nodiscard]] bool handOver(Wish wish);
