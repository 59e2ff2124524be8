#include "platform/files/temporary_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

namespace korvane {
namespace {

std::string Prefix(const PathEnd& target) {
    return "." + target.name + ".";
}

constexpr const char* kSuffix = ".tmp";

/// Locks a file just made. False when another program has taken it for litter before that.
bool Claim(const Descriptor& file) {
    if (!file.Lock() && errno == EWOULDBLOCK) return false;
    struct stat status {};
    return fstat(file.Number(), &status) != 0 || status.st_nlink > 0;
}

void DeleteUnlessHeld(const PathEnd& target, const std::string& name) {
    const int folder = target.folder.Number();
    struct stat status {};
    if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return;
    if (!S_ISREG(status.st_mode)) return;
    const Descriptor file = OpenIn(target.folder, name.c_str(), O_WRONLY | O_NONBLOCK);
    if (file && file.Lock()) unlinkat(folder, name.c_str(), 0);
}

}  // namespace

TemporaryFile::TemporaryFile(const PathEnd& target) : target_(target) {
    constexpr int kTries = 10;
    for (int i = 0; i < kTries && !file_ && Make(); ++i) {
    }
}

TemporaryFile::~TemporaryFile() {
    if (file_ && !inPlace_) unlinkat(Folder(), name_.c_str(), 0);
}

/// False when another try has no point.
bool TemporaryFile::Make() {
    static std::atomic<unsigned> made = 0;
    name_ = Prefix(target_) + std::to_string(getpid()) + "-" + std::to_string(made++) + kSuffix;
    Descriptor file = OpenIn(target_.folder, name_.c_str(), O_WRONLY | O_CREAT | O_EXCL);
    if (!file) return errno == EEXIST;
    if (Claim(file)) file_ = std::move(file);
    return true;
}

bool TemporaryFile::PutInPlace() {
    inPlace_ = renameat(Folder(), name_.c_str(), Folder(), target_.name.c_str()) == 0;
    return inPlace_;
}

void TemporaryFile::SweepBeside(const PathEnd& target) {
    const std::string prefix = Prefix(target);
    for (const std::string& name : NamesIn(target.folder, ".").value_or(std::vector<std::string>()))
        if (name.starts_with(prefix) && name.ends_with(kSuffix)) DeleteUnlessHeld(target, name);
}

}  // namespace korvane
