#include "cli/signal_watcher.h"

#include <pthread.h>
#include <signal.h>

namespace kirameki::cli {

namespace {

sigset_t WatchedSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGUSR1);  // wakes the watcher when it is no longer needed
    return set;
}

}  // namespace

SignalWatcher::SignalWatcher() {
    const sigset_t set = WatchedSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    watcher_ = std::thread([this, set] {
        for (;;) {
            int signal = 0;
            if (sigwait(&set, &signal) != 0)
                continue;
            if (stopping_.load())
                return;
            if (signal == SIGINT || signal == SIGTERM)
                interrupted_.store(true);
        }
    });
}

SignalWatcher::~SignalWatcher() {
    stopping_.store(true);
    pthread_kill(watcher_.native_handle(), SIGUSR1);
    watcher_.join();
}

}  // namespace kirameki::cli
