#include "app/state/data_file.h"

#include <algorithm>
#include <string>

#include "platform/host/kernel.h"

namespace korvane {
namespace {

std::string AddedPath(std::string_view path) {
    return std::string(path) + ".new";
}

/// A path as the user writes it.
std::string Shown(std::string path) {
    std::ranges::replace(path, '\\', '/');
    return path;
}

// At the end everything is tried twice: what fails for want of something that others use up, too,
// can succeed a moment later.

ReadResult ReadFile(const std::string& path) {
    const ReadResult first = GameFiles().TryRead(path, kDataFileCap);
    if (first.status != ReadStatus::Unreadable) return first;
    return GameFiles().TryRead(path, kDataFileCap);
}

bool ReplaceFile(std::string_view path, std::span<const std::byte> bytes) {
    return GameFiles().Replace(path, bytes) || GameFiles().Replace(path, bytes);
}

void WriteBeside(const std::string& path, const DataFileSession& session,
                 std::span<const std::byte> bytes, MergeBytes* merged) {
    const ReadResult there = ReadFile(path);
    if (there.status == ReadStatus::Unreadable)
        return TellOnTerminal(Shown(path) + " cannot be read either: what has changed is lost.");
    // Another session has written it since the start, or only now can it be read.
    const bool isNews = there.status == ReadStatus::Read && there.bytes != session.added;
    if (isNews) {
        ReplaceFile(path, merged(there.bytes, bytes, session.begun));
    } else {
        ReplaceFile(path, bytes);
    }
}

}  // namespace

std::vector<std::byte> BeginDataFile(std::string_view path, DataFileSession& session) {
    const std::string addedPath = AddedPath(path);
    ReadResult file = GameFiles().TryRead(path, kDataFileCap);
    ReadResult beside = GameFiles().TryRead(addedPath, kDataFileCap);
    session = {};
    session.oldStays = file.status == ReadStatus::Unreadable;
    if (beside.status == ReadStatus::Read) session.added = std::move(beside.bytes);
    if (session.oldStays)
        TellOnTerminal(Shown(std::string(path)) +
                       " is there but cannot be read, so it stays as it is. What changes now is "
                       "kept in " +
                       Shown(addedPath) + " until a start that can read both.");
    return std::move(file.bytes);
}

void FinishDataFile(std::string_view path, const DataFileSession& session,
                    std::span<const std::byte> bytes, MergeBytes* merged) {
    const std::string addedPath = AddedPath(path);
    if (!session.oldStays) {
        if (ReplaceFile(path, bytes) && session.added)
            GameFiles().Delete(addedPath, *session.added);
    } else if (!std::ranges::equal(bytes, session.begun)) {
        WriteBeside(addedPath, session, bytes, merged);
    }
}

}  // namespace korvane
