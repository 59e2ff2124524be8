#include "screens/menu_press.h"

#include <algorithm>
#include <array>

#include "app/state/process_state.h"
#include "platform/window/user.h"
#include "screens/game_start.h"
#include "screens/setting_changes.h"

namespace korvane {
namespace {

void QuitProgram() {
    DestroyWindow(mainWindow);
}

void ToggleCredits() {
    theMenuScreen->ToggleCreditsView();
}

void ToggleKeyConfig() {
    theMenuScreen->ToggleKeyConfigView();
}

using enum MenuButton;
using enum Difficulty;
using enum Effect;

constexpr auto kLeft = Side::Left;
constexpr auto kRight = Side::Right;

constexpr std::array kPresses = {
    MenuPress{Quit, kMenuQuit, QuitProgram, Delayed},
    MenuPress{OnePlayer, kMenuOnePlayer, ChooseOnePlayer},
    MenuPress{TwoPlayers, kMenuTwoPlayers, ChooseTwoPlayers},
    MenuPress{Start, kMenuStart, StartMatch, Delayed},
    MenuPress{Music, kMenuMusic, ToggleMusic},
    MenuPress{SoundEffects, kMenuSoundEffects, ToggleSoundEffects},
    MenuPress{RightEasy, kMenuRightEasy, SetDifficulty<kRight, Easy>},
    MenuPress{RightMedium, kMenuRightMedium, SetDifficulty<kRight, Medium>},
    MenuPress{RightHard, kMenuRightHard, SetDifficulty<kRight, Hard>},
    MenuPress{LeftEasy, kMenuLeftEasy, SetDifficulty<kLeft, Easy>},
    MenuPress{LeftMedium, kMenuLeftMedium, SetDifficulty<kLeft, Medium>},
    MenuPress{LeftHard, kMenuLeftHard, SetDifficulty<kLeft, Hard>},
    MenuPress{Quakes, kMenuQuakes, ToggleQuakes},
    MenuPress{About, kMenuCredits, ToggleCredits, Delayed},
    MenuPress{ConfigureKeys, kMenuConfigureKeys, ToggleKeyConfig, Delayed},
    MenuPress{Battle, kMenuBattle, ToggleBattle},
    MenuPress{RightCounterClockwise, kMenuRightCounterClockwise, SetRotation<kRight, false>},
    MenuPress{RightClockwise, kMenuRightClockwise, SetRotation<kRight, true>},
    MenuPress{LeftCounterClockwise, kMenuLeftCounterClockwise, SetRotation<kLeft, false>},
    MenuPress{LeftClockwise, kMenuLeftClockwise, SetRotation<kLeft, true>},
    MenuPress{RightTime, kMenuRightTime, ToggleTimeBased<kRight>},
    MenuPress{LeftTime, kMenuLeftTime, ToggleTimeBased<kLeft>},
    // The main view ends here. The credits' way back has the same code as About.
    MenuPress{KeyConfigBack, kMenuKeyConfigBack, ToggleKeyConfig, Delayed},
};

constexpr auto kMainViewButtons = static_cast<std::size_t>(CreditsBack);
static_assert(kPresses.size() == kMainViewButtons + 1 &&
                  kPresses[kMainViewButtons].button == KeyConfigBack,
              "every button of the main view can be pressed");

}  // namespace

std::span<const MenuPress> MainViewPresses() {
    return std::span(kPresses).first(kMainViewButtons);
}

const MenuPress* FindMenuPress(std::int32_t action) {
    const auto* press = std::ranges::find(kPresses, action, &MenuPress::action);
    return press == kPresses.end() ? nullptr : press;
}

}  // namespace korvane
