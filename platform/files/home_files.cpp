#include "platform/files/home_files.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/files/files_disk.h"
#include "platform/files/own_links.h"

namespace korvane {
namespace {

/// Makes a folder and those above it. What fails shows when a file is to be made there.
void MakeFolders(const std::string& path) {
    constexpr mode_t kForThisUser = 0700;
    for (std::size_t end = 0; end < path.size();) {
        end = std::min(path.find('/', end + 1), path.size());
        mkdir(path.substr(0, end).c_str(), kForThisUser);
    }
}

class HomeFiles final : public Files {
  public:
    explicit HomeFiles(const std::string& root)
        : root_(root), disk_(OpenDiskFiles(root, kFolderWaitMs, WalkThroughOwnLinks)) {}

    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        return disk_->TryRead(path, cap);
    }
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        MakeFolderOf(path);
        return disk_->Replace(path, bytes);
    }
    bool Update(std::string_view path, std::size_t cap, const FileChange& change,
                Patience patience) override {
        MakeFolderOf(path);
        return disk_->Update(path, cap, change, patience);
    }
    bool Delete(std::string_view path, std::span<const std::byte> bytes) override {
        return disk_->Delete(path, bytes);
    }
    std::optional<std::vector<FolderEntry>> List(std::string_view folder) override {
        return disk_->List(folder);
    }
    std::vector<std::string> Folders() const override { return disk_->Folders(); }

  private:
    void MakeFolderOf(std::string_view path) {
        const std::optional<std::vector<std::string>> names = SplitGamePath(path);
        if (!names || names->empty()) return;
        std::string folder;
        for (std::size_t i = 0; i + 1 < names->size(); ++i)
            folder += "/" + (*names)[i];
        // Asked through the gate: a folder may be there in another letter case, or as a link.
        const bool isMissing = disk_->TryRead(folder.empty() ? "." : folder.substr(1), 0).status ==
                               ReadStatus::Missing;
        if (isMissing) MakeFolders(root_ + folder);
    }

    const std::string root_;
    const std::unique_ptr<Files> disk_;
};

}  // namespace

std::unique_ptr<Files> OpenHomeFiles(const std::string& root) {
    return std::make_unique<HomeFiles>(root);
}

}  // namespace korvane
