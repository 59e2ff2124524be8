#pragma once

namespace korvane {

/// Opens the sound device and loads the music of the current skin; returns `audioReady`. What fails
/// is shown in a box, and the game goes on without it.
bool StartAudio();

/// Opens a sound device that has come after `StartAudio` found none. True when there is one now
/// that was not there before: sounds and music are then to be loaded.
bool TakeUpAudio();

/// Stops and frees the music and closes the device; `audioReady` is false from then on.
void StopAudio();

}  // namespace korvane
