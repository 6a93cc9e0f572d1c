#include "updater/ClipboardBequest.h"

#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QIODevice>
#include <QMap>
#include <QMimeData>

#include <memory>

namespace {

using Formats = QMap<QString, QByteArray>;

// Both versions read the same.
constexpr auto form = QDataStream::Qt_6_0;

} // namespace

namespace ClipboardBequest {

QByteArray pack()
{
    const QClipboard *clipboard = QGuiApplication::clipboard();
    const QMimeData *data = clipboard->ownsClipboard() ? clipboard->mimeData() : nullptr;
    if (!data)
        return {};
    Formats formats;
    for (const QString &format : data->formats())
        formats.insert(format, data->data(format));
    QByteArray packed;
    QDataStream stream(&packed, QIODevice::WriteOnly);
    stream.setVersion(form);
    stream << formats;
    return packed;
}

void offer(const QByteArray &packed)
{
    Formats formats;
    QDataStream stream(packed);
    stream.setVersion(form);
    stream >> formats;
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (stream.status() != QDataStream::Ok || formats.isEmpty()
        || !clipboard->mimeData()->formats().isEmpty())
        return;
    auto data = std::make_unique<QMimeData>();
    for (auto entry = formats.cbegin(); entry != formats.cend(); ++entry)
        data->setData(entry.key(), entry.value());
    clipboard->setMimeData(data.release());
}

} // namespace ClipboardBequest
