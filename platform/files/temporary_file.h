#pragma once

#include <string>

#include "platform/files/folder_walk.h"

namespace korvane {

/// The file that is written beside the one it is to replace; deleted unless it was put in place.
///
/// Each has a name of its own and is locked for as long as its program lives: that tells it from
/// what a killed program has left.
class TemporaryFile {
  public:
    explicit TemporaryFile(const PathEnd& target);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Open for writing; false when the file could not be made.
    const Descriptor& Opened() const { return file_; }
    /// Puts it in the target's place.
    bool PutInPlace();

    /// Deletes what killed programs have left beside a target and the files named after it.
    static void SweepBeside(const PathEnd& target);

  private:
    int Folder() const { return target_.folder.Number(); }
    bool Make();

    const PathEnd& target_;
    std::string name_;
    Descriptor file_;
    bool inPlace_ = false;
};

}  // namespace korvane
