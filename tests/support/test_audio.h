#pragma once

#include <string>

#include "tests/support/temporary_folder.h"

namespace korvane {

/// The names of the eight sound effects' files.
inline constexpr const char* kSoundFileNames[] = {"Button.wav", "Double.wav",   "Landed.wav",
                                                  "Rotate.wav", "NewLevel.wav", "Single.wav",
                                                  "Tetris.wav", "Triple.wav"};

/// Writes a skin's Audio folder: a module of tests/support/xm_writer.h as sniffit.xm, a module.txt
/// that names it with the positions 0, 8 and 54, and every sound effect as a short click.
void WriteTestAudio(const TemporaryFolder& folder, const std::string& skin);

}  // namespace korvane
