#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace korvane {

/// The game's own data files are small; a longer one counts as missing.
inline constexpr std::size_t kDataFileCap = std::size_t{1} << 20;

/// Types that are stored as whole numbers. Flags are not: they take one byte with two values.
template <typename T>
concept StoredInteger = std::integral<T> && !std::same_as<T, bool>;

/// Reads little-endian fields one after the other. The bytes must outlive the reader.
///
/// A field that is missing or only partly there ends the reader: that field and all later ones
/// keep the values they had.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::byte> bytes) : rest_(bytes) {}

    /// True when a field was asked for that the bytes do not hold.
    bool HasEnded() const { return ended_; }

    template <StoredInteger T>
    void Read(T& field) {
        const std::span<const std::byte> bytes = Take(sizeof(T));
        if (ended_) return;
        std::uint64_t value = 0;
        for (std::size_t i = sizeof(T); i-- > 0;) {
            value = value << 8 | std::to_integer<std::uint64_t>(bytes[i]);
        }
        field = static_cast<T>(value);
    }

    /// One byte; only 1 is true.
    void Read(bool& flag) {
        std::uint8_t byte = flag ? 1 : 0;
        Read(byte);
        flag = byte == 1;
    }

    /// The next `count` bytes, or none at all and the reader has ended.
    std::span<const std::byte> Take(std::size_t count) {
        ended_ = ended_ || count > rest_.size();
        if (ended_) return {};
        const std::span<const std::byte> taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

  private:
    std::span<const std::byte> rest_;
    bool ended_ = false;
};

/// Collects little-endian fields.
class ByteWriter {
  public:
    template <StoredInteger T>
    void Write(T field) {
        auto value = static_cast<std::uint64_t>(field);
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            bytes_.push_back(static_cast<std::byte>(value & 0xFF));
            value >>= 8;
        }
    }

    /// One byte, 0 or 1.
    void Write(bool flag) { Write(static_cast<std::uint8_t>(flag ? 1 : 0)); }

    /// The characters alone, without length or end mark.
    void Write(std::string_view text) {
        for (const char character : text)
            bytes_.push_back(static_cast<std::byte>(character));
    }

    std::span<const std::byte> Bytes() const { return bytes_; }

  private:
    std::vector<std::byte> bytes_;
};

}  // namespace korvane
