#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <map>
#include <new>
#include <optional>
#include <sstream>
#include <string>

#include "platform/module_header.h"
#include "platform/music_stream.h"
#include "platform/sound_source.h"

namespace korvane {
namespace {

/// Nothing that a file from strangers can make dear: no effect plugins, no playing through the
/// whole song before it starts, no search for the samples' exact places at a jump.
const std::map<std::string, std::string> kControls = {
    {"load.skip_plugins", "1"},
    {"load.skip_subsongs_init", "1"},
    {"seek.sync_samples", "0"},
};

class ModuleStream final : public MusicStream {
  public:
    explicit ModuleStream(std::span<const std::byte> file)
        : module_(reinterpret_cast<const std::uint8_t*>(file.data()), file.size(), log_,
                  kControls) {
        module_.set_repeat_count(-1);
        orders_ = module_.get_num_orders();
    }

    /// The player may have taken the file for another format than its header was checked for.
    bool IsOf(ModuleFormat format) const {
        return module_.get_metadata("type") == NameOf(format) && orders_ >= 1 &&
               orders_ <= static_cast<int>(kMaxModuleParts) &&
               module_.get_num_channels() <= static_cast<int>(kMaxModuleChannels);
    }

    int Orders() const override { return orders_; }

    void Seek(int order) override {
        try {
            module_.set_position_order_row(order, 0);
        } catch (const std::exception&) {
            // It goes on where it is.
        }
    }

    void Render(std::span<float> samples) override {
        std::size_t frames = 0;
        try {
            frames = module_.read_interleaved_stereo(kSoundRate, samples.size() / kSoundChannels,
                                                     samples.data());
        } catch (const std::exception&) {
            // Silence.
        }
        std::ranges::fill(samples.subspan(frames * kSoundChannels), 0.0F);
    }

  private:
    std::ostringstream log_;  // what the player grumbles about is nobody's concern
    openmpt::module module_;
    int orders_ = 0;
};

}  // namespace

std::unique_ptr<MusicStream> OpenModule(std::span<const std::byte> file) {
    const std::optional<ModuleFormat> format = CheckModuleHeader(file);
    if (!format) return nullptr;
    try {
        auto stream = std::make_unique<ModuleStream>(file);
        if (!stream->IsOf(*format)) return nullptr;
        return stream;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace korvane
