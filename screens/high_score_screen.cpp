#include "screens/high_score_screen.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "gfx/bitmap_font.h"
#include "platform/base/virtual_keys.h"
#include "screens/menu_buttons.h"
#include "screens/screen_background.h"

namespace korvane {

std::unique_ptr<HighScoreScreen> theHighScoreScreen;

namespace {

constexpr const char* kTitleFile = "HighScore\\highscore.bmp";
constexpr const char* kCursorFile = "HighScore\\cursor.bmp";

constexpr std::int32_t kHeadingY = 104;
constexpr std::int32_t kFirstRowY = 138;
constexpr std::int32_t kRowPitch = 28;
constexpr std::int32_t kNameX = 64;
constexpr std::int32_t kLinesX = 272;
constexpr std::int32_t kLevelX = 393;
constexpr std::int32_t kScoreX = 496;
constexpr std::int32_t kScoreHeadingX = 491;
constexpr std::int32_t kGroundRight = 575;
constexpr std::int32_t kNameColumn = 16;
constexpr std::int32_t kCongratulationsY = 415;

/// The cursor can stand behind the last character that can be typed; that column stays a space.
constexpr std::size_t kTypedLimit = 12;
constexpr std::string_view kBlankName = "             ";
static_assert(kBlankName.size() == kTypedLimit + 1 && kBlankName.size() < kNameBytes);

std::int32_t RowY(std::size_t row) {
    return kFirstRowY + kRowPitch * static_cast<std::int32_t>(row);
}

/// Letters arrive as their capitals. The digit key 0 is not taken.
bool IsNameKey(std::uint8_t key) {
    return (key >= '1' && key <= 'Z') || key == VK_SPACE;
}

Button MakeButton(HighScoreButton button) {
    const ButtonRow& row = kHighScoreButtons[static_cast<std::size_t>(button)];
    return {row.picture, row.disabledPicture, row.at.x, row.at.y};
}

}  // namespace

HighScoreScreen::HighScoreScreen()
    : title_(kTitleFile),
      cursorPicture_(kCursorFile),
      menuButton_(MakeButton(HighScoreButton::Menu)),
      playButton_(MakeButton(HighScoreButton::Play)),
      focus_({&menuButton_, &playButton_}, /*first=*/1) {}

int HighScoreScreen::Submit(Side side, std::int32_t score, std::int32_t lines, std::int32_t level) {
    editRow_ = table_.FindRank(score);
    if (!editRow_) return -1;
    congratulatedSide_ = side;
    HighScoreEntry entry{.lines = lines, .score = score, .level = level};
    entry.SetName(kBlankName);
    table_.Insert(*editRow_, entry);
    unsaved_ = true;
    return static_cast<int>(*editRow_);
}

bool HighScoreScreen::OnNameKey(std::uint8_t key) {
    if (!editRow_) return false;
    switch (key) {
        case VK_RETURN:
            congratulatedSide_.reset();
            editRow_.reset();
            cursor_ = 0;
            unsaved_ = true;
            return true;
        case VK_BACK:
            StepBack();
            table_.Row(*editRow_).name[cursor_] = ' ';
            return false;
        case VK_LEFT:
            StepBack();
            return false;
        case VK_RIGHT:
            StepOn();
            return false;
        default:
            if (IsNameKey(key)) TypeCharacter(static_cast<char>(key));
            return false;
    }
}

bool HighScoreScreen::SaveSoFar() {
    if (!table_.SaveSoFar()) return false;
    unsaved_ = false;
    if (!editRow_) table_.TakeUpSaved();
    return true;
}

void HighScoreScreen::TypeCharacter(char character) {
    if (cursor_ < kTypedLimit) table_.Row(*editRow_).name[cursor_] = character;
    StepOn();
}

void HighScoreScreen::StepBack() {
    if (cursor_ > 0) --cursor_;
}

void HighScoreScreen::StepOn() {
    cursor_ = std::min(cursor_ + 1, kTypedLimit);
}

HighScoreAction HighScoreScreen::ClickHighScore(std::int32_t x, std::int32_t y) {
    if (menuButton_.HitTest(x, y, /*toggle=*/true)) return kHighScoreToMenu;
    if (playButton_.HitTest(x, y, /*toggle=*/true)) return kHighScorePlayAgain;
    return kHighScoreNothing;
}

void HighScoreScreen::ReleaseButtons() {
    menuButton_.SetSelected(false);
    playButton_.SetSelected(false);
}

void HighScoreScreen::Draw() {
    DrawScreenBackground();
    title_.DrawKeyed({54, 0});
    theFont->DrawTextWide("NAME", kNameX, kHeadingY);
    theFont->DrawTextWide("LINES", kLinesX, kHeadingY);
    theFont->DrawTextWide("LEVEL", kLevelX, kHeadingY);
    theFont->DrawTextWide("SCORE", kScoreHeadingX, kHeadingY);
    for (std::size_t row = 0; row < kHighScoreRows; ++row)
        DrawRow(row);
    if (editRow_) {
        const std::int32_t x = kNameX + kNameColumn * static_cast<std::int32_t>(cursor_);
        cursorPicture_.DrawKeyed({x, RowY(*editRow_)});
    }
    DrawCongratulations();
    for (Button* button : {&menuButton_, &playButton_}) {
        button->SetEnabled(!congratulatedSide_);
        button->Draw();
    }
    focus_.Draw();
}

void HighScoreScreen::DrawRow(std::size_t row) const {
    const HighScoreEntry& entry = table_.Row(row);
    const std::int32_t y = RowY(row);
    theFont->DrawTextWide(entry.Name(), kNameX, y);
    theFont->DrawText(std::to_string(entry.lines), kLinesX, y);
    theFont->DrawText(std::to_string(entry.level), kLevelX, y);
    theFont->DrawTextWithin(std::to_string(entry.score), kScoreX, kGroundRight, y);
}

void HighScoreScreen::DrawCongratulations() const {
    if (congratulatedSide_ == Side::Right)
        theFont->DrawText("CONGRATULATIONS RIGHT PLAYER", 117, kCongratulationsY);
    if (congratulatedSide_ == Side::Left)
        theFont->DrawText("CONGRATULATIONS LEFT PLAYER", 124, kCongratulationsY);
}

void HighScoreScreen::ReloadPictures() {
    title_.Load(kTitleFile);
    cursorPicture_.Load(kCursorFile);
    menuButton_.Reload();
    playButton_.Reload();
}

}  // namespace korvane
