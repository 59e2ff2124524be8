#include "platform/files/layered_files.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/base/ascii.h"
#include "platform/files/folder_walk.h"

namespace korvane {
namespace {

using Entries = std::vector<FolderEntry>;

bool IsUsersAlone(std::string_view path) {
    const std::optional<std::vector<std::string>> names = SplitGamePath(path);
    return names && !names->empty() && AsciiEqualsIgnoringCase(names->front(), "data");
}

/// Whether an entry of the user's stands for an installed one. A file does not hide a folder, since
/// what lies in the folder is found all the same.
bool Hides(const FolderEntry& users, const FolderEntry& installed) {
    return AsciiEqualsIgnoringCase(users.name, installed.name) &&
           (users.isFolder || !installed.isFolder);
}

Entries Joined(const Entries& users, Entries installed) {
    Entries joined;
    std::ranges::copy_if(users, std::back_inserter(joined), [&](const FolderEntry& entry) {
        return std::ranges::none_of(installed, [&](const FolderEntry& other) {
            return AsciiEqualsIgnoringCase(entry.name, other.name) && !Hides(entry, other);
        });
    });
    std::erase_if(installed, [&](const FolderEntry& entry) {
        return std::ranges::any_of(users,
                                   [&](const FolderEntry& own) { return Hides(own, entry); });
    });
    std::ranges::move(installed, std::back_inserter(joined));
    return joined;
}

class LayeredFiles final : public Files {
  public:
    LayeredFiles(std::unique_ptr<Files> users, std::unique_ptr<Files> installed)
        : users_(std::move(users)), installed_(std::move(installed)) {}

    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        ReadResult own = users_->TryRead(path, cap);
        if (own.status == ReadStatus::Read || IsUsersAlone(path)) return own;
        ReadResult behind = installed_->TryRead(path, cap);
        return behind.status == ReadStatus::Missing ? std::move(own) : std::move(behind);
    }
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        return users_->Replace(path, bytes);
    }
    bool Update(std::string_view path, std::size_t cap, const FileChange& change,
                Patience patience) override {
        return users_->Update(path, cap, change, patience);
    }
    bool Delete(std::string_view path, std::span<const std::byte> bytes) override {
        return users_->Delete(path, bytes);
    }
    std::optional<Entries> List(std::string_view folder) override {
        std::optional<Entries> own = users_->List(folder);
        if (IsUsersAlone(folder)) return own;
        std::optional<Entries> behind = installed_->List(folder);
        if (!own || !behind) return own ? std::move(own) : std::move(behind);
        return Joined(*own, std::move(*behind));
    }
    std::vector<std::string> Folders() const override {
        std::vector<std::string> folders = users_->Folders();
        std::ranges::copy(installed_->Folders(), std::back_inserter(folders));
        return folders;
    }

  private:
    const std::unique_ptr<Files> users_;
    const std::unique_ptr<Files> installed_;
};

}  // namespace

std::unique_ptr<Files> LayFiles(std::unique_ptr<Files> users, std::unique_ptr<Files> installed) {
    return std::make_unique<LayeredFiles>(std::move(users), std::move(installed));
}

}  // namespace korvane
