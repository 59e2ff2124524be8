#include "app/dialogs/mode_text.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace korvane {
namespace {

constexpr std::string_view kPrefix = "640 x 480 x ";
constexpr std::string_view kSeparator = " - ";
constexpr std::string_view kUnit = " Hz";

/// The text after so many characters.
std::string_view Skip(std::string_view text, std::size_t count) {
    return text.substr(std::min(count, text.size()));
}

std::uint32_t Unsigned(std::string_view text) {
    const long number = std::strtol(std::string(text).c_str(), nullptr, 10);
    return static_cast<std::uint32_t>(std::clamp<long>(number, 0, INT32_MAX));
}

}  // namespace

std::string ModeText(const ModeChoice& mode) {
    char text[64];
    std::snprintf(text, sizeof text, "%u x %u x %u - %u Hz", kModeWidth, kModeHeight,
                  mode.bitsPerPixel, mode.refreshHz);
    return text;
}

ModeChoice ReadModeText(std::string_view entry) {
    std::string_view rest = Skip(entry, kPrefix.size());
    const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    const std::uint32_t bits = Unsigned(rest.substr(0, digits));
    rest = Skip(rest, digits + kSeparator.size());
    rest.remove_suffix(std::min(kUnit.size(), rest.size()));
    return {bits, Unsigned(rest)};
}

}  // namespace korvane
