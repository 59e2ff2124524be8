#include "app/window_size.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "app/state/data_file.h"
#include "app/state/process_state.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "platform/window/accelerators.h"
#include "platform/window/window_scale.h"
#include "res/accelerators.h"

namespace korvane {
namespace {

/// Eight bytes: a mark, so that a file of something else counts as none, and the scale.
struct WindowLayout {
    struct Record {
        std::array<char, 4> mark = kMark;
        std::uint32_t scale = 0;  ///< 0: the desktop's
    };

    static constexpr std::array<char, 4> kMark = {'K', 'W', 'I', 'N'};
    static constexpr std::string_view kPath = "data\\window.dat";
    static constexpr std::size_t kFewestBytes = 8;
    static constexpr bool kIsShared = false;

    static Record Defaults() { return {}; }
    static Record Unreached() { return {}; }
    static void Visit(auto& record, auto& visitor) {
        visitor(record.mark);
        visitor(record.scale);
    }
    static Record Merged(const Record& base, const Record& added, const Record& known) {
        return MergedFields<WindowLayout>(base, added, known);
    }
};

DataFileSession theSession;
std::optional<int> theKeptScale;

std::optional<int> ScaleIn(const WindowLayout::Record& record) {
    const bool isOurs = record.mark == WindowLayout::kMark && record.scale >= 1 &&
                        record.scale <= std::uint32_t{kLargestScale};
    if (!isOurs) return std::nullopt;
    return static_cast<int>(record.scale);
}

bool PlaysWith(const Player& player, std::uint8_t key) {
    constexpr std::array kActions = {Action::Rotate, Action::Drop, Action::Left, Action::Right,
                                     Action::Pause};
    return player.IsJoined() && std::ranges::any_of(kActions, [&](Action action) {
               return keyBindings.IsKeyOf(action, player.PlayerSide(), key);
           });
}

bool IsPlayedWith(std::uint8_t key) {
    if (menuShowing || !BothPlayersExist()) return false;
    return std::ranges::any_of(BothPlayers(),
                               [key](const Player* player) { return PlaysWith(*player, key); });
}

}  // namespace

bool TranslateSizeKey(const MSG& message) {
    if (IsPlayedWith(VK_CONTROL) || IsPlayedWith(static_cast<std::uint8_t>(message.wParam)))
        return false;
    return TranslateAccelerator(mainWindow, kSizeKeys, message);
}

void RecallWindowScale() {
    theKeptScale = ScaleIn(LoadDataFile<WindowLayout>(theSession).value_or(WindowLayout::Record()));
    ChooseWindowScale(theKeptScale);
}

void RememberWindowScale() {
    const std::optional<int> chosen = ChosenWindowScale();
    if (chosen == theKeptScale) return;
    theKeptScale = chosen;
    WindowLayout::Record record;
    record.scale = static_cast<std::uint32_t>(chosen.value_or(0));
    SaveDataFile<WindowLayout>(theSession, record);
}

}  // namespace korvane
