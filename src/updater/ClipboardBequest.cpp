#include "updater/ClipboardBequest.h"

#include "platform/Clipboard.h"

#include <QDataStream>
#include <QIODevice>

namespace {

// Both versions read the same.
constexpr auto form = QDataStream::Qt_6_0;

} // namespace

namespace ClipboardBequest {

QByteArray pack(const Clipboard &clipboard)
{
    const Clipboard::Formats formats = clipboard.offered();
    if (formats.isEmpty())
        return {};
    QByteArray packed;
    QDataStream stream(&packed, QIODevice::WriteOnly);
    stream.setVersion(form);
    stream << formats;
    return packed;
}

void offer(const QByteArray &packed, Clipboard &clipboard)
{
    Clipboard::Formats formats;
    QDataStream stream(packed);
    stream.setVersion(form);
    stream >> formats;
    if (stream.status() == QDataStream::Ok && !formats.isEmpty() && clipboard.isEmpty())
        (void)clipboard.offer(formats); // nobody waits for it
}

} // namespace ClipboardBequest
