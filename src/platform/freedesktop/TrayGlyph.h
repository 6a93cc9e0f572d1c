#pragma once

#include <QIcon>

enum class PanelLook { light, dark };

// The program's mark in one colour, as a panel of that look wants it: dark on
// light, light on dark, with a faint rim in the opposite tone for panels that
// do not follow the desktop.
[[nodiscard]] QIcon trayGlyph(PanelLook look);
