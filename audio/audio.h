#pragma once

namespace korvane {

/// Opens the sound device and loads the music of the current skin; returns `audioReady`. The user
/// is told what fails, and the game goes on without it.
bool StartAudio();

/// Ends and frees the music and closes the device; `audioReady` is false from then on.
void StopAudio();

}  // namespace korvane
