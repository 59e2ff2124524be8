// Preloaded into a program, this fails or kills it at one of its calls that touch files beneath a
// folder. tools/faults tells by the environment what is to happen:
//
//   FAULT_BENEATH  the folder; calls for other files are neither counted nor touched
//   FAULT_AT       the number of the call, from 1; 0 for none
//   FAULT_HOW      "kill", "short" (reads and writes do half of it) or an error number
//   FAULT_STAYS    names of calls with blanks round each: they fail from then on, too
//   FAULT_LOG      a file that gets the name of each call
//   FAULT_END      set: the program gets SIGTERM when it shows its window

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::string Setting(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

struct Plan {
    std::string beneath = Setting("FAULT_BENEATH");
    int at = std::atoi(Setting("FAULT_AT").c_str());
    std::string how = Setting("FAULT_HOW");
    std::string stays = Setting("FAULT_STAYS");
    std::FILE* log =
        Setting("FAULT_LOG").empty() ? nullptr : std::fopen(Setting("FAULT_LOG").c_str(), "w");
    std::atomic<int> calls = 0;
};

Plan& ThePlan() {
    static Plan& plan = *new Plan;  // outlives the program's own objects, which save files
    return plan;
}

std::string PlaceOf(int file) {
    std::array<char, PATH_MAX> text;
    std::string link = "/proc/self/cwd";
    if (file != AT_FDCWD) link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), text.data(), text.size());
    return length < 0 ? "" : std::string(text.data(), static_cast<std::size_t>(length));
}

std::string PlaceOf(int folder, const char* name) {
    return PlaceOf(folder).append("/").append(name);
}

/// Counts a call, and kills the program if that is what happens to it. True when something else
/// happens to it.
bool IsHit(const char* call, const std::string& place) {
    Plan& plan = ThePlan();
    if (plan.beneath.empty() || !place.starts_with(plan.beneath)) return false;
    const int number = ++plan.calls;
    if (plan.log) {
        std::fprintf(plan.log, "%s\n", call);
        std::fflush(plan.log);
    }
    const bool stays =
        plan.stays.find(std::string(" ").append(call).append(" ")) != std::string::npos;
    if (plan.at == 0 || number < plan.at || (number > plan.at && !stays)) return false;
    if (plan.how == "kill") std::raise(SIGKILL);
    return stays || number == plan.at;
}

bool Fails(const char* call, const std::string& place) {
    if (!IsHit(call, place)) return false;
    errno = std::atoi(ThePlan().how.c_str());
    return errno != 0;
}

/// How many of so many bytes are to be moved; -1 when the call fails.
ssize_t Moved(const char* call, int file, std::size_t count) {
    const bool hit = IsHit(call, PlaceOf(file));
    if (hit && ThePlan().how == "short") return static_cast<ssize_t>((count + 1) / 2);
    if (hit) errno = std::atoi(ThePlan().how.c_str());
    return hit ? -1 : static_cast<ssize_t>(count);
}

template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// NOLINTBEGIN: names and signatures of the system
#define FAULTY(result, name, parameters, arguments, place, failure) \
    extern "C" result name parameters {                             \
        static auto* const real = Real<result parameters>(#name);   \
        return Fails(#name, place) ? failure : real arguments;      \
    }

FAULTY(int, fstat, (int file, struct stat* status) noexcept, (file, status), PlaceOf(file), -1)
FAULTY(int, fstatat, (int folder, const char* name, struct stat* status, int flags) noexcept,
       (folder, name, status, flags), PlaceOf(folder, name), -1)
FAULTY(int, faccessat, (int folder, const char* name, int mode, int flags) noexcept,
       (folder, name, mode, flags), PlaceOf(folder, name), -1)
FAULTY(int, fchmod, (int file, mode_t mode) noexcept, (file, mode), PlaceOf(file), -1)
FAULTY(int, fsync, (int file), (file), PlaceOf(file), -1)
FAULTY(int, flock, (int file, int what) noexcept, (file, what), PlaceOf(file), -1)
FAULTY(int, renameat, (int from, const char* name, int to, const char* other) noexcept,
       (from, name, to, other), PlaceOf(from, name), -1)
FAULTY(int, unlinkat, (int folder, const char* name, int flags) noexcept, (folder, name, flags),
       PlaceOf(folder, name), -1)
FAULTY(DIR*, fdopendir, (int folder), (folder), PlaceOf(folder), nullptr)
FAULTY(dirent*, readdir, (DIR * folder), (folder), PlaceOf(dirfd(folder)), nullptr)

extern "C" int openat(int folder, const char* name, int flags, ...) {
    static auto* const real = Real<int(int, const char*, int, ...)>("openat");
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return Fails("openat", PlaceOf(folder, name)) ? -1 : real(folder, name, flags, mode);
}

extern "C" int open(const char* name, int flags, ...) {
    static auto* const real = Real<int(const char*, int, ...)>("open");
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const std::string place = *name == '/' ? name : PlaceOf(AT_FDCWD, name);
    return Fails("open", place) ? -1 : real(name, flags, mode);
}

extern "C" ssize_t read(int file, void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, void*, std::size_t)>("read");
    const ssize_t moved = Moved("read", file, count);
    return moved < 0 ? -1 : real(file, bytes, static_cast<std::size_t>(moved));
}

extern "C" ssize_t write(int file, const void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, const void*, std::size_t)>("write");
    const ssize_t moved = Moved("write", file, count);
    return moved < 0 ? -1 : real(file, bytes, static_cast<std::size_t>(moved));
}

extern "C" void SDL_ShowWindow(void* window) {
    static auto* const real = Real<void(void*)>("SDL_ShowWindow");
    real(window);
    if (!Setting("FAULT_END").empty()) kill(getpid(), SIGTERM);
}
// NOLINTEND
