#include "platform/sdl/heap.h"

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

/// Every page that is touched for the first time costs a trip into the kernel, and on virtual
/// machines a dear one: they were a fifth of the time to the first picture. Huge pages take one
/// trip for 512 of them. The heap keeps what is freed, so that each file's buffer serves the next.
void PrepareHeap() {
    constexpr int kNeverApart = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, kNeverApart);
    mallopt(M_TRIM_THRESHOLD, kNeverApart);
    void* block = std::malloc(kPictures + kHugePage);
    if (block == nullptr) return;
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    pictures = reinterpret_cast<void*>((begin + kHugePage - 1) / kHugePage * kHugePage);
    // Refused on systems without huge pages, which then start as fast as they can.
    static_cast<void>(madvise(pictures, kPictures, MADV_HUGEPAGE));
    std::free(block);
}

/// Without the huge pages' end the next small piece would bring a whole one back.
void TrimHeap() {
    if (pictures != nullptr) static_cast<void>(madvise(pictures, kPictures, MADV_NOHUGEPAGE));
    malloc_trim(0);
}

}  // namespace korvane
