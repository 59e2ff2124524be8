#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace korvane {

/// The most that is read of one of the game's own small data files; a longer file is none.
inline constexpr std::size_t kDataFileCap = std::size_t{1} << 20;

/// What can be stored as a whole number. Flags have a form of their own.
template <typename T>
concept StoredInteger = std::integral<T> && !std::same_as<T, bool>;

/// Takes little-endian fields from the front of borrowed bytes.
///
/// A field that is missing or only partly there ends the reader: that field and all later ones
/// keep the values they had.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::byte> bytes) : rest_(bytes) {}

    /// Whether a field was asked for that the bytes do not hold.
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
