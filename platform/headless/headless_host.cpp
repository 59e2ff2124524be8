#include "platform/headless/headless_host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace korvane {
namespace {

/// No folder, no files.
class NoFiles final : public Files {
  public:
    ReadResult TryRead(std::string_view, std::size_t) override { return {}; }
    bool Replace(std::string_view, std::span<const std::byte>) override { return false; }
    bool Delete(std::string_view, std::span<const std::byte>) override { return false; }
    std::optional<std::vector<FolderEntry>> List(std::string_view) override { return std::nullopt; }
};

const std::vector<DisplayMode> kOrdinaryModes = {{640, 480, 16, 60}, {640, 480, 32, 60}};

}  // namespace

HeadlessHost& Headless() {
    static HeadlessHost host;
    return host;
}

Host& TheHost() {
    return Headless();
}

HeadlessHost::HeadlessHost() : files_(std::make_unique<NoFiles>()), modes_(kOrdinaryModes) {}

void HeadlessHost::Reset() {
    *this = HeadlessHost();
}

void HeadlessHost::Advance(std::uint32_t milliseconds) {
    milliseconds_ += milliseconds;
}

void HeadlessHost::UseFolder(const std::string& folder) {
    files_ = OpenDiskFiles(folder);
}

void HeadlessHost::PushKey(std::uint8_t key, bool down, std::uint8_t modifiers) {
    HostEvent event;
    event.type = down ? HostEventType::KeyDown : HostEventType::KeyUp;
    event.key = key;
    event.modifiers = modifiers;
    Push(event);
}

void HeadlessHost::PushText(std::u32string_view text) {
    for (const char32_t character : text)
        Push({.type = HostEventType::Text, .character = character});
}

void HeadlessHost::PushLater(std::uint32_t milliseconds, const HostEvent& event) {
    const std::uint32_t due = milliseconds_ + milliseconds;
    const auto next = std::ranges::find_if(
        later_, [&](const LaterEvent& later) { return later.due - milliseconds_ > milliseconds; });
    later_.insert(next, {due, event});
}

SIZE HeadlessHost::PictureSize() const {
    return {clientSize_.cx * ShownScale(), clientSize_.cy * ShownScale()};
}

std::uint32_t HeadlessHost::PixelAt(int x, int y) const {
    const auto width = static_cast<std::size_t>(PictureSize().cx);
    return picture_.at(static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x));
}

void HeadlessHost::FailPresents(std::initializer_list<HRESULT> results) {
    presentResults_.assign(results.begin(), results.end());
}

std::uint64_t HeadlessHost::Counter() {
    return std::uint64_t{milliseconds_} * kCounterFrequency / 1000;
}

bool HeadlessHost::OpenWindow(const std::string& title, SIZE clientSize) {
    if (refuseWindow_) return false;
    open_ = true;
    title_ = title;
    windowedSize_ = clientSize;
    Resize(clientSize);
    return true;
}

void HeadlessHost::CloseWindow() {
    open_ = visible_ = fullScreen_ = false;
}

void HeadlessHost::ShowWindow(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    if (visible) Push({.type = HostEventType::Activated});
}

void HeadlessHost::SetClientSize(SIZE size) {
    if (size == windowedSize_) return;
    windowedSize_ = size;
    if (fullScreen_) return;
    Resize(size);
    Push({.type = HostEventType::Resized});
}

void HeadlessHost::SetScale(int scale) {
    if (scale == scale_) return;
    scale_ = scale;
    if (fullScreen_) return;
    Resize(clientSize_);
    Push({.type = HostEventType::Resized});
}

void HeadlessHost::SetClientOrigin(POINT origin) {
    if (origin == clientOrigin_) return;
    clientOrigin_ = origin;
    Push({.type = HostEventType::Moved});
}

RECT HeadlessHost::ClientArea() {
    if (fullScreen_) return RectAt({}, kScreen);
    return RectAt(clientOrigin_, clientSize_);
}

bool HeadlessHost::NextEvent(HostEvent& event) {
    while (!events_.empty()) {
        event = events_.front();
        events_.pop_front();
        if (event.type != HostEventType::Text || acceptsText_) return true;
    }
    return false;
}

void HeadlessHost::WaitForEvent(std::optional<std::uint32_t> milliseconds) {
    if (!events_.empty()) return;
    const std::uint32_t toNext = later_.empty() ? 0 : later_.front().due - milliseconds_;
    if (!later_.empty() && (!milliseconds || toNext <= *milliseconds)) {
        Advance(toNext);
        Push(later_.front().event);
        later_.pop_front();
        return;
    }
    if (milliseconds) {
        Advance(*milliseconds);
        return;
    }
    if (wake_) wake_();
    if (events_.empty()) {
        std::fputs("headless host: the program waits and nothing can wake it\n", stderr);
        std::abort();
    }
}

