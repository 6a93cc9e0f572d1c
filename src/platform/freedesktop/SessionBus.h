#pragma once

// The user's message bus, if there is one.
namespace SessionBus {

// True when a bus is running already. Asking Qt would start one.
[[nodiscard]] bool present();

// Without a bus, keeps every library of this process from starting one of its
// own. Before the application object exists.
void doNotStartOne();

} // namespace SessionBus
