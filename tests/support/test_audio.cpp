#include "tests/support/test_audio.h"

#include <span>
#include <string_view>

#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace korvane {

void WriteTestAudio(const TemporaryFolder& folder, const std::string& skin) {
    constexpr std::string_view kModuleText =
        "FILENAME:\nsniffit.xm\nMENU START POSITION:\n0\n"
        "GAME START POSITION:\n8\nHIGH SCORE START POSITION:\n54\n";
    const std::string root = "Skins/" + skin + "/Audio/";
    folder.Write(root + "module.txt", std::as_bytes(std::span(kModuleText)));
    folder.Write(root + "sniffit.xm", MakeXm({}));
    for (const char* name : kSoundFileNames)
        folder.Write(root + name, MakeWav({}));
}

}  // namespace korvane
