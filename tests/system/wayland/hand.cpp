// Moves the mouse and presses keys on a Wayland desktop, as it is told on standard input:
//
//   hand WIDTH HEIGHT   of the whole desktop in points
//
//   move X Y            in points of the desktop, y down
//   button CODE 1|0     the kernel's code; down or up
//   key CODE 1|0
//
// Answers every line with "done" once the compositor has heard it, and a line that it
// does not understand with "what?". The devices last as long as the program runs.
#include "Hand.h"

#include <wayland-client.h>

#include <QCoreApplication>

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace {

std::unique_ptr<Hand> findHand(wl_display *display, std::uint32_t width, std::uint32_t height)
{
    if (auto hand = makeWlrootsHand(display, width, height))
        return hand;
    if (auto hand = makeKwinHand(display))
        return hand;
    return makeMutterHand(width, height);
}

bool obey(Hand &hand, const std::string &line)
{
    std::istringstream words(line);
    std::string verb;
    double first = 0, second = 0;
    if (!(words >> verb >> first >> second))
        return false;
    if (verb == "move")
        hand.moveTo(first, second);
    else if (verb == "button")
        hand.button(static_cast<std::uint32_t>(first), second != 0);
    else if (verb == "key")
        hand.key(static_cast<std::uint32_t>(first), second != 0);
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    wl_display *display = wl_display_connect(nullptr);
    if (argc != 3 || !display)
        return EXIT_FAILURE;
    const auto hand = findHand(display, static_cast<std::uint32_t>(std::atoi(argv[1])),
                               static_cast<std::uint32_t>(std::atoi(argv[2])));
    if (!hand) {
        std::cerr << "hand: this compositor lets nobody press keys\n";
        return EXIT_FAILURE;
    }
    std::cout << "ready" << std::endl;
    for (std::string line; hand->settle() && std::getline(std::cin, line);) {
        const bool understood = obey(*hand, line) && hand->settle();
        std::cout << (understood ? "done" : "what?") << std::endl;
    }
    return EXIT_SUCCESS;
}
