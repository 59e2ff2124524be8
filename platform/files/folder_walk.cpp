#include "platform/files/folder_walk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>
#include <span>

#include "platform/base/ascii.h"

namespace korvane {
namespace {

/// Four times the longest name: a skin named at full length and a picture in it always fit.
constexpr std::size_t kLongestPath = 1024;
/// As many as the kernel itself follows before it calls the links circular.
constexpr int kMostLinks = 40;

/// The names between separators; empty ones and "." are left out, ".." stays.
std::vector<std::string> SplitAt(std::string_view path, std::string_view separators) {
    std::vector<std::string> names;
    while (!path.empty()) {
        const std::size_t length = std::min(path.find_first_of(separators), path.size());
        const std::string_view name = path.substr(0, length);
        if (!name.empty() && name != ".") names.emplace_back(name);
        path.remove_prefix(std::min(length + 1, path.size()));
    }
    return names;
}

/// The type bits of what stands under a name; 0 when that is nothing.
mode_t TypeOf(const Descriptor& folder, const std::string& name) {
    struct stat status {};
    if (fstatat(folder.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return 0;
    return status.st_mode & S_IFMT;
}

/// How a folder spells a name that differs in letter case only; the name itself when it has none.
std::string SpelledIn(const Descriptor& folder, const std::string& name) {
    std::string best;
    for (std::string& found : NamesIn(folder, ".").value_or(std::vector<std::string>())) {
        if (AsciiEqualsIgnoringCase(found, name) && (best.empty() || found < best))
            best = std::move(found);
    }
    return best.empty() ? name : best;
}

/// The path in a link; nothing when it is no link any more, or longer than any path.
std::optional<std::string> LinkText(const Descriptor& folder, const std::string& name) {
    std::array<char, PATH_MAX> text;
    const ssize_t length = readlinkat(folder.Number(), name.c_str(), text.data(), text.size());
    if (length < 0 || static_cast<std::size_t>(length) == text.size()) return std::nullopt;
    return std::string(text.data(), static_cast<std::size_t>(length));
}

Descriptor OpenFolder(const Descriptor& parent, const std::string& name) {
    return Descriptor(
        openat(parent.Number(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// The names that a walk has still to follow, the next one last: those of a link are put behind it.
class NamesAhead {
  public:
    explicit NamesAhead(std::span<const std::string> names) { Push(names); }

    bool IsEmpty() const { return names_.empty(); }
    void Push(std::span<const std::string> names) {
        names_.insert(names_.end(), names.rbegin(), names.rend());
    }
    std::string Pop() {
        std::string name = std::move(names_.back());
        names_.pop_back();
        return name;
    }

  private:
    std::vector<std::string> names_;
};

}  // namespace

Descriptor::~Descriptor() {
    if (number_ >= 0) close(number_);
}

std::optional<std::vector<std::string>> SplitGamePath(std::string_view path) {
    constexpr std::string_view kSeparators = "/\\";
    if (path.size() > kLongestPath || path.find('\0') != path.npos) return std::nullopt;
    if (!path.empty() && kSeparators.find(path.front()) != kSeparators.npos) return std::nullopt;
    if (path.size() > 1 && path[1] == ':') return std::nullopt;
    std::vector<std::string> names = SplitAt(path, kSeparators);
    if (std::ranges::find(names, "..") != names.end()) return std::nullopt;
    return names;
}

std::optional<std::vector<std::string>> NamesIn(const Descriptor& parent, const std::string& name) {
    const int folder =
        openat(parent.Number(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) return std::nullopt;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(folder), closedir);
    if (!entries) {
        close(folder);
        return std::nullopt;
    }
    std::vector<std::string> names;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view found = entry->d_name;
        if (found != "." && found != "..") names.emplace_back(found);
    }
    return names;
}

std::optional<PathEnd> WalkBeneath(Descriptor root, const std::vector<std::string>& names) {
    // The folders from the root to the one reached. ".." in a link goes back to the one before and
    // so never above the root, even when folders are moved meanwhile.
    std::vector<Descriptor> trail;
    trail.push_back(std::move(root));
    NamesAhead ahead(names);
    int links = 0;
    while (trail.back() && !ahead.IsEmpty()) {
        std::string name = ahead.Pop();
        if (name == "..") {
            if (trail.size() == 1) return std::nullopt;
            trail.pop_back();
            continue;
        }
        mode_t type = TypeOf(trail.back(), name);
        if (type == 0) {
            name = SpelledIn(trail.back(), name);
            type = TypeOf(trail.back(), name);
        }
        if (type == S_IFLNK) {
            const std::optional<std::string> link = LinkText(trail.back(), name);
            if (!link || ++links > kMostLinks || link->starts_with('/')) return std::nullopt;
            ahead.Push(SplitAt(*link, "/"));
            continue;
        }
        if (ahead.IsEmpty()) return PathEnd{std::move(trail.back()), std::move(name)};
        trail.push_back(OpenFolder(trail.back(), name));
    }
    if (!trail.back()) return std::nullopt;
    return PathEnd{std::move(trail.back()), "."};
}

}  // namespace korvane
