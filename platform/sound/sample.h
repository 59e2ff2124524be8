#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/sound/wav.h"

struct SRC_STATE_tag;  // of the library that converts rates

namespace korvane {

/// The bytes of a file, which never change and may belong to several samples.
using SharedBytes = std::shared_ptr<const std::vector<std::byte>>;

/// A short sound in memory, as its file holds it.
struct Sample {
    SharedBytes file;
    WavSound sound;  ///< a view of the file
};

/// Looks whether a WAV file is accepted (see platform/sound/wav.h) and long enough to be heard. No
/// value when it is not. Nothing is decoded: a SampleReader does that while it plays.
std::optional<Sample> LoadSample(SharedBytes file);

/// Reads a sample from its beginning to its end, decoded and with kSoundRate frames per second.
/// What it reads does not depend on the sizes of the parts that it is read in.
class SampleReader {
  public:
    explicit SampleReader(std::shared_ptr<const Sample> sample);
    ~SampleReader();
    SampleReader(const SampleReader&) = delete;
    SampleReader& operator=(const SampleReader&) = delete;

    int Channels() const { return sample_->sound.channels; }
    /// Writes the next frames and returns the part that it filled. It is all of `room`, which is
    /// for whole frames, unless the sound ends or there is no memory to convert its rate.
    std::span<std::int16_t> Read(std::span<std::int16_t> room);
    /// Nothing is left to be read. When the rate is converted, that may only show in a Read that
    /// fills nothing.
    bool HasEnded() const { return ended_; }

  private:
    struct Deleter {
        void operator()(SRC_STATE_tag* converter) const;
    };

    bool IsConverted() const;
    // Both fill some of `room` and return how much; 0 at the end.
    std::size_t Copy(std::span<std::int16_t> room);
    std::size_t Convert(std::span<std::int16_t> room);
    void MakeConverter();
    /// The next samples as floating point; none at the end.
    std::span<float> NextInput();

    const std::shared_ptr<const Sample> sample_;
    std::size_t next_ = 0;  ///< sample that was not yet read from the file
    bool ended_ = false;
    bool isMade_ = false;
    std::unique_ptr<SRC_STATE_tag, Deleter> converter_;  ///< null when memory ran out
    std::array<float, 512> input_{};
    std::array<float, 1024> output_{};
};

}  // namespace korvane
