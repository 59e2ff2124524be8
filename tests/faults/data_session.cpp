// A session as far as the data files notice: loads all four, lets the user do something and saves
// them, at once and at the end, as the game does. tools/faults runs it with faults in its way.
//
// usage: korvane_data_session look | prepare | play | play-more      in the game's folder

#include <cstdio>
#include <string>
#include <string_view>

#include "app/state/settings.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_table.h"

namespace {

using namespace korvane;

/// What the user of a session before did: nothing is as it is by default, and no dialog opens.
void Prepare(Settings& settings, LevelTable& levels, KeyBindings& keys, HighScoreTable& scores) {
    settings.showAdvancedAtStart = settings.music = false;
    levels.figuresForLevel[1] = 13;
    keys.Bind(Action::Rotate, Side::Right, 'J');
    for (std::size_t row = 0; row < kHighScoreRows; ++row)
        scores.Row(row).SetName("BEFORE");
}

void Play(Settings& settings, LevelTable& levels, KeyBindings& keys, HighScoreTable& scores) {
    settings.dropMagnitude = 77;
    levels.normalMs[9][0] = 4711;
    keys.Bind(Action::Pause, Side::Left, 'Z');
    scores.Insert(*scores.FindRank(550), {.lines = 5, .score = 550, .level = 5});
}

void PlayMore(Settings& settings, LevelTable& levels, KeyBindings& keys, HighScoreTable& scores) {
    settings.skinName = "Daylight";
    levels.secondsForLevel[9] = 4712;
    keys.Bind(Action::Drop, Side::Left, 'X');
    scores.Insert(*scores.FindRank(650), {.lines = 6, .score = 650, .level = 6});
}

/// Tells what has come in since the last time: a killed session has told it, too.
void PrintReports() {
    static std::size_t printed = 0;
    for (; printed < Headless().Reports().size(); ++printed)
        std::fprintf(stderr, "%s\n", Headless().Reports()[printed].c_str());
}

}  // namespace

int main(int count, char** words) {
    const std::string_view what = count == 2 ? words[1] : "";
    Headless().UseFolder("");
    {
        Settings settings;
        LevelTable levels;
        keyBindings.Load();
        HighScoreTable scores;
        PrintReports();
        if (what == "prepare") Prepare(settings, levels, keyBindings, scores);
        if (what == "play") Play(settings, levels, keyBindings, scores);
        if (what == "play-more") {
            PlayMore(settings, levels, keyBindings, scores);
            scores.SaveSoFar();
            keyBindings.SaveSoFar();
            levels.SaveSoFar();
            settings.SaveSoFar();
        }
        scores.Save();
        keyBindings.Save();
    }
    PrintReports();
    return 0;
}
