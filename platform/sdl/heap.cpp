#include "platform/sdl/heap.h"

#ifdef KORVANE_HEAP_TAKES_ADVICE

#include <malloc.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace korvane {
namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kPictures = 3 * kHugePage;

void* pictures = nullptr;  ///< where the heap has huge pages, or null

}  // namespace

/// The first access to each page of memory goes through the kernel, which is slow on virtual
/// machines: it took a fifth of the time to the first picture. One huge page stands for 512 of
/// them. The heap keeps what is freed, so that the buffer of one file serves for the next.
void PrepareHeap() {
    constexpr int kNeverApart = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, kNeverApart);
    mallopt(M_TRIM_THRESHOLD, kNeverApart);
    void* block = std::malloc(kPictures + kHugePage);
    if (block == nullptr) return;
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    pictures = reinterpret_cast<void*>((begin + kHugePage - 1) / kHugePage * kHugePage);
    // Not checked: systems without huge pages refuse it and only start more slowly.
    static_cast<void>(madvise(pictures, kPictures, MADV_HUGEPAGE));
    std::free(block);
}

/// Huge pages end first: with them the next small allocation would take a whole one again.
void TrimHeap() {
    if (pictures != nullptr) static_cast<void>(madvise(pictures, kPictures, MADV_NOHUGEPAGE));
    malloc_trim(0);
}

}  // namespace korvane

#else

namespace korvane {

void PrepareHeap() {}
void TrimHeap() {}

}  // namespace korvane

#endif
