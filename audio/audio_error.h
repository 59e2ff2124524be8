#pragma once

#include <string>

namespace korvane {

/// Shows an error box: the text, and the audio library's code of its last failure.
void ShowAudioError(const std::string& text);

/// The same for a sound or module that could not be loaded. Where nothing of a skin can be read at
/// all the screen says it once, and no box is shown.
void ShowLoadError(const std::string& text);

}  // namespace korvane
