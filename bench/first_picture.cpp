// first_picture ROUNDS PROGRAM-A PROGRAM-B: the time from a process's start until its picture is on
// the screen, for two programs in turn; prints the medians in milliseconds and their ratio A / B.
// It looks at one pixel in the middle of an otherwise black screen (a bare Xvfb), where both show
// something that is not black.

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLimit = std::chrono::seconds(10);
constexpr auto kPause = std::chrono::microseconds(500);

bool IsMiddleLit(Display* display) {
    const int screen = DefaultScreen(display);
    XImage* image =
        XGetImage(display, RootWindow(display, screen), DisplayWidth(display, screen) / 2,
                  DisplayHeight(display, screen) / 2, 1, 1, AllPlanes, ZPixmap);
    const bool lit = image && (XGetPixel(image, 0, 0) & 0xFFFFFF) != 0;
    if (image) XDestroyImage(image);
    return lit;
}

/// Waits until the middle is lit or dark; false after the limit.
bool WaitForMiddle(Display* display, bool lit) {
    const auto start = Clock::now();
    while (IsMiddleLit(display) != lit) {
        if (Clock::now() - start > kLimit) return false;
        // Looking without a pause would keep two processors busy: this program's and the server's.
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

/// Milliseconds until the program's picture stands; negative when it never came.
double TimeToPicture(Display* display, const char* program) {
    if (!WaitForMiddle(display, false)) return -1;
    const auto start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, static_cast<char*>(nullptr));
        _exit(127);
    }
    const bool shown = WaitForMiddle(display, true);
    const std::chrono::duration<double, std::milli> passed = Clock::now() - start;
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return shown ? passed.count() : -1;
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc == 4 ? std::atoi(argv[1]) : 0;
    // Without a sound device a message box would come up instead of the picture.
    setenv("SDL_AUDIODRIVER", "dummy", /*overwrite=*/0);
    Display* display = XOpenDisplay(nullptr);
    if (rounds < 1 || !display) {
        std::fputs("usage: first_picture ROUNDS PROGRAM-A PROGRAM-B, with a display\n", stderr);
        return 2;
    }
    std::vector<double> times[2];
    for (int round = 0; round < rounds; ++round) {
        for (int i = 0; i < 2; ++i) {
            const double time = TimeToPicture(display, argv[2 + i]);
            if (time < 0) {
                std::fprintf(stderr, "%s shows nothing\n", argv[2 + i]);
                return 1;
            }
            times[i].push_back(time);
        }
    }
    const double a = Median(times[0]);
    const double b = Median(times[1]);
    std::printf("%.1f ms against %.1f ms: %.2f\n", a, b, a / b);
    return 0;
}
