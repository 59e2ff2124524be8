#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// One side of what was heard.
std::vector<std::int16_t> SideOf(const std::vector<std::int16_t>& heard, std::size_t side);
/// The loudest sample of both sides, without its sign.
int PeakOf(const std::vector<std::int16_t>& heard);
/// The pitch of one side in Hz, by its waves; 0 for silence.
double PitchOf(const std::vector<std::int16_t>& side);

/// Plays on for a fifth of a second, without what the first two buffers still hold of before, and
/// tells by the pitch which order of a module of tests/support/xm_writer.h sounds (modulo
/// kXmTones); -1 for silence.
int HeardOrder();

}  // namespace korvane
