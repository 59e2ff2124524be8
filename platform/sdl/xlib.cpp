#include "platform/sdl/xlib.h"

#include <SDL_syswm.h>
#include <dlfcn.h>

namespace korvane {
namespace {

constexpr double kMillimetresPerInch = 25.4;

struct XWindow {
    Display* display = nullptr;
    ::Window window = 0;
};

std::optional<XWindow> XWindowOf(SDL_Window* window) {
    SDL_SysWMinfo system;
    SDL_VERSION(&system.version);
    if (SDL_GetWindowWMInfo(window, &system) != SDL_TRUE || system.subsystem != SDL_SYSWM_X11)
        return std::nullopt;
    return XWindow{system.info.x11.display, system.info.x11.window};
}

/// A function of Xlib; null when SDL has not loaded it.
template <typename Function>
Function* FromXlib(const char* name) {
    void* const xlib = dlopen("libX11.so.6", RTLD_LAZY | RTLD_NOLOAD);
    if (xlib == nullptr) return nullptr;
    auto* const function = reinterpret_cast<Function*>(dlsym(xlib, name));
    dlclose(xlib);  // SDL keeps it
    return function;
}

}  // namespace

std::string DesktopResources(SDL_Window* window) {
    const auto at = XWindowOf(window);
    auto* const read = FromXlib<decltype(XResourceManagerString)>("XResourceManagerString");
    const char* const resources = at && read != nullptr ? read(at->display) : nullptr;
    return resources != nullptr ? resources : "";
}

std::optional<double> DpiOfWholeScreen(SDL_Window* window) {
    const auto at = XWindowOf(window);
    if (!at) return std::nullopt;
    const int screen = DefaultScreen(at->display);
    const int millimetres = DisplayWidthMM(at->display, screen);
    if (millimetres <= 0) return std::nullopt;
    return DisplayWidth(at->display, screen) * kMillimetresPerInch / millimetres;
}

std::optional<SIZE> WholeScreenSize(SDL_Window* window) {
    const auto at = XWindowOf(window);
    auto* const ask = FromXlib<decltype(XGetGeometry)>("XGetGeometry");
    if (!at || ask == nullptr) return std::nullopt;
    ::Window root = 0;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    if (ask(at->display, DefaultRootWindow(at->display), &root, &x, &y, &width, &height, &border,
            &depth) == 0)
        return std::nullopt;
    return SIZE{static_cast<int>(width), static_cast<int>(height)};
}

void ResizeFullScreen(SDL_Window* window, SIZE size) {
    const auto at = XWindowOf(window);
    auto* const resize = FromXlib<decltype(XResizeWindow)>("XResizeWindow");
    if (at && resize != nullptr)
        resize(at->display, at->window, static_cast<unsigned>(size.cx),
               static_cast<unsigned>(size.cy));
}

}  // namespace korvane
