#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/byte_stream.h"

namespace korvane {

// The game's own small binary files: little-endian fields one after the other, without header,
// version or checksum. Each file's layout is one function that visits the fields of a record in
// file order; reading and writing both go by it.

/// A text in such a file: 16 bits that count characters and end mark, the characters, the end mark
/// (0). `limit` is the most characters that are taken.
template <typename Text>
struct StoredText {
    Text& text;
    std::size_t limit;
};
// clang 14 needs to be told.
template <typename Text>
StoredText(Text&, std::size_t) -> StoredText<Text>;

/// Gives the visited fields what the bytes hold. Fields behind the end of the bytes keep what they
/// have.
class FieldReader {
  public:
    explicit FieldReader(std::span<const std::byte> bytes) : reader_(bytes) {}

    /// A text was longer than its limit.
    bool HasFailed() const { return failed_; }

    void operator()(auto& field) { reader_.Read(field); }

    template <std::size_t length>
    void operator()(std::array<char, length>& characters) {
        std::ranges::copy(TextOf(length), characters.begin());
    }

    void operator()(StoredText<std::string> field) {
        std::uint16_t length = 0;
        reader_.Read(length);
        failed_ = failed_ || length > field.limit + 1;
        const std::string_view stored = TextOf(length);
        if (!stored.empty())
            field.text = stored.substr(0, stored.find('\0')).substr(0, field.limit);
    }

  private:
    std::string_view TextOf(std::size_t length) {
        const std::span<const std::byte> bytes = reader_.Take(length);
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    ByteReader reader_;
    bool failed_ = false;
};

/// Collects the bytes of the visited fields.
class FieldWriter {
  public:
    std::span<const std::byte> Bytes() const { return writer_.Bytes(); }

    void operator()(const auto& field) { writer_.Write(field); }

    template <std::size_t length>
    void operator()(const std::array<char, length>& characters) {
        writer_.Write(std::string_view(characters.data(), length));
    }

    void operator()(StoredText<const std::string> field) {
        writer_.Write(static_cast<std::uint16_t>(field.text.size() + 1));
        writer_.Write(std::string_view(field.text));
        writer_.Write(std::uint8_t{0});
    }

  private:
    ByteWriter writer_;
};

/// Keeps the bytes of each visited field by itself.
class FieldSplitter {
  public:
    using Fields = std::vector<std::vector<std::byte>>;

    const Fields& All() const { return fields_; }

    void operator()(const auto& field) {
        FieldWriter writer;
        writer(field);
        fields_.emplace_back(writer.Bytes().begin(), writer.Bytes().end());
    }

  private:
    Fields fields_;
};

}  // namespace korvane
