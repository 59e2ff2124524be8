#pragma once

#include <memory>
#include <string>

#include "platform/host/files.h"

namespace korvane {

/// What the search for the game's folders asks of the process.
struct Surroundings {
    std::string program;   ///< the path of the program file, without links; empty: unknown
    std::string dataHome;  ///< XDG_DATA_HOME
    std::string home;      ///< HOME
};

/// The path of the program file, as the system's `link` to it tells. Without that (no /proc) it is
/// the path that the program was started by; empty when neither can be told.
std::string ProgramFile(const char* link = "/proc/self/exe");

Surroundings ReadSurroundings();

/// The files of the game on a desktop: those of the user's folder, and behind them the installed.
///
/// The user's folder is the working directory when `Skins` or `data` lies there, else `korvane` in
/// the folder that XDG_DATA_HOME names by an absolute path, else in `.local/share` of the home.
/// That one is made when something is first saved in it. Where there is no home either, it is the
/// working directory, and nothing is saved.
///
/// The installed ones lie where the program was built to find them from its own place, so that both
/// can be moved together; in a source tree they lie above the build folder. Without any, the user's
/// files are all there are.
std::unique_ptr<Files> OpenGameFiles(const Surroundings& surroundings);

}  // namespace korvane
