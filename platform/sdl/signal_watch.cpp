#include "platform/sdl/signal_watch.h"

#include <pthread.h>

#include <csignal>
#include <system_error>
#include <utility>

namespace korvane {
namespace {

bool IsIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

/// Ends the waiting thread. It is always watched, so it must be none of the others.
constexpr int kEndSignal = SIGUSR2;

}  // namespace

SignalWatch::SignalWatch(std::function<void()> onSignal) : onSignal_(std::move(onSignal)) {
    sigemptyset(&signals_);
    sigaddset(&signals_, kEndSignal);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        if (!IsIgnored(signal)) sigaddset(&signals_, signal);
    // A closed pipe or a file that may not grow is an error of one call and must not end the
    // program.
    for (const int signal : {SIGPIPE, SIGXFSZ})
        std::signal(signal, SIG_IGN);
    pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);  // they end the process, as everywhere
    }
}

SignalWatch::~SignalWatch() {
    if (!thread_.joinable()) return;
    ending_ = true;
    pthread_kill(thread_.native_handle(), kEndSignal);
    thread_.join();
}

void SignalWatch::Run() {
    for (;;) {
        int signal = 0;
        if (sigwait(&signals_, &signal) != 0) return;
        if (ending_) return;
        if (signal != kEndSignal) onSignal_();
    }
}

}  // namespace korvane
