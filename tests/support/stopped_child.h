#pragma once

#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace korvane {

/// A child that is stopped when it is about to enter, or has just left, its n-th system call.
class StoppedChild {
  public:
    StoppedChild(int n, const std::function<bool()>& work) : child_(fork()) {
        if (child_ == 0) {
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            raise(SIGSTOP);
            _exit(work() ? 0 : 1);
        }
        waitpid(child_, &status_, 0);
        for (int i = 0; i < n && WIFSTOPPED(status_); ++i) {
            ptrace(PTRACE_SYSCALL, child_, nullptr, nullptr);
            waitpid(child_, &status_, 0);
        }
    }

    bool HasEnded() const { return WIFEXITED(status_); }
    void Kill() {
        kill(child_, SIGKILL);
        waitpid(child_, &status_, 0);
    }
    /// True when its work then succeeds.
    bool GoesOn() {
        ptrace(PTRACE_DETACH, child_, nullptr, nullptr);
        waitpid(child_, &status_, 0);
        return WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
    }

  private:
    const pid_t child_;
    int status_ = 0;
};

}  // namespace korvane
