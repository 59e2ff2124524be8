#include "platform/files/descriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace korvane {

Descriptor::~Descriptor() {
    if (number_ >= 0) close(number_);
}

bool Descriptor::Lock() const {
    return Uninterrupted([this] { return flock(number_, LOCK_EX | LOCK_NB); }) == 0;
}

bool Descriptor::Flush() const {
    return Uninterrupted([this] { return fsync(number_); }) == 0;
}

Descriptor OpenIn(const Descriptor& folder, const char* name, int flags) {
    constexpr mode_t kNewFileMode = 0666;
    return Descriptor(Uninterrupted([&] {
        return openat(folder.Number(), name, flags | O_NOFOLLOW | O_CLOEXEC, kNewFileMode);
    }));
}

bool TellsOfNothing(int error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
}

}  // namespace korvane
