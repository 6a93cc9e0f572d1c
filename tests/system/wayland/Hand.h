#pragma once

#include <cstdint>
#include <memory>

struct wl_display;

// The mouse and the keyboard of a test, as far as a compositor lets a program have them.
class Hand {
public:
    Hand() = default;
    Hand(const Hand &) = delete;
    virtual ~Hand() = default;

    // In points of the desktop, y down.
    virtual void moveTo(double x, double y) = 0;
    // Codes of the kernel's input events.
    virtual void button(std::uint32_t code, bool down) = 0;
    virtual void key(std::uint32_t code, bool down) = 0;
    // Waits until the compositor has heard all of it; false when it is gone.
    virtual bool settle() = 0;
};

// Each null where the compositor does not offer what it needs. Width and height are
// those of the whole desktop, in points.
std::unique_ptr<Hand> makeWlrootsHand(wl_display *display, std::uint32_t width, std::uint32_t height);
std::unique_ptr<Hand> makeKwinHand(wl_display *display);
std::unique_ptr<Hand> makeMutterHand(std::uint32_t width, std::uint32_t height);
