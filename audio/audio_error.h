#pragma once

#include <string>

namespace korvane {

/// Tells the user what could not be had, with the audio library's code of its last failure.
void ShowAudioError(const std::string& text);

}  // namespace korvane
