#pragma once

#include <QFuture>
#include <QList>
#include <QNetworkProxy>
#include <QUrl>

// The proxies that the system's settings name. Finding them may mean to fetch
// and run a script of the network's, which can take for ever.
namespace SystemProxies {

using List = QList<QNetworkProxy>;

// Looks them up beside the calling thread.
[[nodiscard]] QFuture<List> of(const QUrl &address);

// Whether a look-up goes on. It cannot be ended, and the libraries wait for it
// when the process ends in the usual way.
[[nodiscard]] bool isBusy();

} // namespace SystemProxies
