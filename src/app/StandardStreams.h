#pragma once

// Guards the three streams that every program is started with.
namespace StandardStreams {

// Must be called before anything is opened. Where the program was started without a
// stream, the next file or connection would take its place, and with it whatever the
// program prints; writing there fails instead.
void keepTheirPlaces();

} // namespace StandardStreams
