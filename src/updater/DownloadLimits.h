#pragma once

#include <QByteArray>

#include <functional>

// Limits how much an answer from the web may bring, in bytes. A server that sends
// very slowly would hold an answer open for ever, so every stretch of the answer
// has a time limit of its own; the first counts from the call.
struct DownloadLimits {
    qint64 whole; // the longest answer that is accepted
    qint64 stretch = whole;
};

// DownloadSink is called with the bytes as they arrive; false ends the download.
using DownloadSink = std::function<bool(const QByteArray &)>;
