#pragma once

namespace korvane {

/// Opens the sound device and loads the music of the current skin; returns `audioReady`. What fails
/// is shown in a box, and the game goes on without it.
bool StartAudio();

/// Stops and frees the music and closes the device; `audioReady` is false from then on.
void StopAudio();

}  // namespace korvane
