#include "platform/files/files_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "platform/files/file_reading.h"
#include "platform/files/file_replacement.h"

namespace korvane {
namespace {

class DiskFiles final : public Files {
  public:
    DiskFiles(std::string root, std::uint32_t folderWaitMs, FolderWalk* walk)
        : root_(root.empty() ? "." : std::move(root)), folderWaitMs_(folderWaitMs), walk_(walk) {}

    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        const WalkResult walked = Find(path);
        if (walked.end) return ReadAt(*walked.end, cap);
        return {walked.missing ? ReadStatus::Missing : ReadStatus::Unreadable, {}};
    }

    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        const std::optional<PathEnd> place = Find(path).end;
        return place && ReplaceAt(*place, bytes, folderWaitMs_);
    }

    bool Update(std::string_view path, std::size_t cap, const FileChange& change,
                Patience patience) override {
        const std::optional<PathEnd> place = Find(path).end;
        return place && UpdateAt(*place, cap, change, patience, folderWaitMs_);
    }

    bool Delete(std::string_view path, std::span<const std::byte> bytes) override {
        const std::optional<PathEnd> place = Find(path).end;
        return place && DeleteAt(*place, bytes, folderWaitMs_);
    }

    std::optional<std::vector<FolderEntry>> List(std::string_view folder) override {
        const std::optional<std::vector<std::string>> path = SplitGamePath(folder);
        const std::optional<PathEnd> place = path ? Walk(*path).end : std::nullopt;
        if (!place) return std::nullopt;
        const std::optional<std::vector<std::string>> names = NamesIn(place->folder, place->name);
        if (!names) return std::nullopt;
        const Descriptor inside = OpenIn(place->folder, place->name.c_str(), O_PATH | O_DIRECTORY);
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

    std::vector<std::string> Folders() const override {
        std::error_code failed;
        const std::filesystem::path path = std::filesystem::weakly_canonical(root_, failed);
        return {failed ? root_ : path.string()};
    }

  private:
    WalkResult Walk(const std::vector<std::string>& names) const {
        Descriptor root(Uninterrupted(
            [this] { return open(root_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
        if (root) return walk_(std::move(root), names);
        return {.end = {}, .missing = TellsOfNothing(errno)};
    }

    WalkResult Find(std::string_view path) const {
        const std::optional<std::vector<std::string>> names = SplitGamePath(path);
        return names ? Walk(*names) : WalkResult{.end = {}, .missing = true};
    }

    /// True for a link that leads to a folder beneath the root.
    bool LeadsToFolder(std::vector<std::string> names, const std::string& link) const {
        names.push_back(link);
        const std::optional<PathEnd> place = Walk(names).end;
        const std::optional<struct stat> status = place ? StatusOf(*place) : std::nullopt;
        return status && S_ISDIR(status->st_mode);
    }

    const std::string root_;
    const std::uint32_t folderWaitMs_;
    FolderWalk* const walk_;
};

}  // namespace

std::unique_ptr<Files> OpenDiskFiles(std::string root, std::uint32_t folderWaitMs) {
    return OpenDiskFiles(std::move(root), folderWaitMs, WalkBeneath);
}

std::unique_ptr<Files> OpenDiskFiles(std::string root, std::uint32_t folderWaitMs,
                                     FolderWalk* walk) {
    return std::make_unique<DiskFiles>(std::move(root), folderWaitMs, walk);
}

}  // namespace korvane
