#pragma once

#include <array>
#include <cstdint>

// Names the kinds of marks.
enum class Tool : std::uint8_t { pencil, line, arrow, rectangle, ellipse, marker, text, pixelate };

// Lists the tools in the order in which they stand in the bar.
inline constexpr std::array allTools{Tool::pencil,  Tool::line,   Tool::arrow, Tool::rectangle,
                                     Tool::ellipse, Tool::marker, Tool::text,  Tool::pixelate};
