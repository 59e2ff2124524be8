#pragma once

#include <signal.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace korvane {

/// Ends the program for SIGTERM, SIGINT and SIGHUP, unless the signal was ignored from the start
/// (nohup, a shell's background job): asks it at first, on a thread of its own. When the program
/// has not ended after the given patience, or when a second signal comes before, the thread saves
/// what must not be lost, and the signal ends the process.
///
/// The signals are blocked in all other threads and taken by one that waits for them: nothing is
/// interrupted halfway, and asking may do what a signal handler must not (push an event and wake
/// the main thread). They stay blocked after the watch has ended, because the settings are saved
/// then. SIGPIPE and SIGXFSZ are ignored.
///
/// When no thread can be made, the signals end the process as usual.
class SignalWatch {
  public:
    struct Actions {
        std::function<void()> ask;   ///< must not wait for the display
        std::function<bool()> save;  ///< likewise; false: the program is about to end by itself
    };

    static constexpr std::chrono::seconds kPatience{5};

    /// To be made before any other thread, which inherits the blocked signals.
    explicit SignalWatch(Actions actions, std::chrono::milliseconds patience = kPatience);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    void Run();
    /// Whether the watch has ended in time.
    bool EndsInTime() const;

    Actions actions_;
    std::chrono::milliseconds patience_;
    sigset_t signals_;
    std::atomic<bool> ending_ = false;
    std::thread thread_;
};

}  // namespace korvane
