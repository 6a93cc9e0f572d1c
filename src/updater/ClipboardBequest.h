#pragma once

#include <QByteArray>

class Clipboard;

// The clipboard's content dies with the program that offers it, so an update
// hands it on from one version to the next.
namespace ClipboardBequest {

// All that this program offers on the clipboard; empty when another one does.
[[nodiscard]] QByteArray pack(const Clipboard &clipboard);

// Offers it again, unless something has been copied meanwhile.
void offer(const QByteArray &packed, Clipboard &clipboard);

} // namespace ClipboardBequest
