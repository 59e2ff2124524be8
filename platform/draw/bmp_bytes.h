#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace korvane {

// Little-endian numbers at a place of a file, which must lie inside it.

inline std::uint32_t ByteAt(std::span<const std::byte> file, std::size_t at) {
    return std::to_integer<std::uint32_t>(file[at]);
}
inline std::uint32_t WordAt(std::span<const std::byte> file, std::size_t at) {
    return ByteAt(file, at) | ByteAt(file, at + 1) << 8;
}
/// In one load; compilers do not turn four loads of a byte into one.
inline std::uint32_t LongAt(std::span<const std::byte> file, std::size_t at) {
    std::uint32_t value;
    std::memcpy(&value, file.subspan(at, sizeof(value)).data(), sizeof(value));
    return std::endian::native == std::endian::little ? value : __builtin_bswap32(value);
}

}  // namespace korvane
