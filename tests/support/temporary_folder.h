#pragma once

#include <stdlib.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane {

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "korvane-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path() const { return path_.string(); }

    /// Writes a file, its folders included. `name` uses slashes.
    void Write(const std::string& name, std::span<const std::byte> bytes) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        // Emptying a file in place makes some file systems wait for the disk; a new one does not.
        std::filesystem::remove(file);
        std::ofstream stream(file, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()),
                     static_cast<std::streamsize>(bytes.size()));
        if (!stream) throw std::runtime_error("cannot write " + file.string());
    }

    /// The bytes of a file; none when there is no such file.
    std::vector<std::byte> Read(const std::string& name) const {
        std::ifstream stream(path_ / name, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        const auto bytes = std::as_bytes(std::span(text));
        return {bytes.begin(), bytes.end()};
    }

  private:
    std::filesystem::path path_;
};

}  // namespace korvane
