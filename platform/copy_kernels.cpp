#include "platform/copy_kernels.h"

#include <array>
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

template <std::size_t N>
[[gnu::always_inline]] inline void CopyChunk(std::byte* to, const std::byte* from) {
    using Vector = typename Chunk<N>::Type;
    *reinterpret_cast<Vector*>(to) = *reinterpret_cast<const Vector*>(from);
}

/// Rows of kN to 2 kN bytes: one chunk from the front and one that ends at the end. They overlap
/// as needed, so that every width takes the same two moves.
template <std::size_t N>
[[gnu::always_inline]] inline void CopyTwo(CopyRoute route, std::size_t bytes, int rows) {
    const std::size_t last = bytes - N;
    for (; rows > 0; --rows) {
        CopyChunk<N>(route.to, route.from);
        CopyChunk<N>(route.to + last, route.from + last);
        route.to += route.toPitch;
        route.from += route.fromPitch;
    }
}

/// Rows of 2 kN to 4 kN bytes: two chunks from each end.
template <std::size_t N>
[[gnu::always_inline]] inline void CopyFour(CopyRoute route, std::size_t bytes, int rows) {
    const std::size_t last = bytes - N;
    for (; rows > 0; --rows) {
        CopyChunk<N>(route.to, route.from);
        CopyChunk<N>(route.to + N, route.from + N);
        CopyChunk<N>(route.to + last - N, route.from + last - N);
        CopyChunk<N>(route.to + last, route.from + last);
        route.to += route.toPitch;
        route.from += route.fromPitch;
    }
}

/// Rows of at least 4 kN bytes.
template <std::size_t N>
[[gnu::always_inline]] inline void CopyLong(CopyRoute route, std::size_t bytes, int rows) {
    const std::size_t last = bytes - 4 * N;
    for (; rows > 0; --rows) {
        std::size_t at = 0;
        do {
            CopyChunk<N>(route.to + at, route.from + at);
            CopyChunk<N>(route.to + at + N, route.from + at + N);
            CopyChunk<N>(route.to + at + 2 * N, route.from + at + 2 * N);
            CopyChunk<N>(route.to + at + 3 * N, route.from + at + 3 * N);
            at += 4 * N;
        } while (at < last);
        CopyChunk<N>(route.to + last, route.from + last);
        CopyChunk<N>(route.to + last + N, route.from + last + N);
        CopyChunk<N>(route.to + last + 2 * N, route.from + last + 2 * N);
        CopyChunk<N>(route.to + last + 3 * N, route.from + last + 3 * N);
        route.to += route.toPitch;
        route.from += route.fromPitch;
    }
}

template <std::size_t kWide>
[[gnu::always_inline]] inline void CopyRowsWith(const CopyRoute& route, std::size_t bytes,
                                                int rows) {
    if (bytes >= 4 * kWide) return CopyLong<kWide>(route, bytes, rows);
    if (bytes >= 2 * kWide) return CopyFour<kWide>(route, bytes, rows);
    if (bytes >= kWide) return CopyTwo<kWide>(route, bytes, rows);
    if (kWide > 16 && bytes >= 16) return CopyTwo<16>(route, bytes, rows);
    if (bytes >= 8) return CopyTwo<8>(route, bytes, rows);
    if (bytes >= 4) return CopyTwo<4>(route, bytes, rows);
    if (bytes >= 2) return CopyTwo<2>(route, bytes, rows);
    if (bytes == 1) return CopyTwo<1>(route, bytes, rows);
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

void FillNarrow(std::byte* to, std::ptrdiff_t pitch, std::size_t bytes, int rows,
                std::uint32_t pattern) {
    for (; rows > 0; --rows, to += pitch) {
        std::size_t at = 0;
        for (; at + sizeof(pattern) <= bytes; at += sizeof(pattern)) {
            std::memcpy(to + at, &pattern, sizeof(pattern));
        }
        std::memcpy(to + at, &pattern, bytes - at);
    }
}

template <std::size_t kWide>
[[gnu::always_inline]] inline void FillRowsWith(std::byte* to, std::ptrdiff_t pitch,
                                                std::size_t bytes, int rows,
                                                std::uint32_t pattern) {
    using Wide [[gnu::vector_size(kWide), gnu::aligned(1), gnu::may_alias]] = std::uint32_t;
    const Wide wide = Wide{} + pattern;
    if (bytes < kWide) return FillNarrow(to, pitch, bytes, rows, pattern);
    const std::size_t last = bytes - kWide;
    for (; rows > 0; --rows, to += pitch) {
        for (std::size_t at = 0; at < last; at += kWide)
            *reinterpret_cast<Wide*>(to + at) = wide;
        *reinterpret_cast<Wide*>(to + last) = wide;
    }
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
