#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// A rectangle of pixels to copy, placed within a tile of a picture. Left edge and width in bytes.
struct OpaqueBlock {
    std::uint16_t left;
    std::uint16_t top;
    std::uint16_t bytes;
    std::uint16_t rows;
};

/// Where the rows of a copy come from and go to: the first byte, and bytes from row to row.
/// The two never overlap.
struct CopyRoute {
    std::byte* to;
    std::ptrdiff_t toPitch;
    const std::byte* from;
    std::ptrdiff_t fromPitch;
};

/// The inner loops of all drawing, for one instruction set.
struct CopyKernels {
    const char* name;
    /// Copies `rows` rows of `bytes` bytes.
    void (*copyRows)(const CopyRoute& route, std::size_t bytes, int rows);
    /// Copies each of the blocks; the route begins at the tile's corner.
    void (*copyBlocks)(const CopyRoute& route, std::span<const OpaqueBlock> blocks);
    /// Writes the four bytes of `pattern` over and over; `bytes` is a multiple of the pattern's
    /// period (a fill with 1-byte pixels repeats its byte four times and takes any width).
    void (*fillRows)(std::byte* to, std::ptrdiff_t pitch, std::size_t bytes, int rows,
                     std::uint32_t pattern);
};

/// The instruction sets that this processor has, slowest first; at least one. The first is the
/// compiler's baseline for the architecture (SSE2 on x86-64).
std::span<const CopyKernels> AvailableCopyKernels();

/// What all drawing uses: the last of the available ones until another is chosen.
const CopyKernels& ActiveCopyKernels();
/// Chooses for all drawing from now on; for tests and measurements. `kernels` must be one of
/// AvailableCopyKernels().
void UseCopyKernels(const CopyKernels& kernels);

}  // namespace korvane
