#pragma once

#include <cstdint>
#include <vector>

namespace korvane {

/// The loudest sample of both sides, without its sign.
int PeakOf(const std::vector<std::int16_t>& heard);
/// The pitch of one channel in Hz, by counting its waves; 0 for silence.
double PitchOf(const std::vector<std::int16_t>& side);

/// Skips two buffers, which may still hold what was heard before, and listens for a fifth of a
/// second. The pitch tells which order of a module of tests/support/xm_writer.h sounds (modulo
/// kXmTones); -1 for silence.
int HeardOrder();

}  // namespace korvane
