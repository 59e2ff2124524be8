#pragma once

namespace korvane::bench {

/// Loads the skin's module once, with the heap settings of the program, and registers the sound
/// benchmarks. To be called first, so that this load is the first of the process.
void RegisterSoundBenchmarks();

}  // namespace korvane::bench
