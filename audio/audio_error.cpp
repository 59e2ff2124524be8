#include "audio/audio_error.h"

#include "app/state/process_state.h"
#include "app/state/skin_presence.h"
#include "platform/sound/bass.h"
#include "platform/window/message_box.h"

namespace korvane {

void ShowAudioError(const std::string& text) {
    const std::string code = std::to_string(BASS_ErrorGetCode());
    MessageBox(mainWindow, text + "\n(error code: " + code + ")", "Error", MB_OK);
}

void ShowLoadError(const std::string& text) {
    if (IsAnySkinReadable()) ShowAudioError(text);
}

}  // namespace korvane
