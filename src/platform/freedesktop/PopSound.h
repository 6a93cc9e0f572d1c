#pragma once

#include <QByteArray>
#include <QThreadPool>

struct ca_context;

// Plays the short sound after a copy, and a bell, through the desktop's sound server.
class PopSound {
public:
    PopSound();
    ~PopSound();
    Q_DISABLE_COPY_MOVE(PopSound)

    // Plays the sound and returns at once. The sound server may be slow or missing,
    // so a thread of its own talks to it.
    void play();
    // Rings the bell of the desktop's sound theme, if that has one, and returns at once.
    void ring();
    // Returns whether a sound server or a device answers; waits for the answer.
    [[nodiscard]] bool audible();

private:
    [[nodiscard]] bool prepare();
    void playNow();

    QByteArray m_file; // the path of the sound; the sound library plays files only
    int m_memory = -1; // descriptor of the memory that the file lies in
    ca_context *m_context = nullptr;
    QThreadPool m_thread; // last, so that it ends first
};
