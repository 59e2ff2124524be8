#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/files/folder_walk.h"
#include "platform/host/files.h"

namespace korvane {
namespace {

/// A file may grow while it is read; the buffer then grows by this many bytes at a time.
constexpr std::size_t kGrowth = 64 * 1024;

/// Reads to the end, whatever the size was at first; nothing when that is above `cap`.
std::optional<std::vector<std::byte>> ReadToEnd(int file, std::size_t size, std::size_t cap) {
    // One byte more than expected, so that the end is met before the buffer is full.
    std::vector<std::byte> bytes(size + 1);
    std::size_t used = 0;
    for (;;) {
        const ssize_t count = read(file, bytes.data() + used, bytes.size() - used);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        used += static_cast<std::size_t>(count);
        if (used > cap) return std::nullopt;
        if (used == bytes.size()) bytes.resize(used + kGrowth);
    }
    bytes.resize(used);
    return bytes;
}

bool WriteAll(int file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// The file that is written beside the one it is to replace; deleted unless it was put in place. It
/// always has the same name, so that the next save deletes what a killed program has left.
class TemporaryFile {
  public:
    explicit TemporaryFile(const PathEnd& target)
        : target_(target), name_("." + target.name + ".tmp") {
        unlinkat(Folder(), name_.c_str(), 0);
        file_ = Descriptor(openat(Folder(), name_.c_str(),
                                  O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    }
    ~TemporaryFile() {
        if (file_ && !inPlace_) unlinkat(Folder(), name_.c_str(), 0);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    explicit operator bool() const { return static_cast<bool>(file_); }
    int Number() const { return file_.Number(); }
    bool PutInPlace() {
        inPlace_ = renameat(Folder(), name_.c_str(), Folder(), target_.name.c_str()) == 0;
        return inPlace_;
    }

  private:
    int Folder() const { return target_.folder.Number(); }

    const PathEnd& target_;
    std::string name_;
    Descriptor file_;
    bool inPlace_ = false;
};

/// What is found there, without following a link; nothing when there is none or it cannot be told.
std::optional<struct stat> StatusOf(const PathEnd& place) {
    struct stat status {};
    if (fstatat(place.folder.Number(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return status;
}

/// True when the file could be opened for writing. Replacing it needs rights in the folder only,
/// but a file that was made read-only is meant to stay.
bool MayWrite(const PathEnd& place) {
    return faccessat(place.folder.Number(), place.name.c_str(), W_OK, AT_EACCESS) == 0;
}

void LockForAWhile(int folder) {
    constexpr int kTries = 50;
    constexpr timespec kPause = {0, 10'000'000};
    for (int i = 0; i < kTries && flock(folder, LOCK_EX | LOCK_NB) != 0; ++i) {
        if (errno != EWOULDBLOCK && errno != EINTR) return;
        nanosleep(&kPause, nullptr);
    }
}

bool ReplaceAt(const PathEnd& place, std::span<const std::byte> bytes) {
    const Descriptor folder(openat(place.folder.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Another instance of the program that saves the same file uses the same temporary name, so one
    // waits for the other; not for ever, as a program that hangs must not keep this one from
    // ending. Some file systems have no locks.
    if (folder) LockForAWhile(folder.Number());

    const std::optional<struct stat> old = StatusOf(place);
    if (!old && errno != ENOENT) return false;
    if (old && (!S_ISREG(old->st_mode) || !MayWrite(place))) return false;

    TemporaryFile file(place);
    if (!file || !WriteAll(file.Number(), bytes)) return false;
    // Not checked: some file systems have no permissions, and the bytes matter more.
    if (old) static_cast<void>(fchmod(file.Number(), old->st_mode & 0777));
    if (fsync(file.Number()) != 0 || !file.PutInPlace()) return false;
    // The file is replaced. Flushing the folder only protects that from a power cut, so that it may
    // fail.
    if (folder) fsync(folder.Number());
    return true;
}

class DiskFiles final : public Files {
  public:
    explicit DiskFiles(std::string root) : root_(root.empty() ? "." : std::move(root)) {}

    std::optional<std::vector<std::byte>> Read(std::string_view path, std::size_t cap) override {
        const std::optional<PathEnd> place = Find(path);
        if (!place) return std::nullopt;
        // Looked at before it is opened: opening a pipe or a device can already have an effect.
        const std::optional<struct stat> before = StatusOf(*place);
        if (!before || !S_ISREG(before->st_mode)) return std::nullopt;
        const Descriptor file(openat(place->folder.Number(), place->name.c_str(),
                                     O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        struct stat status {};
        if (!file || fstat(file.Number(), &status) != 0) return std::nullopt;
        if (!S_ISREG(status.st_mode) || std::cmp_greater(status.st_size, cap)) return std::nullopt;
        return ReadToEnd(file.Number(), static_cast<std::size_t>(status.st_size), cap);
    }

    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        const std::optional<PathEnd> place = Find(path);
        return place && ReplaceAt(*place, bytes);
    }

    std::optional<std::vector<FolderEntry>> List(std::string_view folder) override {
        std::optional<std::vector<std::string>> path = SplitGamePath(folder);
        const std::optional<PathEnd> place = path ? Walk(*path) : std::nullopt;
        if (!place) return std::nullopt;
        const std::optional<std::vector<std::string>> names = NamesIn(place->folder, place->name);
        if (!names) return std::nullopt;
        const Descriptor inside(openat(place->folder.Number(), place->name.c_str(),
                                       O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!inside) return std::nullopt;
        std::vector<FolderEntry> entries;
        for (const std::string& name : *names) {
            struct stat status {};
            if (fstatat(inside.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) continue;
            entries.push_back({name, S_ISLNK(status.st_mode) ? LeadsToFolder(*path, name)
                                                             : S_ISDIR(status.st_mode)});
        }
        return entries;
    }

  private:
    std::optional<PathEnd> Walk(const std::vector<std::string>& names) const {
        Descriptor root(open(root_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        return root ? WalkBeneath(std::move(root), names) : std::nullopt;
    }

    std::optional<PathEnd> Find(std::string_view path) const {
        const std::optional<std::vector<std::string>> names = SplitGamePath(path);
        return names ? Walk(*names) : std::nullopt;
    }

    /// True for a link that leads to a folder beneath the root.
    bool LeadsToFolder(std::vector<std::string> names, const std::string& link) const {
        names.push_back(link);
        const std::optional<PathEnd> place = Walk(names);
        const std::optional<struct stat> status = place ? StatusOf(*place) : std::nullopt;
        return status && S_ISDIR(status->st_mode);
    }

    const std::string root_;
};

}  // namespace

std::unique_ptr<Files> OpenDiskFiles(std::string root) {
    return std::make_unique<DiskFiles>(std::move(root));
}

}  // namespace korvane
