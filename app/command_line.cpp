#include "app/command_line.h"

#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr std::string_view kHelp =
    "Usage: korvane [--help | --version]\n"
    "\n"
    "A falling-blocks puzzle game for one or two people at one keyboard.\n"
    "\n"
    "  --help     show this and end\n"
    "  --version  show the version and the libraries that it was built with, and end\n"
    "\n"
    "Everything else is set in the game. Started here, it looks for skins in Skins/ of these\n"
    "folders, one after the other, and keeps scores, keys and settings in data/ of the first:\n";

std::string Help() {
    std::string text(kHelp);
    for (const std::string& folder : GameFiles().Folders())
        text += "  " + folder + "\n";
    return text;
}

constexpr std::string_view kVersion = "Korvane " KORVANE_VERSION
                                      "\n"
                                      "Built with " KORVANE_LIBRARIES "\n";

}  // namespace

std::optional<std::string> AnswerTo(std::string_view argument) {
    if (argument == "--help") return Help();
    if (argument == "--version") return std::string(kVersion);
    return std::nullopt;
}

}  // namespace korvane
