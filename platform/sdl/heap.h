#pragma once

namespace korvane {

// Both do nothing where the C library's heap takes no advice (mallopt, malloc_trim).

/// Prepares the heap for loading some megabytes of pictures. To be called once, before that.
void PrepareHeap();

/// Gives the system back what loading has left unused, and ends the use of huge pages.
void TrimHeap();

}  // namespace korvane
