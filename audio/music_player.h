#pragma once

#include <cstdint>

#include "audio/module_text.h"
#include "platform/sound/bass.h"

namespace korvane {

/// The kinds of screen, each with its place in the music.
enum class MusicScreen : std::uint32_t { Menu, Game, HighScores };

/// The music: one module, started at another position for each kind of screen. Does nothing
/// without a sound device.
class MusicPlayer {
  public:
    /// Frees nothing: StopAudio has done that, or the process ends.
    virtual ~MusicPlayer() = default;

    /// Loads the module that the current skin names, or else the Original's, and stops the one that
    /// played. False when neither can be loaded; true also without a sound device.
    bool Load();
    /// Starts the music at the current screen's position; a negative one counts as 0. While music
    /// is switched off or none is loaded, only the wish is kept. False when the module could not be
    /// played.
    bool Play();
    void Stop();
    /// For a window that is not active.
    void Pause();
    /// Goes on where Pause stopped. Music that was stopped stays silent.
    void Resume();
    /// Another screen starts the music at its position; a negative position plays on from where the
    /// music stands. The same screen changes nothing. While music is switched off the screen is
    /// only remembered, and so is a screen without a position of its own.
    void SetScreen(MusicScreen screen);
    /// Remembers the screen without playing.
    void SetScreenQuiet(MusicScreen screen) { screen_ = screen; }
    /// Takes the module out of the library; the next Load brings another.
    void Free();

  private:
    /// The position of the current screen, as module.txt gives it.
    std::int32_t Position() const;
    bool LoadFromSkin();
    bool LoadFallback();

    MusicScreen screen_ = MusicScreen::Menu;
    HMUSIC module_ = 0;
    bool loaded_ = false;   ///< a module was loaded at least once
    bool playing_ = false;  ///< started and not stopped since
    ModuleChoice choice_;
};

/// The music of this process; app/static_objects.cpp makes it before `main` runs.
extern MusicPlayer& theMusic;

}  // namespace korvane
