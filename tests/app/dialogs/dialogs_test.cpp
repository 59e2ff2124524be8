#include <tuple>

#include "app/dialogs/advanced_dialog.h"
#include "app/dialogs/mode_text.h"
#include "app/program.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/level_table.h"
#include "platform/dialogs/dialog_items.h"
#include "platform/headless/headless_host.h"
#include "platform/window/desktop.h"
#include "platform/window/modal_window.h"
#include "res/commands.h"
#include "res/dialog_ids.h"
#include "screens/menu_screen.h"
#include "tests/support/dialog_script.h"
#include "tests/support/golden.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

/// The program's dialogs, opened by their commands and used from outside.
class DialogsTest : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        Headless().SetDisplayModes({{640, 480, 32, 60}, {640, 480, 16, 60}, {800, 600, 16, 60}});
    }

    /// Goes through the acts in what comes up: at the start, or for a command.
    void Use(std::optional<std::uint16_t> command, Acts acts) {
        const DialogScript script(std::move(acts));
        command ? Command(*command) : Start();
        EXPECT_TRUE(script.WentAsWritten());
        EXPECT_EQ(ShownDialog(), nullptr);
    }

    static HCTL List(std::uint16_t id) { return GetDlgItem(ShownDialog(), id); }
    static std::string TextOf(std::uint16_t id) { return GetDlgItemText(ShownDialog(), id, 1000); }
    static std::vector<std::string> Entries(std::uint16_t id) {
        std::vector<std::string> entries;
        for (int i = 0; !ListBox_GetText(List(id), i).empty(); ++i)
            entries.push_back(ListBox_GetText(List(id), i));
        return entries;
    }
    static std::string Selected(std::uint16_t id) {
        return ListBox_GetText(List(id), ListBox_GetCurSel(List(id)));
    }
    static void Select(std::uint16_t id, const char* entry) {
        ListBox_SetCurSel(List(id), ListBox_FindStringExact(List(id), entry));
    }
    /// The messages of a press on the scroll bar.
    static void SendScroll(ScrollRequest request, int times) {
        for (int i = 0; i < times; ++i)
            AdvancedDlg(ShownDialog(), WM_HSCROLL, request, 0);
    }
    static void Ok() { PressKeys({VK_RETURN}); }
    static void Cancel() { PressKeys({VK_ESCAPE}); }
    static void EndFromOutside() { Headless().Push({.type = HostEventType::Terminate}); }
    /// Compares the shown dialog or box with a golden picture.
    static Act Looks(const char* picture) {
        return [=] { EXPECT_TRUE(MatchesGolden(picture, TheDesktop().modal->Place())); };
    }
    void MakeSkin(const std::string& name) const {
        std::filesystem::create_directories(folder.Path() + "/Skins/" + name);
    }
};

TEST_F(DialogsTest, TheFirstStartShowsTheAdvancedSettingsBeforeTheWindow) {
    theSettings.showAdvancedAtStart = true;
    const auto isAloneAndCentred = [] {
        const RECT area = Headless().ClientArea();
        const RECT work = Headless().WorkArea();
        EXPECT_NEAR(area.left - work.left, work.right - area.right, 1);
        EXPECT_NEAR(area.top - work.top, work.bottom - area.bottom, 1);
        Cancel();
    };
    Use(std::nullopt, {isAloneAndCentred, ClickOn(IDCANCEL), Ok});
    EXPECT_FALSE(theSettings.showAdvancedAtStart);
    EXPECT_EQ(Headless().Title(), "Korvane");
}

TEST_F(DialogsTest, AnEndFromOutsideInADialogOrItsBoxWritesTheFiles) {
    for (const auto& [first, acts, asksAgain] :
         {std::tuple<bool, Acts, bool>{true, {EndFromOutside}, true},
          {true, {Ok, EndFromOutside}, false},
          {false, {EndFromOutside}, false}}) {
        SetUp();
        theSettings.showAdvancedAtStart = first;
        Headless().SetDisplayModes({});  // after OK a box tells it
        const DialogScript script(acts);
        ASSERT_TRUE(StartUp());
        if (!first) Command(kCmdAbout);
        EXPECT_TRUE(script.WentAsWritten());
        EXPECT_EQ(Headless().IsVisible(), !first) << "an unanswered first dialog shows no window";
        EXPECT_EQ(Passes(10), 0);
        EXPECT_EQ(theSettings.showAdvancedAtStart, asksAgain);
        EXPECT_EQ(folder.Read("data/hs.dat").size(), 260u);
        EXPECT_EQ(folder.Read("data/keys.dat").size(), 10u);
    }
}

