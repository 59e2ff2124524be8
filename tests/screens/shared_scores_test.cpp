// Programs that run side by side in one folder share the file with the high scores.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>
#include <string>

#include "platform/headless/headless_host.h"
#include "screens/high_score_table.h"
#include "tests/support/stopped_child.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

/// A row for a letter, fewer points the later in the alphabet: a small letter has no name yet, @ is
/// another name with the points of A.
HighScoreEntry RowOf(char letter) {
    HighScoreEntry row{.score = letter == '@' ? 25 : 'Z' - std::toupper(letter)};
    row.SetName(std::islower(letter) ? "             " : std::string(1, letter));
    return row;
}

std::string TextOf(const HighScoreTable& table) {
    std::string text;
    for (std::size_t row = 0; row < kHighScoreRows; ++row) {
        const char letter = table.Row(row).Name()[0];
        text += letter == ' ' ? static_cast<char>('z' - table.Row(row).score) : letter;
    }
    return text;
}

/// Puts a result in by its rank, if it has one.
void Enter(HighScoreTable& table, char letter) {
    if (const auto rank = table.FindRank(RowOf(letter).score)) table.Insert(*rank, RowOf(letter));
}

class SharedScoresTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
        folder.Write("data/other", {});
        Begin();
    }
    void TearDown() override { Headless().Reset(); }

    /// The file holds Q to Z.
    static void Begin() {
        HighScoreTable table;
        for (std::size_t row = 0; row < kHighScoreRows; ++row)
            table.Row(row) = RowOf(static_cast<char>('Q' + row));
        table.Save();
        ASSERT_EQ(TextOf(HighScoreTable()), "QRSTUVWXYZ");
    }

    TemporaryFolder folder;
};

/// One of two programs does each step: "0+A" enters a result, "0a=A" names it, "0s" saves.
void Do(std::array<HighScoreTable, 2>& tables, const std::string& step, bool atEnd) {
    HighScoreTable& table = tables.at(static_cast<std::size_t>(step[0] - '0'));
    if (step[1] == '+') {
        Enter(table, step[2]);
    } else if (step[1] != 's') {
        for (std::size_t row = 0; row < kHighScoreRows; ++row)
            if (table.Row(row) == RowOf(step[1])) table.Row(row) = RowOf(step[3]);
    } else if (atEnd) {
        table.Save();
    } else {
        EXPECT_TRUE(table.SaveSoFar());
    }
}

TEST_F(SharedScoresTest, EveryResultIsKeptOnceAsFarAsThereAreRows) {
    const struct {
        const char* steps;
        const char* file;
    } kCases[] = {
        {"0+A 0s 1+B 1s", "ABQRSTUVWX"},
        {"0+B 1+A 1s 0s 1s", "ABQRSTUVWX"},
        {"0+a 0s 1+B 1s 0a=A 0s", "ABQRSTUVWX"},  // named after the other has saved
        {"0+a 0s 1+b 1s 0a=A 0s 1b=B 1s", "ABQRSTUVWX"},
        {"0+a 0s 1+b 1s 0s 1s", "abQRSTUVWX"},            // both are ended while they are typed
        {"0+a 0s 1+a 1s 0a=A 0s 1a=@ 1s", "@AQRSTUVWX"},  // alike until they are named
        {"0+A 0s 1+A 1s", "AQRSTUVWXY"},                  // alike in two programs
        {"0+A 0s 0+A 0s", "AAQRSTUVWX"},                  // alike in one
        {"0+A 0+A 0s 1+A 1s", "AAQRSTUVWX"},
        {"1+@ 1s 0+A 0s", "A@QRSTUVWX"},              // the later one above the one that it equals
        {"0+y 0s 1+A 1+B 1s 0y=Y 0s", "ABQRSTUVWX"},  // beaten before it has a name
        {"0+y 1+A 1+B 1s 0s", "ABQRSTUVWX"},
        {"0+A 0+B 0+C 0s 1+D 1s 0s", "ABCDQRSTUV"},
    };
    for (const auto& [steps, file] : kCases) {
        for (const bool atEnd : {false, true}) {
            SCOPED_TRACE(testing::Message() << steps << (atEnd ? ", at the end" : ""));
            Begin();
            std::array<HighScoreTable, 2> tables;
            std::istringstream words(steps);
            for (std::string step; words >> step;)
                Do(tables, step, atEnd);
            EXPECT_EQ(TextOf(HighScoreTable()), file);
            tables[0].SaveSoFar();
            tables[0].TakeUpSaved();
            EXPECT_EQ(TextOf(tables[0]), file);
            tables[0].Save();
            EXPECT_EQ(TextOf(HighScoreTable()), file) << "what was taken up is nothing new";
        }
    }
}

/// Another process is stopped at each system call of its save while this one saves.
TEST_F(SharedScoresTest, TwoProcessesThatSaveAtOnceBothKeepTheirResults) {
    int refusals = 0;
    for (int stop = 1; stop < 500; ++stop) {
        Begin();
        HighScoreTable ours, others;
        Enter(ours, 'A');
        Enter(others, 'B');
        StoppedChild child(stop, [&] { return others.SaveSoFar(); });
        const bool ended = child.HasEnded();
        const bool saved = ours.SaveSoFar();
        ASSERT_TRUE(ended || child.GoesOn()) << stop;
        refusals += !saved;
        ASSERT_TRUE(saved || ours.SaveSoFar()) << stop;
        ASSERT_EQ(TextOf(HighScoreTable()), "ABQRSTUVWX") << stop;
        if (ended) break;
    }
    EXPECT_GE(refusals, 10) << "the other has held the lock";
}

}  // namespace
}  // namespace korvane
