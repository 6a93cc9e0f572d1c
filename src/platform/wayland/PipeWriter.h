#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

// Writes bytes into a pipe, as fast as somebody reads them and without ever waiting.
// Deletes itself when all is written or the reader has gone.
class PipeWriter final : public QObject {
public:
    // The pipe becomes its own.
    PipeWriter(int pipe, QByteArray bytes, QObject *parent);
    ~PipeWriter() override;

private:
    void write();

    const int m_pipe;
    const QByteArray m_bytes;
    qsizetype m_written = 0;
    QSocketNotifier m_room;
};
