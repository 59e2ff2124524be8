#include "platform/sdl/desktop_density.h"

#include <SDL_stdinc.h>

#include <algorithm>
#include <charconv>
#include <system_error>

#include "platform/sdl/xlib.h"

namespace korvane {
namespace {

/// A number at the beginning of a text, behind blanks.
template <typename Number>
std::optional<Number> NumberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc()) return std::nullopt;
    return number;
}

std::optional<double> DpiOfMonitor(SDL_Window* window) {
    float dpi = 0;
    const int display = std::max(0, SDL_GetWindowDisplayIndex(window));
    if (SDL_GetDisplayDPI(display, nullptr, &dpi, nullptr) != 0) return std::nullopt;
    return dpi;
}

}  // namespace

std::optional<double> FontDpiIn(std::string_view resources) {
    constexpr std::string_view kName = "Xft.dpi:";
    while (!resources.empty()) {
        const std::string_view line = resources.substr(0, resources.find('\n'));
        resources.remove_prefix(std::min(line.size() + 1, resources.size()));
        if (line.starts_with(kName)) return NumberIn<double>(line.substr(kName.size()));
    }
    return std::nullopt;
}

std::optional<double> WholeScaleIn(std::string_view text) {
    const std::optional<int> scale = NumberIn<int>(text);
    if (!scale || *scale < 1) return std::nullopt;
    return *scale;
}

DesktopDensity DensityAt(SDL_Window* window) {
    DesktopDensity density;
    const std::string_view driver = SDL_GetCurrentVideoDriver();
    if (driver == "wayland") {
        density.scale = 1;  // the compositor enlarges windows by itself: sizes are before that
        return density;
    }
    density.monitorDpi = DpiOfMonitor(window);
    if (driver != "x11") return density;
    if (const char* const scale = SDL_getenv("GDK_SCALE")) density.scale = WholeScaleIn(scale);
    density.fontDpi = FontDpiIn(DesktopResources(window));
    if (!density.monitorDpi) density.monitorDpi = DpiOfWholeScreen(window);
    return density;
}

}  // namespace korvane
