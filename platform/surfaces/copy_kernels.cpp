#include "platform/surfaces/copy_kernels.h"

#include <array>
#include <bit>
#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#define KORVANE_HAS_AVX2 1
#else
#define KORVANE_HAS_AVX2 0
#endif

// Every loop is written once, for a vector width, in the compilers' generic vector types, and is
// compiled once per instruction set: an always-inlined body takes on the instructions of the
// function that it is inlined into. kWide is the width of the widest register there.

namespace korvane {
namespace {

/// N bytes that are loaded and stored at once, at any address.
template <std::size_t N>
struct Chunk {
    using Type [[gnu::vector_size(N), gnu::aligned(1), gnu::may_alias]] = std::uint8_t;
};

/// Rows of the same class are copied by the same moves. Class c holds the widths of 2^c + 1 to
/// 2^(c + 1) bytes (class 0 also 1); from the last one on they are copied in a loop.
constexpr int kLastRowClass = 7;

/// The class of a row of `bytes` bytes, at least 1.
constexpr int RowClass(std::size_t bytes) {
    // The lowest bit does not change the class, but bit_width then needs no case for 0.
    return static_cast<int>(std::bit_width((bytes - 1) | 1)) - 1;
}

template <std::size_t N>
[[gnu::always_inline]] inline void CopyChunk(std::byte* to, const std::byte* from) {
    using Vector = typename Chunk<N>::Type;
    *reinterpret_cast<Vector*>(to) = *reinterpret_cast<const Vector*>(from);
}

/// A fixed number of bytes, in chunks of the widest register or the one that fits.
template <std::size_t kWide, std::size_t kBytes>
[[gnu::always_inline]] inline void CopyFixed(std::byte* to, const std::byte* from) {
    if constexpr (kBytes <= kWide) {
        CopyChunk<kBytes>(to, from);
    } else {
        CopyFixed<kWide, kBytes / 2>(to, from);
        CopyFixed<kWide, kBytes / 2>(to + kBytes / 2, from + kBytes / 2);
    }
}

/// One row of the class: half of the class's greatest width at the row's beginning, and as much at
/// its end. The two may overlap, so that every width of the class takes the same moves.
template <std::size_t kWide, int kClass>
[[gnu::always_inline]] inline void CopyRow(std::byte* to, const std::byte* from,
                                           std::size_t bytes) {
    constexpr std::size_t kHalf = std::size_t{1} << kClass;
    const std::size_t last = bytes - kHalf;
    CopyFixed<kWide, kHalf>(to, from);
    if constexpr (kClass == kLastRowClass) {
        for (std::size_t at = kHalf; at < last; at += kHalf) {
            CopyFixed<kWide, kHalf>(to + at, from + at);
        }
    }
    CopyFixed<kWide, kHalf>(to + last, from + last);
}

template <std::size_t kWide, int kClass>
[[gnu::always_inline]] inline void CopyRowsOfClass(CopyRoute route, std::size_t bytes, int rows) {
    for (; rows > 0; --rows) {
        CopyRow<kWide, kClass>(route.to, route.from, bytes);
        route.to += route.toPitch;
        route.from += route.fromPitch;
    }
}

template <std::size_t kWide>
[[gnu::always_inline]] inline void CopyRowsWith(const CopyRoute& route, std::size_t bytes,
                                                int rows) {
    switch (RowClass(bytes)) {
        case 0:
            return CopyRowsOfClass<kWide, 0>(route, bytes, rows);
        case 1:
            return CopyRowsOfClass<kWide, 1>(route, bytes, rows);
        case 2:
            return CopyRowsOfClass<kWide, 2>(route, bytes, rows);
        case 3:
            return CopyRowsOfClass<kWide, 3>(route, bytes, rows);
        case 4:
            return CopyRowsOfClass<kWide, 4>(route, bytes, rows);
        case 5:
            return CopyRowsOfClass<kWide, 5>(route, bytes, rows);
        case 6:
            return CopyRowsOfClass<kWide, 6>(route, bytes, rows);
        default:
            return CopyRowsOfClass<kWide, kLastRowClass>(route, bytes, rows);
    }
}

template <std::size_t kWide>
[[gnu::always_inline]] inline void CopyBlocksWith(const CopyRoute& route,
                                                  std::span<const OpaqueBlock> blocks) {
    for (const OpaqueBlock& block : blocks) {
        CopyRowsWith<kWide>(
            {route.to + block.top * route.toPitch + block.left, route.toPitch,
             route.from + block.top * route.fromPitch + block.left, route.fromPitch},
            block.bytes, block.rows);
    }
}

/// From this many bytes on the library's memset is faster, because it writes long stretches of
/// memory without reading them into the cache first.
constexpr std::size_t kLongFill = 16384;

bool HasEqualBytes(std::uint32_t pattern) {
    return pattern == (pattern & 0xFF) * 0x01010101u;
}

void FillNarrow(std::byte* to, std::size_t bytes, std::uint32_t pattern) {
    std::size_t at = 0;
    for (; at + sizeof(pattern) <= bytes; at += sizeof(pattern)) {
        std::memcpy(to + at, &pattern, sizeof(pattern));
    }
    std::memcpy(to + at, &pattern, bytes - at);
}

template <std::size_t kWide>
[[gnu::always_inline]] inline void FillRow(std::byte* to, std::size_t bytes,
                                           std::uint32_t pattern) {
    if (bytes < kWide) return FillNarrow(to, bytes, pattern);
    using Wide [[gnu::vector_size(kWide), gnu::aligned(1), gnu::may_alias]] = std::uint32_t;
    const Wide wide = Wide{} + pattern;
    const std::size_t last = bytes - kWide;
    for (std::size_t at = 0; at < last; at += kWide)
        *reinterpret_cast<Wide*>(to + at) = wide;
    *reinterpret_cast<Wide*>(to + last) = wide;
}

template <std::size_t kWide>
[[gnu::always_inline]] inline void FillRowsWith(std::byte* to, std::ptrdiff_t pitch,
                                                std::size_t bytes, int rows,
                                                std::uint32_t pattern) {
    if (bytes == static_cast<std::size_t>(pitch)) {
        bytes *= static_cast<std::size_t>(rows);
        rows = 1;
    }
    if (bytes >= kLongFill && HasEqualBytes(pattern)) {
        for (; rows > 0; --rows, to += pitch)
            std::memset(to, static_cast<int>(pattern), bytes);
        return;
    }
    for (; rows > 0; --rows, to += pitch)
        FillRow<kWide>(to, bytes, pattern);
}

void CopyRows(const CopyRoute& route, std::size_t bytes, int rows) {
    CopyRowsWith<16>(route, bytes, rows);
}

void CopyBlocks(const CopyRoute& route, std::span<const OpaqueBlock> blocks) {
    CopyBlocksWith<16>(route, blocks);
}

void FillRows(std::byte* to, std::ptrdiff_t pitch, std::size_t bytes, int rows,
              std::uint32_t pattern) {
    FillRowsWith<16>(to, pitch, bytes, rows, pattern);
}

#if KORVANE_HAS_AVX2

[[gnu::target("avx2")]] void CopyRowsAvx2(const CopyRoute& route, std::size_t bytes, int rows) {
    CopyRowsWith<32>(route, bytes, rows);
}

[[gnu::target("avx2")]] void CopyBlocksAvx2(const CopyRoute& route,
                                            std::span<const OpaqueBlock> blocks) {
    CopyBlocksWith<32>(route, blocks);
}

[[gnu::target("avx2")]] void FillRowsAvx2(std::byte* to, std::ptrdiff_t pitch, std::size_t bytes,
                                          int rows, std::uint32_t pattern) {
    FillRowsWith<32>(to, pitch, bytes, rows, pattern);
}

constexpr std::array kKernels = {
    CopyKernels{"SSE2", CopyRows, CopyBlocks, FillRows},
    CopyKernels{"AVX2", CopyRowsAvx2, CopyBlocksAvx2, FillRowsAvx2},
};

bool HasAvx2() {
    return __builtin_cpu_supports("avx2") != 0;
}

#else

constexpr std::array kKernels = {CopyKernels{"baseline", CopyRows, CopyBlocks, FillRows}};

bool HasAvx2() {
    return false;
}

#endif

const CopyKernels*& Active() {
    static const CopyKernels* active = &AvailableCopyKernels().back();
    return active;
}

}  // namespace

std::span<const CopyKernels> AvailableCopyKernels() {
    return std::span(kKernels).first(HasAvx2() ? kKernels.size() : 1);
}

const CopyKernels& ActiveCopyKernels() {
    return *Active();
}

void UseCopyKernels(const CopyKernels& kernels) {
    Active() = &kernels;
}

}  // namespace korvane
