// The header of a module alone. It is looked at a hundred times faster than a module is played
// (fuzz/sound_fuzz.cpp).

#include <optional>

#include "fuzz/expect.h"
#include "platform/sound/module_header.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvane;
    const auto format = CheckModuleHeader(fuzz::InputBytes(data, size));
    fuzz::Expect(!format || !NameOf(*format).empty());
    return 0;
}
