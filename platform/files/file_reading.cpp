#include "platform/files/file_reading.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace korvane {
namespace {

ReadResult NotRead(int error) {
    return {TellsOfNothing(error) ? ReadStatus::Missing : ReadStatus::Unreadable, {}};
}

/// Reads to the end, whatever the size was at first.
ReadResult ReadToEnd(const Descriptor& file, std::size_t size, std::size_t cap) {
    // A file may grow while it is read; the buffer then grows by this many bytes at a time.
    constexpr std::size_t kGrowth = 64 * 1024;
    // One byte more than expected, so that the end is met before the buffer is full.
    std::vector<std::byte> bytes(size + 1);
    std::size_t used = 0;
    for (;;) {
        const ssize_t count = Uninterrupted(
            [&] { return read(file.Number(), bytes.data() + used, bytes.size() - used); });
        if (count < 0) return NotRead(EIO);
        if (count == 0) break;
        used += static_cast<std::size_t>(count);
        if (used > cap) return NotRead(EFBIG);
        if (used == bytes.size()) bytes.resize(used + kGrowth);
    }
    bytes.resize(used);
    return {ReadStatus::Read, std::move(bytes)};
}

}  // namespace

std::optional<struct stat> StatusOf(const PathEnd& place) {
    struct stat status {};
    if (fstatat(place.folder.Number(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return status;
}

ReadResult ReadAt(const PathEnd& place, std::size_t cap) {
    // Looked at before it is opened: opening a pipe or a device can already have an effect.
    const std::optional<struct stat> before = StatusOf(place);
    if (!before) return NotRead(errno);
    if (!S_ISREG(before->st_mode)) return NotRead(EINVAL);
    const Descriptor file =
        OpenIn(place.folder, place.name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file) return NotRead(errno);
    struct stat status {};
    if (fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return NotRead(EIO);
    if (std::cmp_greater(status.st_size, cap)) return NotRead(EFBIG);
    return ReadToEnd(file, static_cast<std::size_t>(status.st_size), cap);
}

}  // namespace korvane
