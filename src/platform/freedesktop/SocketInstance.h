#pragma once

#include "platform/SingleInstance.h"

#include <QSocketNotifier>

#include <optional>

// Finds other instances through a lock and a socket in the file system, which need
// no bus and can be reached before anything is loaded.
class SocketInstance final : public SingleInstance {
public:
    SocketInstance() = default;
    ~SocketInstance() override;
    Q_DISABLE_COPY_MOVE(SocketInstance)

    // Claims as described in SingleInstance. Where no folder can be used, every
    // process is the first.
    Standing claim(Wish wish) override;
    void serve() override;

private:
    [[nodiscard]] bool becomeFirst();
    void welcome();

    int m_listening = -1;
    std::optional<QSocketNotifier> m_arrivals;
};
