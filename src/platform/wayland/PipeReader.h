#pragma once

#include "platform/freedesktop/Descriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <span>

// Reads so many bytes from a pipe as they come, without waiting for them.
class PipeReader final : public QObject {
    Q_OBJECT

public:
    // The place for the bytes has to outlive it.
    PipeReader(Descriptor pipe, std::span<uchar> into);

    // Whether all bytes have come.
    [[nodiscard]] bool complete() const { return m_missing.empty(); }

signals:
    // All bytes have come, or the writer has closed its end.
    void ended();

private:
    void read();

    const Descriptor m_pipe;
    std::span<uchar> m_missing;
    QSocketNotifier m_arrivals;
};
