#pragma once

#include <string>
#include <vector>

namespace korvane {

/// Answers every message box that comes up on the headless machine, while it lives.
class BoxAnswerer {
  public:
    /// Each box must have one of these texts and be either a fatal error's (with caption "Korvane"
    /// and the icon) or one of the sound's (with caption "Error" and none).
    explicit BoxAnswerer(std::vector<std::string> texts);
    ~BoxAnswerer();
    BoxAnswerer(const BoxAnswerer&) = delete;
    BoxAnswerer& operator=(const BoxAnswerer&) = delete;

    /// The texts that were read, in order; "?" for another picture.
    const std::vector<std::string>& Read() const { return read_; }

  private:
    std::vector<std::string> texts_;
    std::vector<std::string> read_;
};

}  // namespace korvane
