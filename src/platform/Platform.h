#pragma once

#include "platform/Desktop.h"
#include "platform/HotKeyService.h"
#include "platform/KeyboardGrab.h"
#include "platform/KeyboardLayout.h"
#include "platform/LoginItem.h"
#include "platform/ScreenGrabber.h"
#include "platform/StatusItem.h"
#include "platform/UpdateInstaller.h"
#include "platform/WindowList.h"
#include "platform/WindowPlacer.h"

#include <QString>

#include <memory>
#include <optional>

// Holds every service of the system that the program runs on. No member is null.
struct Platform {
    std::unique_ptr<ScreenGrabber> screens;
    std::unique_ptr<WindowPlacer> windows;
    std::unique_ptr<WindowList> windowList;
    std::unique_ptr<KeyboardGrab> keyboardGrab;
    std::unique_ptr<KeyboardLayout> keyboard; // outlives the service below, which may ask it
    std::unique_ptr<HotKeyService> hotKeys;
    std::unique_ptr<StatusItem> statusItem;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<Desktop> desktop;
    std::unique_ptr<UpdateInstaller> updates;
};

// Which services are the system's. Those left out answer "not here", and nothing is
// started or asked for their sake.
enum class Services { all, pictures };

// Chooses the back ends for the display that the application object is on. The
// environment variable VELLUMORA_PLATAFORMA ("x11", "wayland" or "none") overrules it.
// Pictures need the screens and the windows.
[[nodiscard]] Platform makePlatform(Services services);

// Prepares the environment of Qt. Must be called before the application object
// exists. Absent when a display can be opened, otherwise a sentence for the user
// that says what is missing.
[[nodiscard]] std::optional<QString> prepareDisplay();

// Prepares the environment of Qt for a run that needs no display, with scale pixels
// per point. Must be called before the application object exists.
void prepareOffscreen(int scale);
