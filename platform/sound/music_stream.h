#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace korvane {

/// A piece of music that can be started at each of its orders and repeats for ever.
class MusicStream {
  public:
    virtual ~MusicStream() = default;
    /// How many orders there are; may be called while another thread renders.
    virtual int Orders() const = 0;
    /// Cuts what sounds; the next frames are those at the beginning of an order, 0 to Orders() - 1.
    /// Any higher number means the first order.
    virtual void Seek(int order) = 0;
    /// Writes the next frames: interleaved stereo at kSoundRate, about -1 to 1. Never fails; frames
    /// that cannot be computed are silent.
    virtual void Render(std::span<float> samples) = 0;
};

/// Opens a tracker module; null when it is none of the formats of platform/sound/module_header.h or
/// is damaged. May throw std::bad_alloc.
std::unique_ptr<MusicStream> OpenModule(std::span<const std::byte> file);

/// The same, but a file that is accepted by its header alone is opened by the thread that plays it,
/// when it is first played. So the game starts without waiting for its music, which takes some 20
/// ms to open the first time. When memory runs out then, the music is silent.
std::unique_ptr<MusicStream> OpenModuleLater(std::vector<std::byte> file);

}  // namespace korvane
