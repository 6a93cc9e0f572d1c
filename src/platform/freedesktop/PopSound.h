#pragma once

#include <QTemporaryFile>
#include <QThreadPool>

#include <memory>

struct ca_context;

// The short sound after a copy, played by the desktop's sound server.
class PopSound {
public:
    PopSound();
    ~PopSound();
    Q_DISABLE_COPY_MOVE(PopSound)

    // Returns at once. The sound server may take its time or not exist, so it is
    // spoken to in a thread of its own.
    void play();
    // Whether a sound server or a device answers; waits for it.
    [[nodiscard]] bool audible();

private:
    [[nodiscard]] bool prepare();
    void playNow();

    QTemporaryFile m_file; // the server plays files only
    ca_context *m_context = nullptr;
    QThreadPool m_thread; // last, so that it ends first
};
