#pragma once

namespace korvane {

/// Prepares the heap for a start that loads some megabytes of pictures: to be called once, before.
void PrepareHeap();

/// Gives back to the system what the start needed and nobody uses now.
void TrimHeap();

}  // namespace korvane