TEST_F(DialogsTest, QuitPressedJustBeforeADialogEndsItAndItsBoxes) {
    for (const bool modes : {true, false}) {
        SetUp();
        Start();
        audioReady = true;
        if (!modes) Headless().SetDisplayModes({});
        std::filesystem::remove_all(folder.Path() + "/Skins/Original/Audio");
        pendingClick = kMenuQuit;
        SetTimer(mainWindow, 3, 200);
        PressKeys({VK_RETURN});  // OK; a message box follows that nobody answers
        Command(kCmdAdvancedSettings);
        Run(1000);
        EXPECT_FALSE(IsRunning());
    }
}

TEST_F(DialogsTest, SkinsAreTheFoldersWhoseNamesCanBeStored) {
    const std::string longest(254, 'x');
    for (const char* name :
         {"beta", "Alpha", ".hidden", "n\xFC\x80zz", "beta\\original", "ORIGINAL"})
        MakeSkin(name);
    MakeSkin(longest);
    MakeSkin(longest + "y");
    folder.Write("Skins/file", {});
    theSettings.skinName = "vanished";
    Start();
    Use(kCmdAdvancedSettings,
        {[&] {
             EXPECT_EQ(Entries(kItemSkins),
                       (std::vector<std::string>{"Alpha", "beta", "n\xFC\x80zz", "ORIGINAL",
                                                 "Original", longest}));
             EXPECT_EQ(Selected(kItemSkins), "Original") << "not the other one";
             EXPECT_EQ(
                 Entries(kItemDisplayModes),
                 (std::vector<std::string>{"640 x 480 x 32 - 60 Hz", "640 x 480 x 16 - 60 Hz"}));
             EXPECT_EQ(Selected(kItemDisplayModes), "640 x 480 x 32 - 60 Hz");
             Select(kItemSkins, longest.c_str());
         },
         Ok});
    EXPECT_EQ(theSettings.skinName, longest);
}

TEST_F(DialogsTest, AdvancedChangesEverythingWithOkAndNothingWithCancel) {
    MakeSkin("Another");
    Start();
    SettingsValues changed = theSettings;
    const auto change = [] {
        for (const std::uint16_t id :
             {kItemLeftPreview, kItemRightStatistics, kItemCountUpScore, kItemIndividualQuakes,
              kItemScrollingPieces, kItemMagnitude16})
            ClickOn(id)();
        SendScroll(SB_LINERIGHT, 7);
        Select(kItemSkins, "another");
        Select(kItemDisplayModes, "640 x 480 x 32 - 60 Hz");
    };
    Use(kCmdAdvancedSettings, {change, Cancel});
    EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), changed);
    changed.preview[IndexOf(Side::Left)] ^= true;
    changed.statistics[IndexOf(Side::Right)] ^= true;
    changed.countUpScore ^= true;
    changed.individualQuakes ^= true;
    changed.scrollingPieces ^= true;
    changed.dropMagnitude = 16;
    changed.dropDelayMs += 7;
    changed.skinName = "Another";
    changed.fullscreenBpp = 32;
    changed.fullscreenRefresh = 60;
    Use(kCmdAdvancedSettings, {change, Ok});
    EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), changed);
}

TEST_F(DialogsTest, MissingSkinsAndModesAreTold) {
    Start();
    theSettings.soundEffects = theSettings.music = audioReady = false;
    std::filesystem::rename(folder.Path() + "/Skins", folder.Path() + "/elsewhere");
    Headless().SetDisplayModes({{800, 600, 16, 60}});
    const auto emptyLists = [] {
        EXPECT_TRUE(Entries(kItemSkins).empty() && Entries(kItemDisplayModes).empty());
    };
    theSettings.windowed = false;  // for the next start
    Use(kCmdAdvancedSettings,
        {Looks("box-no-skins"), Ok, emptyLists, Ok, Looks("box-no-modes"), Ok});
    EXPECT_TRUE(theSettings.windowed);
    EXPECT_EQ(theSettings.skinName, "Original");
}

TEST_F(DialogsTest, TheDelayEndsAt150AlthoughItsTextGoesOn) {
    Start();
    theSettings.dropDelayMs = 150;
    const auto asked = [](ScrollRequest request, int times, const char* shown) {
        return [=] {
            SendScroll(request, times);
            EXPECT_EQ(TextOf(kItemDropDelayText), shown);
        };
    };
    Use(kCmdAdvancedSettings, {asked(SB_LINERIGHT, 1, "151"), asked(SB_PAGERIGHT, 1, "159"), Ok});
    EXPECT_EQ(theSettings.dropDelayMs, 150u);
    Use(kCmdAdvancedSettings, {asked(SB_PAGELEFT, 20, "0"), asked(SB_LINERIGHT, 3, "3"),
                               asked(SB_ENDSCROLL, 1, "3"), Ok});
    EXPECT_EQ(theSettings.dropDelayMs, 3u);
}

