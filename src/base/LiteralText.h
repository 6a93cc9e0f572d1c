#pragma once

#include <QString>

// Returns the text for a menu or a button that would take a single ampersand as
// the mark of a key and underline what follows it.
[[nodiscard]] inline QString literalText(QString text) { return text.replace(u'&', QStringLiteral("&&")); }
