#include "audio/audio_error.h"

#include "app/process_state.h"
#include "platform/bass.h"
#include "platform/user.h"

namespace korvane {

void ShowAudioError(const std::string& text) {
    const std::string code = std::to_string(BASS_ErrorGetCode());
    MessageBox(mainWindow, text + "\n(error code: " + code + ")", "Error", MB_OK);
}

}  // namespace korvane
