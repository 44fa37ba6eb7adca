#include "ui/termination.h"

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace quorvel::ui {
namespace {

// The self-pipe: the handler writes a byte, the notifier reads it on the UI thread.
int signalSockets[2] = {-1, -1};

void onSignal(int) {
    const char byte = 1;
    [[maybe_unused]] ssize_t written = ::write(signalSockets[0], &byte, 1);
}

void install(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

}  // namespace

TerminationWatcher::TerminationWatcher() {
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalSockets) != 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(signalSockets[1], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] ssize_t got = ::read(signalSockets[1], &byte, 1);
        emit terminationRequested();
    });
    for (int signal : {SIGTERM, SIGHUP, SIGINT}) install(signal, onSignal);
}

TerminationWatcher::~TerminationWatcher() {
    for (int signal : {SIGTERM, SIGHUP, SIGINT}) install(signal, SIG_DFL);
    notifier_.reset();
    for (int& socket : signalSockets) {
        if (socket >= 0) ::close(socket);
        socket = -1;
    }
}

}  // namespace quorvel::ui
