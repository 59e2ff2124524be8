#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// What the first argument of the program asks to be told instead of the game: the help or the
/// version. Nothing for any other, which starts the game.
std::optional<std::string> AnswerTo(std::string_view argument);

}  // namespace korvane