TEST(ModeTextTest, NumbersThatAreMissingAreZero) {
    EXPECT_EQ(ModeText({16, 75}), "640 x 480 x 16 - 75 Hz");
    for (const auto& [text, bits, hertz] : {std::tuple("640 x 480 x 16 - 75 Hz", 16U, 75U),
                                            {"640 x 480 x  - 60 Hz", 0U, 60U},
                                            {"640 x 480 x 32", 32U, 0U},
                                            {"640 x 480 x 32 - 5", 32U, 0U},
                                            {"", 0U, 0U}})
        EXPECT_EQ(ReadModeText(text), (ModeChoice{bits, hertz})) << text;
}

TEST_F(DialogsTest, ALevelValueMustBeANumberFrom1To4999) {
    // 77: the old value stays.
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"4999", 4999}, {"5000", 77}, {"0", 77},           {"", 77},
        {"-5", 77},     {"+7", 7},    {"  12", 12},        {"12ab", 12},
        {"ab", 77},     {"1 2", 1},   {"99999999999", 77}, {"0000000000000000000000000000042", 42},
    };
    Start();
    LevelTableValues wanted = theLevelTable;
    for (std::size_t row = 0; const auto& [text, want] : cases) {
        const std::size_t level = ++row % kLevelCount;
        theLevelTable.normalMs[level][1] = 77;
        wanted.normalMs[level][1] = want;
        const auto type = [level, entry = text] {
            SetDlgItemText(ShownDialog(), kNormalItems[1].OfLevel(level), entry);
        };
        Use(kCmdLevelSettings, {type, Ok});
        EXPECT_EQ(static_cast<const LevelTableValues&>(theLevelTable), wanted) << text;
    }
}

TEST_F(DialogsTest, EveryLevelBoxHasItsOwnValue) {
    Start();
    // Every box gets the number of its id.
    const auto number = [] {
        for (std::uint16_t id = 1036; id <= 1144; ++id)
            if (!TextOf(id).empty()) SetDlgItemText(ShownDialog(), id, std::to_string(id));
    };
    Use(kCmdLevelSettings, {number, Cancel});
    EXPECT_EQ(theLevelTable.version, 151u);
    Use(kCmdLevelSettings, {number, Ok});
    EXPECT_EQ(theLevelTable.version, 1038u);
    for (std::uint32_t level = 0; level < kLevelCount; ++level) {
        EXPECT_EQ(theLevelTable.scrollingPxPerSecond[level],
                  (std::array{1115 + level, 1125 + level, 1135 + level}));
        EXPECT_EQ(theLevelTable.normalMs[level],
                  (std::array{1065 + level, 1095 + level, 1105 + level}));
        EXPECT_EQ(theLevelTable.figuresForLevel[level], 1036 + 3 * level);
        EXPECT_EQ(theLevelTable.secondsForLevel[level], 1037 + 3 * level);
    }
}

TEST_F(DialogsTest, SoundEffectsAreSwitchedByEvent) {
    Start();
    theSettings.sfxMask = 0xE0 | kSfxRotate;
    const auto change = [] {
        EXPECT_TRUE(IsDlgButtonChecked(ShownDialog(), kItemSfxRotate));
        EXPECT_FALSE(IsDlgButtonChecked(ShownDialog(), kItemSfxRowsDone));
        for (const std::uint16_t id : {kItemSfxRowsDone, kItemSfxRotate, kItemSfxEnabled})
            ClickOn(id)();
    };
    Use(kCmdSfxSettings, {change, Cancel});
    EXPECT_EQ(theSettings.sfxMask, 0xE0 | kSfxRotate);
    EXPECT_TRUE(theSettings.soundEffects);
    Use(kCmdSfxSettings, {change, Ok});
    EXPECT_EQ(theSettings.sfxMask, kSfxRowsDone) << "no bits beyond the five";
    EXPECT_FALSE(theSettings.soundEffects);
    EXPECT_FALSE(theMenuScreen->IsSelected(MenuButton::SoundEffects));
    Use(kCmdSfxSettings, {Ok});
    EXPECT_FALSE(theMenuScreen->IsSelected(MenuButton::SoundEffects)) << "unchanged";
}

TEST_F(DialogsTest, ThePicturesOfAllDialogsAndTheAboutBoxHasNoCancel) {
    MakeSkin("Another");
    Start();
    Use(kCmdAdvancedSettings, {Looks("dialog-advanced"), Ok});
    Use(kCmdLevelSettings, {Looks("dialog-levels"), Ok});
    Use(kCmdSfxSettings, {Looks("dialog-sfx"), Ok});
    Command(kCmdRightRestart);
    Use(kCmdAbout, {Looks("dialog-about"), Cancel, Looks("dialog-about"), ClickOn(IDOK)});
    EXPECT_TRUE(rightPlayer->IsPaused());
}

}  // namespace
}  // namespace korvane
