#pragma once

#include "platform/WindowList.h"

#include <QByteArray>
#include <QString>

#include <memory>

class QLocalSocket;

// Asks sway for its tree of windows, on the socket that it has for such questions. The
// answer comes by itself and is only read when somebody wants to know.
class SwayWindowList final : public WindowList {
public:
    // Takes the path of that socket.
    explicit SwayWindowList(QString socket);
    ~SwayWindowList() override;

    // Returns the path of the socket; empty in a session of another compositor.
    [[nodiscard]] static QString socket() { return qEnvironmentVariable("SWAYSOCK"); }

    void freeze() override;
    std::vector<QRect> framesOn(const ScreenShot &shot) override;
    void forget() override;

private:
    const QString m_path;
    std::unique_ptr<QLocalSocket> m_socket; // present during a capture
    QByteArray m_answer;                    // what has come of it, with its header
};
