#pragma once

namespace korvane {

/// Prepares the heap for loading some megabytes of pictures. To be called once, before that.
void PrepareHeap();

/// Gives the system back what loading has left unused, and ends the use of huge pages.
void TrimHeap();

}  // namespace korvane
