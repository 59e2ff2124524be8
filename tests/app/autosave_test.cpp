#include "app/autosave.h"

#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/level_table.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "res/dialog_ids.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "tests/support/dialog_script.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

/// The program a while after its start, when nothing is left to be saved.
class AutosaveTest : public ProgramFixture {
  protected:
    void SetUp() override {
        if (Headless().IsOpen()) End();
        ProgramFixture::SetUp();
        Start();
        Forget();
    }

    /// Nothing is saved any more, and the next change may be at once.
    void Forget() {
        Run(1100);
        for (const std::string& name : Saved())
            fs::remove(Data() / name);
    }
    fs::path Data() const { return folder.Path() + "/data"; }
    std::set<std::string> Saved() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Data()))
            names.insert(entry.path().filename());
        names.erase("other");
        return names;
    }
    bool SettingsAreSaved() const { return Saved().contains("menu.dat"); }

    static void Use(std::uint16_t command, Acts acts) {
        const DialogScript script(std::move(acts));
        Command(command);
    }
    void Arm() {
        theMenuScreen->ToggleKeyConfigView();
        Click(340, 110);
    }
};

TEST_F(AutosaveTest, WhatTheUserChangesIsInTheFileAfterTheNextFrame) {
    using Names = std::set<std::string>;
    const Act setLevel = [] { SetDlgItemText(ShownDialog(), kNormalItems[1].OfLevel(3), "4711"); };
    const std::tuple<const char*, Names, std::function<void()>> kDeeds[] = {
        {"button", {"menu.dat"}, [&] { Click(400, 220); }},
        {"command", {"menu.dat"}, [] { Command(kCmdQuakes); }},
        {"accelerator", {"menu.dat"}, [&] { Press(VK_F11); }},
        {"advanced",
         {"menu.dat"},
         [] {
             Use(kCmdAdvancedSettings, {ClickOn(kItemRightPreview), VK_RETURN});
         }},
        {"advanced, Cancel",
         {},
         [] {
             Use(kCmdAdvancedSettings, {ClickOn(kItemRightPreview), VK_ESCAPE});
         }},
        {"effects",
         {"menu.dat"},
         [] {
             Use(kCmdSfxSettings, {ClickOn(kItemSfxRotate), VK_RETURN});
         }},
        {"levels",
         {"sync.dat"},
         [&] {
             Use(kCmdLevelSettings, {setLevel, VK_RETURN});
         }},
        {"levels, Cancel",
         {},
         [&] {
             Use(kCmdLevelSettings, {setLevel, VK_ESCAPE});
         }},
        {"slot armed", {}, [&] { Arm(); }},
        {"slot bound",
         {"keys.dat"},
         [&] {
             Arm();
             Press('J');
         }},
        {"reset",
         {"keys.dat"},
         [&] {
             Arm();
             Press('J');
             Forget();
             Click(330, 445);
         }},
        {"result", {"hs.dat"}, [] { theHighScoreScreen->Submit(Side::Right, 5000, 1, 1); }},
    };
    for (const auto& [what, names, deed] : kDeeds) {
        SCOPED_TRACE(what);
        SetUp();
        deed();
        Run(50);
        EXPECT_EQ(Saved(), names);
        for (const std::string& name : names) {
            const std::vector<std::byte> saved = folder.Read("data/" + name);
            theLevelTable.SaveTable();
            theSettings.Save();
            End();
            EXPECT_EQ(folder.Read("data/" + name), saved) << "the end has more to save";
        }
    }
}

/// A frame, a wait and a dialog each let the second end.
TEST_F(AutosaveTest, OnlyOneSaveASecondAndTheLastChangeIsNotLeftOut) {
    for (const std::string where : {"active", "inactive", "dialog"}) {
        SCOPED_TRACE(where);
        SetUp();
        Command(kCmdQuakes);
        Frame();
        EXPECT_TRUE(SettingsAreSaved());
        fs::remove(Data() / "menu.dat");
        const std::uint32_t saved = Headless().Milliseconds();
        Command(kCmdQuakes);
        Run(900);
        EXPECT_FALSE(SettingsAreSaved());
        if (where == "active") Run(110);
        if (where == "inactive") {
            Headless().Push({.type = HostEventType::Deactivated});
            Headless().WhenWaiting([] { Headless().Push({.type = HostEventType::Restored}); });
            Passes(4);
        }
        const auto looks = [&] { EXPECT_TRUE(SettingsAreSaved()); };
        if (where == "dialog") Use(kCmdAbout, {looks, VK_RETURN});
        EXPECT_TRUE(SettingsAreSaved());
        EXPECT_LE(Headless().Milliseconds() - saved, 1030u);
    }
}

TEST_F(AutosaveTest, AResultIsSavedWhenItComesAndWhenItsNameIsFinished) {
    End();
    folder.Write("data/hs.dat", std::vector<std::byte>(260));
    Start();
    Command(kCmdRightRestart);
    EndGame(*rightPlayer, 1);
    Run(30);
    const auto name = [this](std::size_t row) {
        const std::vector<std::byte> file = folder.Read("data/hs.dat");
        return std::string(reinterpret_cast<const char*>(&file.at(26 * row)));
    };
    EXPECT_EQ(name(0), std::string(13, ' '));
    Press('A');
    Run(2000);
    EXPECT_EQ(name(0), std::string(13, ' ')) << "letters are not saved one by one";
    Press(VK_RETURN);
    Frame();
    EXPECT_EQ(name(0), "A            ");
    EXPECT_EQ(name(1), "") << "in place of the row without a name";
}

TEST_F(AutosaveTest, WhatCannotBeWrittenIsTriedAgainASecondLater) {
    fs::rename(Data(), folder.Path() + "/elsewhere");
    theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
    Command(kCmdQuakes);
    Frame();
    fs::rename(folder.Path() + "/elsewhere", Data());
    Run(900);
    EXPECT_EQ(Saved(), std::set<std::string>{});
    Run(200);
    EXPECT_EQ(Saved(), (std::set<std::string>{"hs.dat", "menu.dat"}));
}

TEST_F(AutosaveTest, ANameIsSavedAtOnceUnderTheResultsOfAnotherProgram) {
    HighScoreTable others;
    others.Insert(0, {.score = 9000});
    others.Save();
    theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
    Run(50);
    EXPECT_EQ(HighScoreTable().Row(1).score, 5000);
    theHighScoreScreen->OnNameKey('A');
    EXPECT_EQ(theHighScoreScreen->Table().Row(0).Name()[0], 'A') << "nothing moves below a cursor";
    theHighScoreScreen->OnNameKey(VK_RETURN);
    Run(50);
    EXPECT_EQ(HighScoreTable().Row(0).score, 9000);
    EXPECT_EQ(HighScoreTable().Row(1).Name()[0], 'A');
    EXPECT_EQ(theHighScoreScreen->Table().Row(0).score, 9000) << "taken up with the name";
}

}  // namespace
}  // namespace korvane
