#pragma once

#include <QFuture>
#include <QList>
#include <QNetworkProxy>
#include <QUrl>

// Finds the proxies that the system's settings name. That may mean fetching and
// running a script from the network, which can take for ever.
namespace SystemProxies {

using List = QList<QNetworkProxy>;

// Looks up the proxies for an address on a thread of its own.
[[nodiscard]] QFuture<List> of(const QUrl &address);

// Returns whether a look-up is going on. It cannot be cancelled, and the libraries
// wait for it when the process ends in the usual way.
[[nodiscard]] bool isBusy();

} // namespace SystemProxies
