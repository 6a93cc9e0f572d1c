#pragma once

#include <QByteArray>

#include <functional>

// How much an answer from the web may bring, all in bytes. A server that drips
// would hold an answer open for ever, so every stretch of it has a time of its
// own, the first from the call on.
struct DownloadLimits {
    qint64 whole; // at most
    qint64 stretch = whole;
};

// Is given the bytes as they come; false ends the download.
using DownloadSink = std::function<bool(const QByteArray &)>;
