#pragma once

namespace korvane {

/// Restores both buffers and loads every picture of the current skin into the current display.
void ReloadSkinGraphics();

/// Loads every sound of the current skin and starts its music. Players and menu must exist.
void ReloadSkinAudio();

}  // namespace korvane
