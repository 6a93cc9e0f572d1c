#include "platform/Ending.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThreadPool>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <utility>

namespace {

constexpr unsigned afterRequest = 5; // seconds
constexpr unsigned afterEventLoop = 2;

int requests[2] = {-1, -1}; // a pipe: what a signal may write to
volatile std::sig_atomic_t requested = 0;

void endNow(int) { _exit(EXIT_SUCCESS); }

void request(int)
{
    if (requested)
        return;
    requested = 1;
    alarm(afterRequest);
    const char any = 0;
    (void)!write(requests[1], &any, 1);
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

bool ignored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

struct PoolAtRest {
    ~PoolAtRest()
    {
        if (QCoreApplication::instance()) // else it has waited itself, and the pool may be gone
            QThreadPool::globalInstance()->waitForDone();
    }
};

} // namespace

namespace Ending {

void onRequest(std::function<void()> wanted)
{
    if (pipe2(requests, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *arrival = new QSocketNotifier(requests[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(arrival, &QSocketNotifier::activated, arrival, [arrival, wanted = std::move(wanted)] {
        arrival->setEnabled(false);
        wanted();
    });
    handle(SIGALRM, endNow);
    handle(SIGTERM, request);
    handle(SIGINT, request);
    if (!ignored(SIGHUP))
        handle(SIGHUP, request);
}

void begin()
{
    handle(SIGALRM, endNow);
    alarm(afterEventLoop);
}

void awaitPool()
{
    // exit() destroys what belongs to its thread before anything static, whenever
    // that was made; a function registered with atexit() would come too late for
    // what is made after it.
    thread_local const PoolAtRest atExit;
    (void)atExit;
}

} // namespace Ending
