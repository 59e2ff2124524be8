#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

#include "game/rules/player.h"
#include "platform/window/user.h"
#include "tests/support/temporary_folder.h"

namespace korvane {

/// The whole program on the headless machine, with a skin of flat pictures, one tone for each
/// order of its music, a click for every sound and default settings, in a folder of its own. A test
/// starts it (once its files stand) and drives it from outside.
class ProgramFixture : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Brings the program up to its first frame, after the end of one that still runs.
    void Start();
    /// The end of the program as the user brings it about: the window is destroyed.
    void End();
    bool IsRunning() const { return running_; }
    /// Lets the message loop go on until it ends; its exit code, none after so many passes.
    static std::optional<int> Passes(int count);

    /// Lets the message loop go on for some time, a pass every `passMs`.
    void Run(std::uint32_t milliseconds);
    /// One frame, or more, with nothing happening.
    void Frame() { Run(20); }

    void Press(std::uint8_t key, std::uint8_t modifiers = 0);
    /// A left press at a pixel of the picture; the pressed look's delay is left to the caller.
    void Click(int x, int y);
    static void Command(std::uint16_t id);

    /// The flat picture at a pixel of the last frame.
    static std::string Seen(int x, int y);
    /// The text of `length` characters that stands at a place of the last frame.
    static std::string Text(int x, int y, int length, int advance);

    /// The screen that shows, a game with the players who play: "game right left".
    std::string Shows() const;

    /// Nothing fits any more, and no row is full.
    static void PackBoard(Player& player);
    /// Lets a player lock some figures, for at least four points each, and then ends its game.
    void EndGame(Player& player, int figures);

    /// Called after every pass of the message loop that `Run` makes.
    virtual void AfterPass() {}

    TemporaryFolder folder;
    std::uint32_t passMs = 10;

  private:
    void Pass();

    bool running_ = false;
};

/// Longer than a pressed button is shown before it acts.
inline constexpr std::uint32_t kPressedLookPassed = 230;

}  // namespace korvane
