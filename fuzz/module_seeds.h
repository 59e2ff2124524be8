#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace korvane::fuzz {

/// A small module with one note of a square wave, in one of the formats that the player reads.
struct ModuleSeed {
    std::string_view name;
    std::vector<std::byte> file;
};

/// One for each format but XM, for which there is tests/support/xm_writer.h.
std::vector<ModuleSeed> MakeModuleSeeds();

}  // namespace korvane::fuzz
