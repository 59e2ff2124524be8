#pragma once

#include <cstdint>
#include <string>

#include "platform/base/types.h"

namespace korvane {

/// One module or one sample that is loaded, and one playback of a sample. Handles of all three
/// kinds are different numbers, never 0, and are not given out twice.
using HMUSIC = std::uint32_t;
using HSAMPLE = std::uint32_t;
using HCHANNEL = std::uint32_t;

/// What BASS_ErrorGetCode tells.
enum AudioError : int {
    kAudioOk = 0,
    kAudioFile = 1,    ///< the file could not be opened, or is larger than any that is accepted
    kAudioFormat = 2,  ///< none of the accepted formats, or damaged
    kAudioDevice = 3,  ///< no sound device, or it is not open
    kAudioHandle = 4,  ///< no such music, sample or playback
    kAudioMemory = 5,
    kAudioSlow = 6,  ///< this machine cannot play the module as fast as it sounds
};

/// The version in two halves: 1 in the low word, 5 in the high word.
std::uint32_t BASS_GetVersion();
/// Why the last call that failed did so.
int BASS_ErrorGetCode();

/// Opens the sound device; 1, or 0 without one. A sound system that does not answer at once counts
/// as a device, which is heard when it is there. There is one device and one rate, so all four
/// arguments are ignored.
int BASS_Init(int device, std::uint32_t rate, std::uint32_t flags, HWND window);
/// Does nothing, as sound runs from BASS_Init on; false without a device.
bool BASS_Start();
/// Stops everything that sounds; what is loaded stays loaded.
bool BASS_Stop();
/// Closes the device and frees whatever is loaded.
void BASS_Free();

// Loading takes a whole file by its path below the game's folder: `fromMemory` must be false,
// `offset` and `length` 0. The result is 0 when the file cannot be loaded. The flags are ignored,
// because the library always plays as they ask: 1 for changes of volume without clicks, 4 for music
// that repeats, 0x20000 for a sample whose oldest playback ends when there are too many.

HMUSIC BASS_MusicLoad(bool fromMemory, const std::string& path, std::uint32_t offset,
                      std::uint32_t length, std::uint32_t flags);
/// Plays a module in the place of what played: from the beginning of the order of that number; from
/// the song's beginning for a number beyond its orders; from where it stands for a negative number.
/// It follows its own jumps and repeats for ever. False when it cannot be played.
bool BASS_MusicPlayEx(HMUSIC music, std::int32_t position, std::uint32_t flags, bool reset);
void BASS_MusicFree(HMUSIC music);

/// At most `limit` playbacks of it sound at once, at least one; one more ends the oldest.
HSAMPLE BASS_SampleLoad(bool fromMemory, const std::string& path, std::uint32_t offset,
                        std::uint32_t length, std::uint32_t limit, std::uint32_t flags);
/// A new playback from the sample's beginning; 0 when there is no such sample.
HCHANNEL BASS_SamplePlay(HSAMPLE sample);
void BASS_SampleFree(HSAMPLE sample);

/// Takes a module, or a playback of a sample.
bool BASS_ChannelIsActive(std::uint32_t handle);
/// Takes a module, a playback, or a sample, all of whose playbacks then end.
bool BASS_ChannelStop(std::uint32_t handle);
/// Takes a module.
bool BASS_ChannelPause(std::uint32_t handle);
/// Takes a module and plays on where it was paused; does nothing for one that is not paused.
bool BASS_ChannelResume(std::uint32_t handle);

}  // namespace korvane
