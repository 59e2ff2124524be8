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
    /// Starts the music at the current screen's position; a negative one counts as 0. Does no more
    /// than note that music should play while it is switched off or none is loaded. False when the
    /// module could not be played.
    bool Play();
    void Stop();
    /// While the window is inactive; Resume goes on at the same place.
    void Pause();
    void Resume();
    /// Another screen starts the music at its position, a negative one as it stands (the library
    /// then plays on from where it is); the same screen changes nothing. While the music is
    /// switched off the screen is only noted, and so is one without a position of its own.
    void SetScreen(MusicScreen screen);
    /// Notes the screen without playing.
    void SetScreenQuiet(MusicScreen screen) { screen_ = screen; }
    /// Takes the module out of the library; the next Load brings another.
    void Free();

    const ModuleChoice& Choice() const { return choice_; }
    MusicScreen Screen() const { return screen_; }
    /// Started and not stopped since.
    bool IsPlaying() const { return playing_; }
    /// A module was loaded at least once.
    bool IsLoaded() const { return loaded_; }

  private:
    /// The position of the current screen, as module.txt gives it.
    std::int32_t Position() const;
    bool LoadFromSkin();
    bool LoadFallback();

    MusicScreen screen_ = MusicScreen::Menu;
    HMUSIC module_ = 0;
    bool loaded_ = false;
    bool playing_ = false;
    ModuleChoice choice_;
};

/// The music of this process; app/static_objects.cpp makes it before `main` runs.
extern MusicPlayer& theMusic;

}  // namespace korvane
