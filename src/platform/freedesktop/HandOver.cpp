#include "platform/freedesktop/Rendezvous.h"

#include <algorithm>

using namespace std::chrono_literals;

bool handOver(Wish wish)
{
    return std::ranges::any_of(Rendezvous::places(), [wish](const Rendezvous::Place &place) {
        return Rendezvous::ask(place, wish, 300ms) == Rendezvous::Answer::granted;
    });
}
