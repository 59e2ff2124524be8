#pragma once

namespace korvane::bench {

/// Loads the skin's module once, in the heap that the program has, and registers what measures the
/// sound. To be called before anything else, so that the first load is the process's first.
void RegisterSoundBenchmarks();

}  // namespace korvane::bench
