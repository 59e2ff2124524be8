#include "platform/files/folder_walk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
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

Found FoundUnder(const Descriptor& folder, const std::string& name) {
    struct stat status {};
    if (fstatat(folder.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return TellsOfNothing(errno) ? Found::Nothing : Found::Unknown;
    return S_ISLNK(status.st_mode) ? Found::Link : Found::Other;
}

/// The path in a link; nothing when it is no link any more, or longer than any path.
std::optional<std::string> LinkText(const Descriptor& folder, const std::string& name) {
    std::array<char, PATH_MAX> text;
    const ssize_t length = readlinkat(folder.Number(), name.c_str(), text.data(), text.size());
    if (length < 0 || static_cast<std::size_t>(length) == text.size()) return std::nullopt;
    return std::string(text.data(), static_cast<std::size_t>(length));
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
    Descriptor folder = OpenIn(parent, name.c_str(), O_RDONLY | O_DIRECTORY);
    if (!folder) return std::nullopt;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(folder.Number()), closedir);
    if (!entries) return std::nullopt;
    folder.Release();
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view found = entry->d_name;
        if (found != "." && found != "..") names.emplace_back(found);
        errno = 0;
    }
    if (errno != 0) return std::nullopt;
    return names;
}

Found LookFor(const Descriptor& folder, std::string& name) {
    const Found exactly = FoundUnder(folder, name);
    if (exactly != Found::Nothing) return exactly;
    std::optional<std::vector<std::string>> names = NamesIn(folder, ".");
    // A folder whose names may not be listed has them as they are spelled only.
    if (!names) return errno == EACCES ? Found::Nothing : Found::Unknown;
    std::erase_if(*names,
                  [&](const std::string& found) { return !AsciiEqualsIgnoringCase(found, name); });
    if (names->empty()) return Found::Nothing;
    name = *std::ranges::min_element(*names);
    return FoundUnder(folder, name);
}

WalkResult WalkBeneath(Descriptor root, const std::vector<std::string>& names) {
    // The folders from the root to the one reached. ".." in a link goes back to the one before and
    // so never above the root, even when folders are moved meanwhile.
    std::vector<Descriptor> trail;
    trail.push_back(std::move(root));
    NamesAhead ahead(names);
    int links = 0;
    while (!ahead.IsEmpty()) {
        std::string name = ahead.Pop();
        if (name == "..") {
            if (trail.size() == 1) return {};
            trail.pop_back();
            continue;
        }
        const Found found = LookFor(trail.back(), name);
        if (found == Found::Unknown) return {};
        if (found == Found::Link) {
            const std::optional<std::string> link = LinkText(trail.back(), name);
            if (!link || ++links > kMostLinks || link->starts_with('/')) return {};
            ahead.Push(SplitAt(*link, "/"));
            continue;
        }
        if (ahead.IsEmpty()) return {PathEnd{std::move(trail.back()), std::move(name)}};
        Descriptor folder = OpenIn(trail.back(), name.c_str(), O_PATH | O_DIRECTORY);
        if (!folder) return {.end = {}, .missing = TellsOfNothing(errno)};
        trail.push_back(std::move(folder));
    }
    return {PathEnd{std::move(trail.back()), "."}};
}

}  // namespace korvane
