#pragma once

#include <QString>

#include <optional>

// What has to be known and done before Qt opens its own connection to the compositor,
// because it ends the process when it cannot.
namespace Compositor {

// Returns what is missing, as the rest of a sentence; absent when the compositor answers
// and Qt can talk to it. Waits for a few seconds at most.
[[nodiscard]] std::optional<QString> problem(const QString &name);

// Prepares the environment of Qt.
void prepareQt(const QString &name);

} // namespace Compositor
