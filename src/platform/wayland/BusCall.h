#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>

// Calls over the message bus that nobody waits for with folded hands.
namespace BusCall {

// Sends the call and returns what came back: a reply, or an error when there is
// none in time.
[[nodiscard]] QCoro::Task<QDBusMessage> ask(QDBusConnection bus, QDBusMessage call,
                                            std::chrono::milliseconds patience);

} // namespace BusCall
