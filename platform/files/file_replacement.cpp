#include "platform/files/file_replacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <optional>

#include "platform/files/file_reading.h"
#include "platform/files/temporary_file.h"

namespace korvane {
namespace {

/// The folder of a file, locked against other programs that change its files. A program that hangs
/// must not keep this one from ending, and some file systems have no locks.
class LockedFolder {
  public:
    LockedFolder(const PathEnd& place, std::uint32_t waitMs)
        : folder_(OpenIn(place.folder, ".", O_RDONLY | O_DIRECTORY)) {
        constexpr std::uint32_t kPauseMs = 10;
        constexpr timespec kPause = {0, kPauseMs * 1'000'000};
        TryToLock();
        for (; othersLock_ && waitMs >= kPauseMs; waitMs -= kPauseMs) {
            nanosleep(&kPause, nullptr);
            TryToLock();
        }
    }

    bool IsLocked() const { return locked_; }
    bool IsLockedByAnother() const { return othersLock_; }
    /// It only protects what was done from a power cut, so that it may fail.
    void Flush() const {
        if (folder_) folder_.Flush();
    }

  private:
    void TryToLock() {
        locked_ = folder_ && folder_.Lock();
        othersLock_ = folder_ && !locked_ && errno == EWOULDBLOCK;
    }

    Descriptor folder_;
    bool locked_ = false;
    bool othersLock_ = false;
};

bool WriteAll(const Descriptor& file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Uninterrupted([&] { return write(file.Number(), bytes.data(), bytes.size()); });
        if (count <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// True for a file that could be opened for writing. Changing it needs rights in the folder only,
/// but a file that was made read-only is meant to stay.
bool MayChange(const PathEnd& place, const struct stat& status) {
    return S_ISREG(status.st_mode) &&
           faccessat(place.folder.Number(), place.name.c_str(), W_OK, AT_EACCESS) == 0;
}

bool ReplaceIn(const LockedFolder& folder, const PathEnd& place, std::span<const std::byte> bytes) {
    const std::optional<struct stat> old = StatusOf(place);
    if (!old && errno != ENOENT) return false;
    if (old && !MayChange(place, *old)) return false;
    // Under the lock only: older versions of the program do not lock their temporary file.
    if (folder.IsLocked()) TemporaryFile::SweepBeside(place);

    TemporaryFile file(place);
    if (!file.Opened() || !WriteAll(file.Opened(), bytes)) return false;
    // Not checked: some file systems have no permissions, and the bytes matter more.
    if (old) static_cast<void>(fchmod(file.Opened().Number(), old->st_mode & 0777));
    if (!file.Opened().Flush() || !file.PutInPlace()) return false;
    folder.Flush();
    return true;
}

}  // namespace

bool ReplaceAt(const PathEnd& place, std::span<const std::byte> bytes, std::uint32_t waitMs) {
    return ReplaceIn(LockedFolder(place, waitMs), place, bytes);
}

bool UpdateAt(const PathEnd& place, std::size_t cap, const FileChange& change, Patience patience,
              std::uint32_t waitMs) {
    const LockedFolder folder(place, patience == Patience::None ? 0 : waitMs);
    if (patience == Patience::None && folder.IsLockedByAnother()) return false;
    const auto bytes = change(ReadAt(place, cap));
    return bytes && ReplaceIn(folder, place, *bytes);
}

bool DeleteAt(const PathEnd& place, std::span<const std::byte> bytes, std::uint32_t waitMs) {
    const LockedFolder folder(place, waitMs);
    const std::optional<struct stat> status = StatusOf(place);
    if (folder.IsLockedByAnother() || !status || !MayChange(place, *status)) return false;
    const ReadResult held = ReadAt(place, bytes.size());
    if (held.status != ReadStatus::Read || !std::ranges::equal(held.bytes, bytes)) return false;
    if (unlinkat(place.folder.Number(), place.name.c_str(), 0) != 0) return false;
    folder.Flush();
    return true;
}

}  // namespace korvane
