#include "platform/sdl/signal_watch.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <semaphore>
#include <string>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr int kEndedByItself = 7;

/// A process with a watch: it tells "r" when it is ready, "a" when it is asked to end and "s" when
/// it saves.
class WatchedProcess {
  public:
    WatchedProcess(std::chrono::milliseconds patience, bool endsWhenAsked) {
        if (pipe(ends_.data()) != 0) return;
        process_ = fork();
        if (process_ == 0) Run(patience, endsWhenAsked);
        close(ends_[1]);
    }
    ~WatchedProcess() { close(ends_[0]); }
    WatchedProcess(const WatchedProcess&) = delete;
    WatchedProcess& operator=(const WatchedProcess&) = delete;

    void Signal(int signal) const { kill(process_, signal); }
    /// The next sign; "" when the process has ended.
    std::string Read() const {
        char sign = 0;
        return read(ends_[0], &sign, 1) == 1 ? std::string(1, sign) : "";
    }
    /// The signal that ended the process, or its exit code plus 1000.
    int AwaitEnd() const {
        int status = 0;
        waitpid(process_, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 1000 + WEXITSTATUS(status);
    }

  private:
    [[noreturn]] void Run(std::chrono::milliseconds patience, bool endsWhenAsked) const {
        std::binary_semaphore asked(0);
        {
            const SignalWatch watch({.ask =
                                         [&] {
                                             Tell('a');
                                             if (endsWhenAsked) asked.release();
                                         },
                                     .save = [&] { Tell('s'); }},
                                    patience);
            Tell('r');
            asked.acquire();
        }
        _exit(kEndedByItself);
    }
    void Tell(char sign) const {
        if (write(ends_[1], &sign, 1) != 1) _exit(1);
    }

    std::array<int, 2> ends_{};
    pid_t process_ = 0;
};

TEST(SignalWatchTest, AProgramThatDoesNotEndWhenAskedIsSavedAndEnded) {
    struct Case {
        const char* what;
        std::chrono::milliseconds patience;
        bool endsWhenAsked;
        std::array<int, 2> signals;  ///< 0: none
        const char* told;
        int end;
    };
    for (const Case& c :
         {Case{"a second signal", 1h, false, {SIGTERM, SIGTERM}, "ras", SIGTERM},
          Case{"another second signal", 1h, false, {SIGINT, SIGTERM}, "ras", SIGINT},
          Case{"no patience left", 0ms, false, {SIGHUP, 0}, "ras", SIGHUP},
          Case{"it ends", 1h, true, {SIGTERM, 0}, "ra", 1000 + kEndedByItself}}) {
        SCOPED_TRACE(c.what);
        const WatchedProcess process(c.patience, c.endsWhenAsked);
        std::string told = process.Read();
        for (const int signal : c.signals) {
            if (signal == 0) continue;
            process.Signal(signal);
            told += process.Read();
        }
        told += process.Read();
        EXPECT_EQ(told.substr(0, 3), c.told);
        EXPECT_EQ(process.AwaitEnd(), c.end);
    }
}

}  // namespace
}  // namespace korvane
