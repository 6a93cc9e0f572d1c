#pragma once

#include <cstdint>

// What a mark can be.
enum class Tool : std::uint8_t { pencil, line, arrow, rectangle, ellipse, marker, text, pixelate };
