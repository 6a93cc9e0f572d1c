#pragma once

#include "platform/SingleInstance.h"

#include <QSocketNotifier>

#include <optional>

// Finds the others through a lock and a socket of the file system, which are
// there without any bus and can be reached before anything is loaded.
class SocketInstance final : public SingleInstance {
public:
    SocketInstance() = default;
    ~SocketInstance() override;
    Q_DISABLE_COPY_MOVE(SocketInstance)

    // Where no folder can be used, every process is the first.
    Standing claim(Wish wish) override;
    void serve() override;

private:
    [[nodiscard]] bool becomeFirst();
    void welcome();

    int m_listening = -1;
    std::optional<QSocketNotifier> m_arrivals;
};
