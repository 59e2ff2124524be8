#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "game/rules/side.h"
#include "gfx/button.h"
#include "gfx/surface.h"
#include "screens/high_score_table.h"
#include "screens/keyboard_focus.h"

namespace korvane {

/// What a press on the high-score screen hit. No number is also that of a menu action, as
/// `pendingClick` holds both.
enum HighScoreAction : std::int32_t {
    kHighScoreNothing = -1,
    kHighScoreToMenu = 100,
    kHighScorePlayAgain = 101,
};

/// Shows the high-score table, takes in finished games' results and lets their players type a name.
///
/// Name entry begins with a result that reaches the table and ends with Enter.
class HighScoreScreen {
  public:
    HighScoreScreen();
    virtual ~HighScoreScreen() = default;

    /// Takes a result into the table and begins its name entry: the row it took, or -1 when it is
    /// below all of them.
    int Submit(Side side, std::int32_t score, std::int32_t lines, std::int32_t level);
    /// A key press during name entry; true when it ended the entry.
    bool OnNameKey(std::uint8_t key);

    /// A press at a point of the frame; a hit flips the button's look.
    HighScoreAction ClickHighScore(std::int32_t x, std::int32_t y);
    /// Both buttons back to their normal look.
    void ReleaseButtons();

    void Draw();
    void ReloadPictures();

    /// What the keyboard presses while no name is typed.
    KeyboardFocus& Focus() { return focus_; }

    const HighScoreTable& Table() const { return table_; }

    /// Whether a result has come in or a name has ended that `SaveSoFar` has not saved.
    bool HasUnsaved() const { return unsaved_; }
    /// Saves while the program goes on; false when it must be tried again. Other programs' results
    /// are taken up then, but not below a cursor.
    bool SaveSoFar();
    /// Saves at the program's end.
    void Save() { table_.Save(); }

  private:
    void TypeCharacter(char character);
    void StepBack();
    void StepOn();
    void DrawRow(std::size_t row) const;
    void DrawCongratulations() const;

    HighScoreTable table_;
    Surface title_;
    Surface cursorPicture_;
    Button menuButton_;
    Button playButton_;
    KeyboardFocus focus_;

    /// The side whose result was taken in last, until its name has been typed.
    std::optional<Side> congratulatedSide_;
    /// The row whose name is being typed.
    std::optional<std::size_t> editRow_;
    /// The column of the next typed character.
    std::size_t cursor_ = 0;
    bool unsaved_ = false;
};

/// The one high-score screen; null before the start-up has made it and after the window is gone.
extern std::unique_ptr<HighScoreScreen> theHighScoreScreen;

}  // namespace korvane
