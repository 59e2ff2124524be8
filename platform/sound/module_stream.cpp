#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <map>
#include <mutex>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/sound_source.h"
#include "platform/sound/module_header.h"
#include "platform/sound/music_stream.h"

namespace korvane {
namespace {

/// Switches off what a file from an unknown author could make slow: effect plugins, playing through
/// the whole song before it starts, and finding each sample's exact position after a jump.
const std::map<std::string, std::string> kControls = {
    {"load.skip_plugins", "1"},
    {"load.skip_subsongs_init", "1"},
    {"seek.sync_samples", "0"},
};

/// For a first look, which only asks the player for the format: without the samples.
const std::map<std::string, std::string> kLook = {
    {"load.skip_plugins", "1"},
    {"load.skip_subsongs_init", "1"},
    {"load.skip_samples", "1"},
};

/// The player is asked for four buffers at a time. Between two calls its code and tables leave the
/// processor's caches, and reading them back costs more than computing one buffer.
constexpr std::size_t kBlockFrames = std::size_t{4} * kSoundBufferFrames;

/// Length of the filter that interpolates between two points of a sample: 4 points, cubic. The
/// player's own choice, 8, takes twice the time, because its table does not fit the nearest cache.
constexpr int kCubic = 4;

class ModuleStream final : public MusicStream {
  public:
    explicit ModuleStream(std::span<const std::byte> file,
                          const std::map<std::string, std::string>& controls = kControls)
        : module_(reinterpret_cast<const std::uint8_t*>(file.data()), file.size(), log_, controls) {
        module_.set_repeat_count(-1);
        module_.set_render_param(openmpt::module::RENDER_INTERPOLATIONFILTER_LENGTH, kCubic);
        orders_ = module_.get_num_orders();
    }

    /// Whether the player reads the file as the format that its header was checked for.
    bool IsOf(ModuleFormat format) const {
        return module_.get_metadata("type") == NameOf(format) &&
               module_.get_metadata("container").empty() && orders_ >= 1 &&
               orders_ <= static_cast<int>(kMaxModuleParts) &&
               module_.get_num_channels() <= static_cast<int>(kMaxModuleChannels);
    }

    int Orders() const override { return orders_; }

    void Seek(int order) override {
        unread_ = {};
        try {
            module_.set_position_order_row(order < orders_ ? order : 0, 0);
        } catch (const std::exception&) {
            // It plays on from where it is.
        }
    }

    void Render(std::span<float> samples) override {
        while (!samples.empty()) {
            if (unread_.empty()) RenderBlock();
            const std::size_t count = std::min(samples.size(), unread_.size());
            std::ranges::copy(unread_.first(count), samples.begin());
            unread_ = unread_.subspan(count);
            samples = samples.subspan(count);
        }
    }

  private:
    void RenderBlock() {
        block_.resize(kBlockFrames * kSoundChannels);
        std::size_t frames = 0;
        try {
            frames = module_.read_interleaved_stereo(kSoundRate, kBlockFrames, block_.data());
        } catch (const std::exception&) {
            // Silence.
        }
        std::fill(block_.begin() + static_cast<std::ptrdiff_t>(frames * kSoundChannels),
                  block_.end(), 0.0F);
        unread_ = block_;
    }

    std::ostream log_{nullptr};  ///< drops the player's warnings
    openmpt::module module_;
    int orders_ = 0;
    std::vector<float> block_;
    std::span<const float> unread_;  ///< the end of block_ that was not yet asked for
};

/// The length of the title that MOD and S3M files begin with. If the signature of another format
/// stood there, the player would read the file as that format, whose limits were not checked.
std::size_t TitleBytes(ModuleFormat format) {
    switch (format) {
        case ModuleFormat::Mod:
            return 20;
        case ModuleFormat::S3m:
            return 28;
        default:
            return 0;
    }
}

/// True when the player surely reads a file of this format as such: the signature of XM stands at
/// the very beginning, where no other format has a signature.
bool IsSure(ModuleFormat format) {
    return format == ModuleFormat::Xm;
}

/// A module that is opened when it is first played, by the thread that plays it.
class LateModule final : public MusicStream {
  public:
    explicit LateModule(std::vector<std::byte> file) : file_(std::move(file)) {}

    int Orders() const override {
        MusicStream* const module = Opened();
        return module ? module->Orders() : 0;
    }

    void Seek(int order) override {
        if (MusicStream* const module = Opened()) module->Seek(order);
    }

    void Render(std::span<float> samples) override {
        if (MusicStream* const module = Opened()) return module->Render(samples);
        std::ranges::fill(samples, 0.0F);
    }

  private:
    /// Null when memory ran out.
    MusicStream* Opened() const {
        std::call_once(once_, [this] {
            try {
                module_ = OpenModule(file_);
            } catch (const std::bad_alloc&) {
                // It stays silent.
            }
            file_ = {};
        });
        return module_.get();
    }

    mutable std::once_flag once_;
    mutable std::vector<std::byte> file_;  ///< until it is opened
    mutable std::unique_ptr<MusicStream> module_;
};

}  // namespace

std::unique_ptr<MusicStream> OpenModuleLater(std::vector<std::byte> file) {
    const std::optional<ModuleFormat> format = CheckModuleHeader(file);
    if (!format || !IsSure(*format)) return OpenModule(file);
    return std::make_unique<LateModule>(std::move(file));
}

std::unique_ptr<MusicStream> OpenModule(std::span<const std::byte> file) {
    const std::optional<ModuleFormat> format = CheckModuleHeader(file);
    if (!format) return nullptr;
    try {
        std::vector<std::byte> untitled;
        if (const std::size_t title = TitleBytes(*format); title > 0) {
            untitled.assign(file.begin(), file.end());
            std::fill_n(untitled.begin(), title, std::byte{0});
            file = untitled;
        }
        // Checked before any sample is loaded, as signatures can stand elsewhere too.
        if (!IsSure(*format) && !ModuleStream(file, kLook).IsOf(*format)) return nullptr;
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
