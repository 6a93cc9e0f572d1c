#pragma once

#include <QString>

// Returns the text with every ampersand doubled, for menus and buttons, which would
// otherwise take an ampersand as the mark of a mnemonic and underline the next
// letter.
[[nodiscard]] inline QString literalText(QString text) { return text.replace(u'&', QStringLiteral("&&")); }
