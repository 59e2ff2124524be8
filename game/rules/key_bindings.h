#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "app/state/data_file_session.h"
#include "game/rules/side.h"

namespace korvane {

enum class Action : std::uint8_t { Rotate, Drop, Left, Right, Pause };

inline constexpr std::size_t kActionCount = 5;

/// The key of every action of both players: ten virtual-key codes, 0 for no key. An action's two
/// keys stand side by side, the right player's first.
class KeyBindings {
  public:
    KeyBindings() { ResetToDefaults(); }

    void ResetToDefaults();

    /// Takes the keys of data\keys.dat. No file, an unreadable or an empty one gives the defaults;
    /// keys that a short file does not reach are missing.
    void Load();
    /// Replaces the file; a failure goes unnoticed.
    void Save();
    /// Whether anything differs from what was loaded or saved last.
    bool HasChanged() const { return keys_ != saved_; }
    /// Saves while the program goes on, without waiting for other programs; false when it must be
    /// tried again.
    bool SaveSoFar();

    std::uint8_t& Key(Action action, Side side) { return keys_[Entry(action, side)]; }
    std::uint8_t Key(Action action, Side side) const { return keys_[Entry(action, side)]; }

    /// Whether a pressed key is that of the action; no key ever is an action's missing key.
    bool IsKeyOf(Action action, Side side, std::uint8_t key) const {
        return key != 0 && Key(action, side) == key;
    }

    /// Gives an action another key. Whichever had it gets the action's old one.
    void Bind(Action action, Side side, std::uint8_t key);

    bool operator==(const KeyBindings& other) const { return keys_ == other.keys_; }

  private:
    static constexpr std::size_t Entry(Action action, Side side) {
        return static_cast<std::size_t>(action) * 2 + IndexOf(side);
    }

    std::array<std::uint8_t, kActionCount * 2> keys_{};
    std::array<std::uint8_t, kActionCount * 2> saved_{};
    DataFileSession file_;
};

/// The bindings in effect, initially the defaults.
extern KeyBindings keyBindings;

}  // namespace korvane
