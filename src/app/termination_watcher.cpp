#include "app/termination_watcher.h"

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace kirameki {

namespace {

sigset_t TerminationSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGHUP);
    return set;
}

}  // namespace

TerminationWatcher::TerminationWatcher() {
    const sigset_t set = TerminationSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    fd_ = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
}

TerminationWatcher::~TerminationWatcher() {
    delete notifier_;
    if (fd_ >= 0)
        close(fd_);
}

void TerminationWatcher::Start() {
    if (fd_ < 0)
        return;
    notifier_ = new QSocketNotifier(fd_, QSocketNotifier::Read);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info;
        while (read(fd_, &info, sizeof info) == ssize_t(sizeof info)) {
        }
        emit terminationRequested();
    });
}

}  // namespace kirameki
