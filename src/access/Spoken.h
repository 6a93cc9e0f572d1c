#pragma once

#include <QAccessible>

class QString;
class QWidget;

// Says what a widget is to the programs that read a screen aloud or operate it for
// somebody, where Qt alone could not tell. Its name and description are those of
// Qt. It costs nothing unless such a program asks.
namespace Spoken {

// The first time must be before anything else is said of the widget, its name included.
// A widget that is a button can be pressed from outside, whatever its role.
void setRole(QWidget &widget, QAccessible::Role role);

// Says which keys do what a press does, such as "Super+Z". The tool tip, which has
// them as symbols, is no longer part of the description.
void setKeys(QWidget &widget, const QString &keys);

// Says whether what the widget stands for is switched on.
void setOn(QWidget &widget, bool on);

// Says whether what the widget opens is open.
void setOpen(QWidget &widget, bool open);

} // namespace Spoken
