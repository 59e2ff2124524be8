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

void TellThatOldStays(std::string_view path) {
    TellOnTerminal(Shown(std::string(path)) +
                   " is there but cannot be read, so it stays as it is. What changes now is "
                   "kept in " +
                   Shown(AddedPath(path)) + " until a start that can read both.");
}

enum class Written : std::uint8_t { Yes, No, TargetIsUnreadable };

/// Puts a record's bytes in the session's target. `merged` joins them with what another session has
/// put there meanwhile; without it the last writer wins.
Written WriteTarget(std::string_view target, DataFileSession& session,
                    std::span<const std::byte> bytes, MergeBytes* merged, Patience patience) {
    bool isReadable = true;
    std::vector<std::byte> result(bytes.begin(), bytes.end());
    const auto change = [&](const ReadResult& there) -> std::optional<std::vector<std::byte>> {
        isReadable = there.status != ReadStatus::Unreadable;
        if (!isReadable) return std::nullopt;
        const bool isNews = there.status == ReadStatus::Read && there.bytes != session.known;
        if (merged && isNews) result = merged(there.bytes, bytes, session.known);
        return result;
    };
    if (!GameFiles().Update(target, kDataFileCap, change, patience))
        return isReadable ? Written::No : Written::TargetIsUnreadable;
    session.written = std::move(result);
    session.known.assign(bytes.begin(), bytes.end());
    return Written::Yes;
}

/// At the end everything is tried twice: what fails for want of something that others use up, too,
/// can succeed a moment later.
Written WriteTargetAtEnd(std::string_view target, DataFileSession& session,
                         std::span<const std::byte> bytes, MergeBytes* merged) {
    const Written first = WriteTarget(target, session, bytes, merged, Patience::Limited);
    if (first == Written::Yes) return first;
    return WriteTarget(target, session, bytes, merged, Patience::Limited);
}

/// The file beside was taken up, and what it held is in the data file now.
void DeleteAdded(std::string_view path, DataFileSession& session) {
    if (session.added && GameFiles().Delete(AddedPath(path), *session.added)) session.added.reset();
}

}  // namespace

std::vector<std::byte> BeginDataFile(std::string_view path, DataFileSession& session) {
    const std::string addedPath = AddedPath(path);
    ReadResult file = GameFiles().TryRead(path, kDataFileCap);
    ReadResult beside = GameFiles().TryRead(addedPath, kDataFileCap);
    session = {};
    session.oldStays = file.status == ReadStatus::Unreadable;
    if (beside.status == ReadStatus::Read) session.added = std::move(beside.bytes);
    if (session.oldStays) TellThatOldStays(path);
    return std::move(file.bytes);
}

bool WriteDataFileSoFar(std::string_view path, DataFileSession& session,
                        std::span<const std::byte> bytes, const Joining& joining) {
    if (session.oldStays)
        return WriteTarget(AddedPath(path), session, bytes, joining.beside, Patience::None) ==
               Written::Yes;
    if (WriteTarget(path, session, bytes, joining.inFile, Patience::None) != Written::Yes)
        return false;
    DeleteAdded(path, session);
    return true;
}

void FinishDataFile(std::string_view path, DataFileSession& session,
                    std::span<const std::byte> bytes, const Joining& joining) {
    if (!session.oldStays) {
        const Written written = WriteTargetAtEnd(path, session, bytes, joining.inFile);
        if (written == Written::Yes) DeleteAdded(path, session);
        if (written != Written::TargetIsUnreadable) return;
    }
    if (std::ranges::equal(bytes, session.known)) return;
    if (!session.oldStays) {  // it could be read at the start
        TellThatOldStays(path);
        session.oldStays = true;
    }
    const std::string beside = AddedPath(path);
    if (WriteTargetAtEnd(beside, session, bytes, joining.beside) == Written::TargetIsUnreadable)
        TellOnTerminal(Shown(beside) + " cannot be read either: what has changed is lost.");
}

}  // namespace korvane