bool HeadlessHost::EnterFullScreen(SIZE pictureSize) {
    if (refuseFullScreen_) return false;
    fullScreen_ = true;
    Resize(pictureSize);
    Push({.type = HostEventType::Resized});
    return true;
}

void HeadlessHost::LeaveFullScreen() {
    if (!fullScreen_) return;
    fullScreen_ = false;
    Resize(windowedSize_);
    Push({.type = HostEventType::Resized});
}

HRESULT HeadlessHost::Present(const PictureView& picture, const RECT& target,
                              std::span<const RECT> changed) {
    if (!presentResults_.empty()) {
        const HRESULT result = presentResults_.front();
        presentResults_.pop_front();
        if (result == DDERR_SURFACELOST) std::fill(picture_.begin(), picture_.end(), 0);
        if (Failed(result)) return result;
    }
    ++presents_;
    for (const RECT& part : changed)
        presentedPixels_ +=
            static_cast<std::uint64_t>(part.Width()) * static_cast<std::uint64_t>(part.Height());
    const int scale = ShownScale();
    RECT place{0, 0, picture.width, picture.height};
    if (!fullScreen_)
        place = {target.left * scale, target.top * scale, target.right * scale,
                 target.bottom * scale};
    // Only what is said to have changed is copied, so that a change that was not announced is seen
    // as a fault. A picture that is not stretched by a whole number is copied whole.
    const RECT all{0, 0, picture.width, picture.height};
    const bool exact = place.Width() % picture.width == 0 && place.Height() % picture.height == 0;
    for (const RECT& part : exact ? changed : std::span(&all, 1))
        CopyPart(picture, place, part);
    return S_OK;
}

void HeadlessHost::CopyPart(const PictureView& picture, const RECT& place, const RECT& part) {
    const SIZE size = PictureSize();
    const auto stretchX = [&](int x) { return place.left + x * place.Width() / picture.width; };
    const auto stretchY = [&](int y) { return place.top + y * place.Height() / picture.height; };
    const RECT shown = Intersect(
        {stretchX(part.left), stretchY(part.top), stretchX(part.right), stretchY(part.bottom)},
        {0, 0, size.cx, size.cy});
    const bool isWide = place.Width() == picture.width;
    for (int y = shown.top; y < shown.bottom; ++y) {
        if (isWide && shown.left < shown.right) {
            const int row = (y - place.top) * picture.height / place.Height();
            std::copy_n(picture.pixels + static_cast<std::ptrdiff_t>(row) * picture.pitch +
                            shown.left - place.left,
                        shown.right - shown.left,
                        picture_.begin() + static_cast<std::ptrdiff_t>(y) * size.cx + shown.left);
            continue;
        }
        for (int x = shown.left; x < shown.right; ++x) {
            const int sourceX = (x - place.left) * picture.width / place.Width();
            const int sourceY = (y - place.top) * picture.height / place.Height();
            picture_[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.cx) +
                     static_cast<std::size_t>(x)] =
                picture.pixels[static_cast<std::ptrdiff_t>(sourceY) * picture.pitch + sourceX];
        }
    }
}

void HeadlessHost::Report(const std::string& caption, const std::string& text) {
    reports_.push_back(caption + ": " + text);
}

bool HeadlessHost::OpenSound(SoundSource& source) {
    looksForSound_ = refuseSound_;
    sound_ = refuseSound_ ? nullptr : &source;
    return !refuseSound_;
}

void HeadlessHost::CloseSound() {
    looksForSound_ = false;
    sound_ = nullptr;
}

std::vector<std::int16_t> HeadlessHost::Hear(std::size_t frames) {
    constexpr std::size_t kBuffer = std::size_t{kSoundBufferFrames} * kSoundChannels;
    std::vector<std::int16_t> heard(frames * kSoundChannels);
    if (sound_ == nullptr) return heard;
    for (std::span<std::int16_t> rest = heard; !rest.empty();) {
        const std::size_t count = std::min(kBuffer, rest.size());
        sound_->Render(rest.first(count));
        rest = rest.subspan(count);
    }
    return heard;
}

Files& HeadlessHost::GameFiles() {
    return *files_;
}

void HeadlessHost::Resize(SIZE size) {
    clientSize_ = size;
    const SIZE shown = PictureSize();
    picture_.assign(static_cast<std::size_t>(shown.cx) * static_cast<std::size_t>(shown.cy), 0);
}

}  // namespace korvane
