#pragma once

#include <functional>

// Ends the program when the system wants it to, within a limited time.
namespace Ending {

// Makes a request of the system to end (SIGTERM, SIGINT, or SIGHUP unless it is
// ignored) call the function instead of killing the program: once, on the main
// thread, from the event loop. Whatever then keeps the program from ending has five
// seconds. Needs the application object.
void onRequest(std::function<void()> wanted);

// Must be called when the event loop is over. What is left to be done, above all
// handing the clipboard to its manager, then has two seconds.
void begin();

// Makes the calling thread wait for the work of the global thread pool before it
// leaves the process. A toolkit that has lost its display calls exit() wherever it
// is, and what it then destroys is still needed by whoever paints in the pool.
void awaitPool();

} // namespace Ending
