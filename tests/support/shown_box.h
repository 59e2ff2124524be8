#pragma once

#include <string>
#include <vector>

namespace korvane {

/// Answers every message box that comes up on the headless machine, while it lives.
class BoxAnswerer {
  public:
    /// Each box must be an error's with one of these texts and caption "Korvane".
    explicit BoxAnswerer(std::vector<std::string> texts);
    ~BoxAnswerer();
    BoxAnswerer(const BoxAnswerer&) = delete;
    BoxAnswerer& operator=(const BoxAnswerer&) = delete;

    /// The texts that were read, in order; "?" for another picture.
    const std::vector<std::string>& Read() const { return read_; }

  private:
    void Answer();

    std::vector<std::string> texts_;
    std::vector<std::string> read_;
};

}  // namespace korvane
