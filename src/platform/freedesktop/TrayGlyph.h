#pragma once

#include <QIcon>

enum class PanelLook { light, dark };

// Returns the program's mark in the one colour that suits a panel of that look:
// dark on light, light on dark, with a faint rim in the opposite tone for panels
// that do not follow the desktop.
[[nodiscard]] QIcon trayGlyph(PanelLook look);
