// A sound effect and a module from a skin. The same bytes are tried as both.

#include <memory>
#include <optional>
#include <vector>

#include "fuzz/expect.h"
#include "platform/host/sound_source.h"
#include "platform/sound/mixer.h"
#include "platform/sound/module_header.h"
#include "platform/sound/music_stream.h"
#include "platform/sound/sample.h"

namespace korvane::fuzz {
namespace {

void TrySample(std::span<const std::byte> input) {
    std::optional<Sample> loaded =
        LoadSample(std::make_shared<std::vector<std::byte>>(input.begin(), input.end()));
    if (!loaded) return;
    SampleReader reader(std::make_shared<const Sample>(*std::move(loaded)));
    Expect(reader.Channels() == 1 || reader.Channels() == 2);
    std::vector<std::int16_t> room(std::size_t{kSoundBufferFrames} * kSoundChannels);
    std::size_t samples = 0;
    while (!reader.HasEnded())
        samples += reader.Read(room).size();
    Expect(samples >= 1 && samples % static_cast<std::size_t>(reader.Channels()) == 0);
}

void TryModule(std::span<const std::byte> input) {
    const std::shared_ptr<MusicStream> module =
        OpenModuleLater(std::vector<std::byte>(input.begin(), input.end()));
    if (!module) return;
    Expect(CheckModuleHeader(input).has_value());
    Mixer mixer;
    std::vector<std::int16_t> heard(std::size_t{kSoundBufferFrames} * kSoundChannels);
    for (const int order : {0, module->Orders() - 1, 1000}) {
        mixer.StartMusic(module, order);
        mixer.Render(heard);
    }
}

}  // namespace
}  // namespace korvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto input = korvane::fuzz::InputBytes(data, size);
    korvane::fuzz::TrySample(input);
    korvane::fuzz::TryModule(input);
    return 0;
}
