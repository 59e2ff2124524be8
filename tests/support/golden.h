#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/base/types.h"

namespace korvane {

/// Compares what the headless machine shows with tests/golden/NAME.png, pixel by pixel. On a
/// difference the picture as it is now is left beside the test program as NAME.actual.png; with
/// KORVANE_REWRITE_GOLDEN=1 in the environment it becomes the new golden picture.
testing::AssertionResult MatchesGolden(const std::string& name);
/// The same for a part of what is shown.
testing::AssertionResult MatchesGolden(const std::string& name, const RECT& part);

}  // namespace korvane
