#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

  private:
    int number_;
};

/// Where a path leads: an open folder and a name in it. Nothing need exist under that name, but it
/// is no link at the time of the walk. A path that leads to the folder itself has the name ".".
struct PathEnd {
    Descriptor folder;
    std::string name;
};

/// The names in a path of the game, split at slashes and backslashes. Empty names and "." mean
/// nothing and are left out; blanks belong to the name. Nothing for a path that cannot lie beneath
/// a folder ("..", a leading separator, a drive letter) or that is none (a zero byte, more
/// than 1024 bytes).
std::optional<std::vector<std::string>> SplitGamePath(std::string_view path);

/// The names in a folder but "." and "..", in no particular order; nothing when `name` is no
/// folder in `parent` (a link is none) or may not be read.
std::optional<std::vector<std::string>> NamesIn(const Descriptor& parent, const std::string& name);

/// Follows names from a folder downwards. A name that does not exist as it is spelled stands for
/// the one that differs in ASCII letter case only, the first in byte order when there are several.
/// Links are followed as long as every step stays beneath `root`. Nothing when a folder on the way
/// is missing, or a link leads out or in circles.
///
/// Each step opens one name in the folder before it and follows no link by itself, so a link that
/// is made during the walk cannot lead out either. The kernel's own confined lookup (openat2) would
/// not do: letter case needs the walk anyway, and many sandboxes lack that call.
std::optional<PathEnd> WalkBeneath(Descriptor root, const std::vector<std::string>& names);

}  // namespace korvane
