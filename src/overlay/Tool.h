#pragma once

#include <QChar>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

// What a mark can be.
enum class Tool : std::uint8_t { pencil, line, arrow, rectangle, ellipse, marker, text, pixelate };

inline constexpr std::array<Tool, 8> allTools{Tool::pencil,  Tool::line,   Tool::arrow, Tool::rectangle,
                                              Tool::ellipse, Tool::marker, Tool::text,  Tool::pixelate};

// A stroke that follows the hand; every other mark has two ends or one origin.
[[nodiscard]] constexpr bool isFreehand(Tool tool) { return tool == Tool::pencil || tool == Tool::marker; }

// In the interface language.
[[nodiscard]] QString label(Tool tool);
// The key that chooses the tool, in upper case.
[[nodiscard]] char16_t keyLetter(Tool tool);
[[nodiscard]] std::optional<Tool> toolForLetter(QChar letter);
