#pragma once

#include <signal.h>

#include <atomic>
#include <functional>
#include <thread>

namespace korvane {

/// Calls a function, on a thread of its own, for every SIGTERM, SIGINT and SIGHUP that the process
/// is sent, unless the signal was ignored from the start (nohup, a shell's background job).
///
/// The signals are blocked in all other threads and taken by one that waits for them: nothing is
/// interrupted halfway, the function may do what a signal handler must not (push an event and wake
/// the main thread), and further signals never end the process. They stay blocked after the watch
/// has ended, because the settings are saved then. SIGPIPE and SIGXFSZ are ignored.
///
/// When no thread can be made, the signals end the process as usual.
class SignalWatch {
  public:
    /// To be made before any other thread, which inherits the blocked signals.
    explicit SignalWatch(std::function<void()> onSignal);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    void Run();

    std::function<void()> onSignal_;
    sigset_t signals_;
    std::atomic<bool> ending_ = false;
    std::thread thread_;
};

}  // namespace korvane
