#pragma once

#include <cstdint>
#include <random>

#include "platform/headless/headless_host.h"
#include "tests/support/program_fixture.h"

namespace korvane {

/// The whole program with input at random: anything that can come from outside, in any order. The
/// same seed gives the same run.
class RandomInput : public ProgramFixture {
  protected:
    int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }
    bool OneIn(int count) { return Below(count) == 0; }
    void Seed(std::uint32_t seed) { random_.seed(seed); }

    /// Two skins and an empty high-score table; dialogs and boxes get anything as long as they
    /// are open, and a window that waits is activated.
    void SetUp() override;

    /// Sends the window procedure a key, a click, a command, a timer's end or an activation, lets
    /// time pass, or plays a game. The program does not end by it.
    void SendAnything();
    void LetTimePass(std::uint32_t milliseconds);

    /// What the screens show agrees with the settings, and the high scores are sorted. A failure
    /// is fatal.
    static void ExpectScreensAgree();
    /// Every setting and level has a value that the screens and dialogs can give it.
    static void ExpectSettingsInRange();
    /// After one key no slot of the key configuration waits any more: another can be armed.
    static void ExpectAtMostOneSlotWaits();

    /// Called while the program waits and there is no dialog: must bring it on.
    virtual void WakeWindow() { Headless().Push({.type = HostEventType::Activated}); }
    /// Called after a command that may have begun a game.
    virtual void Look() {}

    int wakings_ = 0;  ///< events that dialogs and boxes got

    std::mt19937 random_{20021105};

  private:
    void SendClick();
    void SendCommand();
    void PlayAGame();
    void WakeWithAnything();
};

}  // namespace korvane
