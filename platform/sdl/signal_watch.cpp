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

/// Ends the process as the signal does where nobody takes it.
void EndBy(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, signal);
    pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    std::raise(signal);
}

}  // namespace

SignalWatch::SignalWatch(Actions actions, std::chrono::milliseconds patience)
    : actions_(std::move(actions)), patience_(patience) {
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
    int signal = kEndSignal;
    while (signal == kEndSignal) {
        if (sigwait(&signals_, &signal) != 0 || ending_) return;
    }
    actions_.ask();
    if (EndsInTime()) return;
    if (actions_.save()) EndBy(signal);
}

bool SignalWatch::EndsInTime() const {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(patience_);
    const timespec patience{seconds.count(), std::chrono::nanoseconds(patience_ - seconds).count()};
    sigtimedwait(&signals_, nullptr, &patience);
    return ending_;
}

}  // namespace korvane
