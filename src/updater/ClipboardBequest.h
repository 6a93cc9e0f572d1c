#pragma once

#include <QByteArray>

class Clipboard;

// Hands the clipboard's content on from one version to the next, because it dies
// with the program that offers it.
namespace ClipboardBequest {

// Returns everything that this program offers on the clipboard; empty when another
// program owns it.
[[nodiscard]] QByteArray pack(const Clipboard &clipboard);

// Offers the packed content again, unless something has been copied meanwhile.
void offer(const QByteArray &packed, Clipboard &clipboard);

} // namespace ClipboardBequest
