#pragma once

namespace korvane {

/// Prepares the heap for a start that loads some megabytes of pictures: to be called once, before.
void PrepareHeap();

}  // namespace korvane
