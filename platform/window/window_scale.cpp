#include "platform/window/window_scale.h"

#include <algorithm>
#include <cmath>

#include "platform/host/host.h"
#include "platform/window/desktop.h"

namespace korvane {
namespace {

/// The density that one screen pixel for a pixel is made for.
constexpr double kOrdinaryDpi = 96;

/// Televisions and projectors tell sizes that they do not have.
constexpr double kLeastDpi = 48, kMostDpi = 480;

std::optional<double> ScaleOfDpi(std::optional<double> dpi) {
    if (!dpi || !(*dpi >= kLeastDpi && *dpi <= kMostDpi)) return std::nullopt;
    return *dpi / kOrdinaryDpi;
}

/// Screen pixels that each layer pixel of the client area would have in one of this size.
double StretchTo(SIZE size, SIZE clientArea) {
    return std::min(static_cast<double>(size.cx) / clientArea.cx,
                    static_cast<double>(size.cy) / clientArea.cy);
}

void ApplyWindowScale() {
    const std::optional<int> chosen = TheDesktop().chosenScale;
    Host& host = TheHost();
    host.SetScale(LimitedScale(chosen ? *chosen : ScaleFor(host.Density()),
                               host.ClientArea().Size(), host.ClientLimit()));
}

}  // namespace

int ScaleFor(const DesktopDensity& density) {
    const std::optional<double> own = density.scale;
    const bool isSensible = own && *own >= 1 && *own <= kLargestScale;
    if (isSensible) return static_cast<int>(std::lround(*own));
    for (const auto& dpi : {density.fontDpi, density.monitorDpi})
        if (const auto scale = ScaleOfDpi(dpi))
            return std::max(1, static_cast<int>(std::lround(*scale)));
    return 1;
}

int LimitedScale(int scale, SIZE clientArea, SIZE limit) {
    const int fitting = static_cast<int>(StretchTo(limit, clientArea));
    return std::clamp(scale, 1, std::clamp(fitting, 1, kLargestScale));
}

int DraggedScale(SIZE dragged, bool insists, SIZE clientArea, SIZE limit) {
    const auto nearest = static_cast<int>(std::lround(StretchTo(dragged, clientArea)));
    return LimitedScale(insists ? kLargestScale : nearest, clientArea, limit);
}

std::optional<int> ChosenWindowScale() {
    return TheDesktop().chosenScale;
}

void ChooseWindowScale(std::optional<int> scale) {
    Desktop& desktop = TheDesktop();
    desktop.chosenScale = scale;
    if (desktop.window && !desktop.fullScreen) ApplyWindowScale();
}

void StepWindowScale(int steps) {
    if (TheDesktop().fullScreen) return;
    Host& host = TheHost();
    const int scale =
        LimitedScale(host.Scale() + steps, host.ClientArea().Size(), host.ClientLimit());
    if (scale != host.Scale()) ChooseWindowScale(scale);
}

void OnEdgeDragged(const HostEvent& event) {
    if (TheDesktop().fullScreen) return;
    Host& host = TheHost();
    const bool insists = event.amount != 0;
    const int scale =
        DraggedScale({event.x, event.y}, insists, host.ClientArea().Size(), host.ClientLimit());
    if (!insists) TheDesktop().chosenScale = scale;
    host.SetScale(scale);
}

}  // namespace korvane
