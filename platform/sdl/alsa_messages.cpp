#include "platform/sdl/alsa_messages.h"

#include <dlfcn.h>

namespace korvane {
namespace {

/// What the library calls with the place of an error and a text as of printf.
using ErrorHandler = void (*)(const char* file, int line, const char* function, int error,
                              const char* format, ...);

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

}  // namespace

void SilenceAlsa() {
    void* library = dlopen("libasound.so.2", RTLD_LAZY | RTLD_NOLOAD);
    if (!library) return;
    using Setter = int (*)(ErrorHandler handler);
    if (const auto set = reinterpret_cast<Setter>(dlsym(library, "snd_lib_error_set_handler")))
        set(SayNothing);
    dlclose(library);
}

}  // namespace korvane
