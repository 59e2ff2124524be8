#include "platform/base/decimal.h"

#include <algorithm>
#include <limits>

namespace korvane {

std::int32_t ReadDecimal(std::string_view text) {
    constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
    constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    if (text.empty()) return 0;
    const bool isNegative = text.front() == '-';
    if (isNegative || text.front() == '+') text.remove_prefix(1);
    std::int64_t value = 0;
    for (const char character : text) {
        if (character < '0' || character > '9') break;
        value = std::min(value * 10 + (character - '0'), kMax + 1);
    }
    return static_cast<std::int32_t>(std::clamp(isNegative ? -value : value, kMin, kMax));
}

}  // namespace korvane
