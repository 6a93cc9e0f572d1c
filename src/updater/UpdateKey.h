#pragma once

#include <QByteArray>

// Provides the one key that updates are trusted by.
namespace UpdateKey {

// Returns a PEM "PUBLIC KEY" block of a P-256 key, chosen when the program was
// built.
[[nodiscard]] QByteArray pem();

} // namespace UpdateKey
