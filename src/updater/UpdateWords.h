#pragma once

#include <QString>

// Words the updater's messages.
namespace UpdateWords {

void log(const QString &message);

// Returns the text for anything that goes wrong during an update.
[[nodiscard]] QString couldNot(const QString &why);

// Returns the text with line breaks as visible symbols, so that it stays on one
// line.
[[nodiscard]] QString visible(QString text);

} // namespace UpdateWords
