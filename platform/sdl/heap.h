#pragma once

namespace korvane {

/// Prepares the heap for a start that loads some megabytes of pictures: to be called once, before.
void PrepareHeap();

/// Gives back to the system what loading needed and nobody uses now; from then on without huge
/// pages.
void TrimHeap();

}  // namespace korvane
