#pragma once

namespace korvane {

/// How often the rules have let a new level be heard.
extern int levelSoundsPlayed;

}  // namespace korvane
