#pragma once

#include <string>

// The display that this start of the program works on. All starts in the same
// environment choose the same one. Written without Qt, because a second start has to
// find the first one before it loads anything.
struct DisplayChoice {
    enum class Kind {
        x11,
        wayland,
        imaginary, // seen by Qt alone; the name is that of the X server beside it
    };

    Kind kind;
    std::string name; // as the environment has it; empty when there is none

    // Asks the environment, and a compositor's socket where that is in doubt. What
    // the user has chosen through VELLUMORA_PLATAFORMA or QT_QPA_PLATFORM is kept,
    // whether or not it is there; of several platforms the first that is. Else a
    // compositor is preferred to an X server, which then is only its guest.
    [[nodiscard]] static DisplayChoice make();

    // Returns the same for all names of one display, and nothing that a file's name
    // cannot hold.
    [[nodiscard]] std::string key() const;
};
