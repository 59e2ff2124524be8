#include "audio/module_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace korvane {
namespace {

const ModuleChoice kBefore = {"before.xm", 1, 2, 3};

ModuleChoice After(const std::string& text) {
    ModuleChoice choice = kBefore;
    ApplyModuleText(text, choice);
    return choice;
}

TEST(ModuleTextTest, KeywordsAndTheirLines) {
    const std::string all =
        "FILENAME:\nMy Song.it\nMENU START POSITION:\n4\nGAME START POSITION:\n5\n"
        "HIGH SCORE START POSITION:\n6\n";
    const std::string filler(253, 'x');
    const std::tuple<const char*, std::string, ModuleChoice> cases[] = {
        {"all four", all, {"My Song.it", 4, 5, 6}},
        {"any order", "GAME START POSITION:\n5\nFILENAME:\na\n", {"a", 1, 5, 3}},
        {"any letter case",
         "fileName:\nKept Case\nGame Start position:\n9",
         {"Kept Case", 1, 9, 3}},
        {"line ends of other systems",
         "FILENAME:\r\na.xm\r\nMENU START POSITION:\r\n7\r\n",
         {"a.xm", 7, 2, 3}},
        {"a byte-order mark",
         "\xEF\xBB\xBF"
         "FILENAME:\na.xm\n",
         {"a.xm", 1, 2, 3}},
        {"no line end at the end", "MENU START POSITION:\n7", {"before.xm", 7, 2, 3}},
        {"nothing", "", kBefore},
        {"a blank before or after", " FILENAME:\na\nFILENAME: \nb\n", kBefore},
        {"the value on the same line", "FILENAME: a.xm\n", kBefore},
        {"a blank first line pushes the last entry out", "\n" + all, {"My Song.it", 4, 5, 3}},
        {"four strange lines push everything out", "\n\nx\ny\n" + all, kBefore},
        {"twice: the later one", "FILENAME:\na\nFILENAME:\nb\n", {"b", 1, 2, 3}},
        {"a keyword as a value",
         "FILENAME:\nFILENAME:\nMENU START POSITION:\n8",
         {"FILENAME:", 8, 2, 3}},
        {"a value that is not there", "MENU START POSITION:", {"before.xm", 0, 2, 3}},
        {"a name that is not there", "FILENAME:", {"", 1, 2, 3}},
        {"a long name is cut", "FILENAME:\n" + filler + "xyz\n", {filler + "x", 1, 2, 3}},
    };
    for (const auto& [what, text, wanted] : cases)
        EXPECT_EQ(After(text), wanted) << what;
}

TEST(ModuleTextTest, ALongLineUsesUpKeywordLines) {
    const std::string line(255, 'x');
    for (const std::string end : {"\n", "\r\n"}) {
        const std::string rest =
            end + end + "FILENAME:" + end + "a" + end + "FILENAME:" + end + "b" + end;
        EXPECT_EQ(After(line + rest).fileName, "a");
        EXPECT_EQ(After(line.substr(1) + rest).fileName, "b");
    }
}

TEST(ModuleTextTest, Numbers) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const std::pair<std::int32_t, std::vector<std::string>> cases[] = {
        {12, {"12", "  \t12"}},
        {-3, {"-3"}},
        {3, {"+3"}},
        {0, {" -0", "x7", "- 7", "--7", ""}},
        {7, {"7 of 9", "7.9", "007"}},
        {kMost, {"2147483647", "2147483648"}},
        {kLeast, {"-2147483648", "-99999999999999999999999"}},
    };
    for (const auto& [wanted, texts] : cases)
        for (const std::string& text : texts)
            EXPECT_EQ(After("GAME START POSITION:\n" + text + "\n").gamePosition, wanted) << text;
}

}  // namespace
}  // namespace korvane
