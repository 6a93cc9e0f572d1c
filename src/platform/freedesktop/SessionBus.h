#pragma once

// Answers questions about the user's message bus.
namespace SessionBus {

// Returns true when a bus is already running. Asking Qt instead would start one.
[[nodiscard]] bool present();

// Keeps every library of this process from starting a bus of its own when there is
// none. Must be called before the application object exists.
void doNotStartOne();

} // namespace SessionBus
