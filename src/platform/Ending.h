#pragma once

#include <functional>

// How the program ends when the system wants it to, and how long that may take.
namespace Ending {

// From now on a request of the system to end (SIGTERM, SIGINT, or SIGHUP where
// that is not ignored) does not kill the program but calls the function, once, on
// the main thread, from the event loop. Whatever hinders the program from ending
// then has five seconds. Needs the application object.
void onRequest(std::function<void()> wanted);

// To be called when the event loop is over: what is left to be done, above all
// handing the clipboard to its manager, has two seconds.
void begin();

} // namespace Ending
