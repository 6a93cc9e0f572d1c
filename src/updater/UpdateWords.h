#pragma once

#include <QString>

// How the updater puts things.
namespace UpdateWords {

void log(const QString &message);

// The text for whatever goes wrong on the way.
[[nodiscard]] QString couldNot(const QString &why);

// Shows line breaks as symbols, so that a text stays on its line.
[[nodiscard]] QString visible(QString text);

} // namespace UpdateWords
