#include "platform/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <memory>

bool QtClipboard::offer(const Formats &formats)
{
    auto data = std::make_unique<QMimeData>();
    for (auto entry = formats.cbegin(); entry != formats.cend(); ++entry)
        data->setData(entry.key(), entry.value());
    const QMimeData *ours = data.get();
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(data.release());
    return clipboard->mimeData() == ours; // unless another program has taken it from us
}

Clipboard::Formats QtClipboard::offered() const
{
    const QClipboard *clipboard = QGuiApplication::clipboard();
    const QMimeData *data = clipboard->ownsClipboard() ? clipboard->mimeData() : nullptr;
    Formats formats;
    if (data)
        for (const QString &format : data->formats())
            formats.insert(format, data->data(format));
    return formats;
}

bool QtClipboard::isEmpty() const
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return !data || data->formats().isEmpty();
}
