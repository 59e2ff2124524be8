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
/// it is to save.
class WatchedProcess {
  public:
    WatchedProcess(std::chrono::milliseconds patience, char endsAfter) {
        if (pipe(ends_.data()) != 0) return;
        process_ = fork();
        if (process_ == 0) Run(patience, endsAfter);
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
    [[noreturn]] void Run(std::chrono::milliseconds patience, char endsAfter) const {
        std::binary_semaphore ends(0);
        const auto tell = [&](char sign) {
            Tell(sign);
            if (sign == endsAfter) ends.release();
            return sign != endsAfter;
        };
        {
            const SignalWatch watch({.ask = [&] { tell('a'); }, .save = [&] { return tell('s'); }},
                                    patience);
            Tell('r');
            ends.acquire();
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
        char endsAfter;              ///< the sign; 0: never
        std::array<int, 2> signals;  ///< 0: none
        const char* told;
        int end;
    };
    for (const Case& c :
         {Case{"a second signal", 1h, 0, {SIGTERM, SIGTERM}, "ras", SIGTERM},
          Case{"another second signal", 1h, 0, {SIGINT, SIGTERM}, "ras", SIGINT},
          Case{"no patience left", 0ms, 0, {SIGHUP, 0}, "ras", SIGHUP},
          Case{"it ends", 1h, 'a', {SIGTERM, 0}, "ra", 1000 + kEndedByItself},
          Case{"it is ending", 1h, 's', {SIGTERM, SIGHUP}, "ras", 1000 + kEndedByItself}}) {
        SCOPED_TRACE(c.what);
        const WatchedProcess process(c.patience, c.endsAfter);
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
