#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

namespace korvane::fuzz {

/// Ends the process, which the fuzzer reports with the input that led here.
inline void Expect(bool holds) {
    if (!holds) std::abort();
}

inline std::span<const std::byte> InputBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const std::byte*>(data), size};
}

inline std::string_view InputText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace korvane::fuzz
