#include "platform/sdl/desktop_density.h"

#include <SDL_stdinc.h>
#include <SDL_syswm.h>
#include <dlfcn.h>

#include <algorithm>
#include <charconv>
#include <system_error>

namespace korvane {
namespace {

constexpr double kMillimetresPerInch = 25.4;

/// A number at the beginning of a text, behind blanks.
template <typename Number>
std::optional<Number> NumberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc()) return std::nullopt;
    return number;
}

/// What the desktop has told the X server; Xlib has got it when it connected. SDL has loaded Xlib,
/// so the program itself need not depend on it.
std::string_view ResourcesOf(Display* display) {
    using Reader = char* (*)(Display*);
    void* const xlib = dlopen("libX11.so.6", RTLD_LAZY | RTLD_NOLOAD);
    if (xlib == nullptr) return {};
    const auto read = reinterpret_cast<Reader>(dlsym(xlib, "XResourceManagerString"));
    const char* const resources = read != nullptr ? read(display) : nullptr;
    dlclose(xlib);  // SDL keeps it
    return resources != nullptr ? resources : std::string_view();
}

/// By what the server says of its whole screen: it may know that where it knows no monitor.
std::optional<double> DpiOfScreen(Display* display) {
    const int screen = DefaultScreen(display);
    const int millimetres = DisplayWidthMM(display, screen);
    if (millimetres <= 0) return std::nullopt;
    return DisplayWidth(display, screen) * kMillimetresPerInch / millimetres;
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
    SDL_SysWMinfo system;
    SDL_VERSION(&system.version);
    if (SDL_GetWindowWMInfo(window, &system) != SDL_TRUE) return {};
    // The compositor enlarges windows by itself: all sizes are before that.
    DesktopDensity density;
    if (system.subsystem == SDL_SYSWM_WAYLAND) {
        density.scale = 1;
        return density;
    }
    density.monitorDpi = DpiOfMonitor(window);
    if (system.subsystem != SDL_SYSWM_X11) return density;
    Display* const display = system.info.x11.display;
    if (const char* const scale = SDL_getenv("GDK_SCALE")) density.scale = WholeScaleIn(scale);
    density.fontDpi = FontDpiIn(ResourcesOf(display));
    if (!density.monitorDpi) density.monitorDpi = DpiOfScreen(display);
    return density;
}

}  // namespace korvane
