#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/host/files.h"

namespace korvane::fuzz {

/// Files in memory, under the very paths that the game asks for.
class MemoryFiles final : public Files {
  public:
    using Contents = std::map<std::string, std::vector<std::byte>, std::less<>>;

    explicit MemoryFiles(std::shared_ptr<Contents> contents) : contents_(std::move(contents)) {}

    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        const auto found = contents_->find(path);
        if (found == contents_->end()) return {};
        if (found->second.size() > cap) return {ReadStatus::Unreadable, {}};
        return {ReadStatus::Read, found->second};
    }
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        contents_->insert_or_assign(std::string(path),
                                    std::vector<std::byte>(bytes.begin(), bytes.end()));
        return true;
    }
    bool Delete(std::string_view path, std::span<const std::byte>) override {
        return contents_->erase(std::string(path)) != 0;
    }
    std::optional<std::vector<FolderEntry>> List(std::string_view) override { return std::nullopt; }

  private:
    std::shared_ptr<Contents> contents_;
};

}  // namespace korvane::fuzz
