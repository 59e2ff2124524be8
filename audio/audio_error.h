#pragma once

#include <string>

namespace korvane {

/// Shows an error box: the text, and the audio library's code of its last failure.
void ShowAudioError(const std::string& text);

}  // namespace korvane
