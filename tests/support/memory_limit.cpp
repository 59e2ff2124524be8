// Part of every test program: a loop that allocates for ever fails its test and not the machine.

#include <sys/resource.h>

#include <cstddef>

namespace {

constexpr std::size_t kLimit = std::size_t{2} << 30;

}  // namespace

#ifdef KORVANE_SANITIZED
// The address sanitizer reserves far more memory than it uses, so it must watch the use itself. The
// one for threads has no such watch.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    static_assert(kLimit == std::size_t{2048} << 20);
    return "hard_rss_limit_mb=2048";
}
#else
namespace {

[[maybe_unused]] const bool isLimited = [] {
    const rlimit limit{kLimit, kLimit};
    return setrlimit(RLIMIT_DATA, &limit) == 0;
}();

}  // namespace
#endif
