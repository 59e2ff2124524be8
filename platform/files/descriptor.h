#pragma once

#include <cerrno>
#include <utility>

namespace korvane {

/// Owns an open file descriptor of the system.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor();

    explicit operator bool() const { return number_ >= 0; }
    int Number() const { return number_; }
    /// Somebody else closes it from now on.
    void Release() { number_ = -1; }

    /// Takes the lock that keeps other programs out until the file is closed. False, and errno is
    /// EWOULDBLOCK, when another one holds it; other errors say that there are no locks.
    bool Lock() const;
    /// True when all that was written is on the disk.
    bool Flush() const;

  private:
    int number_;
};

/// Opens a name in a folder; never follows a link.
Descriptor OpenIn(const Descriptor& folder, const char* name, int flags);

/// Repeats a system call until no signal cuts it short.
auto Uninterrupted(auto call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Whether an error number says that nothing stands under a path; others say that it could not be
/// told.
bool TellsOfNothing(int error);

}  // namespace korvane
