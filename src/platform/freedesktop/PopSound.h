#pragma once

#include <QByteArray>
#include <QThreadPool>

struct ca_context;

// The short sound after a copy, and a bell, played by the desktop's sound server.
class PopSound {
public:
    PopSound();
    ~PopSound();
    Q_DISABLE_COPY_MOVE(PopSound)

    // Returns at once. The sound server may take its time or not exist, so it is
    // spoken to in a thread of its own.
    void play();
    // The same for the bell of the desktop's sound theme, if that has one.
    void ring();
    // Whether a sound server or a device answers; waits for it.
    [[nodiscard]] bool audible();

private:
    [[nodiscard]] bool prepare();
    void playNow();

    QByteArray m_file; // the path of the sound; the sound library plays files only
    int m_memory = -1; // what the file is made of
    ca_context *m_context = nullptr;
    QThreadPool m_thread; // last, so that it ends first
};
