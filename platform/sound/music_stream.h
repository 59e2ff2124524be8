#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace korvane {

/// A piece of music that can be started at each of its orders and goes on for ever.
class MusicStream {
  public:
    virtual ~MusicStream() = default;
    /// How many orders there are; may be asked while another thread renders.
    virtual int Orders() const = 0;
    /// Cuts what sounds; the next frames are those at the beginning of an order, 0 to Orders() - 1,
    /// or of the first one for any number above.
    virtual void Seek(int order) = 0;
    /// Writes the next frames: interleaved stereo at kSoundRate, about -1 to 1. Never fails; what
    /// cannot be had is silence.
    virtual void Render(std::span<float> samples) = 0;
};

/// Opens a tracker module; null when it is none of the formats of platform/module_header.h or is
/// damaged. May throw std::bad_alloc.
std::unique_ptr<MusicStream> OpenModule(std::span<const std::byte> file);

/// The same, but where the header alone tells that the file will do, it is opened by the thread
/// that plays it, when it first does: the game starts without waiting for its music, which takes
/// the player some 20 ms the first time. When memory runs out then, the music is silent.
std::unique_ptr<MusicStream> OpenModuleLater(std::vector<std::byte> file);

}  // namespace korvane
