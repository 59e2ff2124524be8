#include <gtest/gtest.h>

#include <libopenmpt/libopenmpt.hpp>
#include <sstream>

#include "audio/module_text.h"
#include "platform/headless/headless_host.h"
#include "platform/sound/module_header.h"

namespace korvane {
namespace {

class ShippedMusicTest : public testing::TestWithParam<const char*> {};

TEST_P(ShippedMusicTest, EachSectionReturnsToItsFirstOrder) {
    // So few frames a second are no music any more, but the same rows in the same order.
    constexpr int kRate = 1000;
    constexpr int kFrames = 10 * 60 * kRate;
    const std::string folder = std::string("Skins\\") + GetParam() + "\\Audio\\";
    Headless().Reset();
    Headless().UseFolder(KORVANE_FOLDER);
    ModuleChoice choice;
    ASSERT_TRUE(ReadModuleText(folder, choice));
    const auto file = Headless().GameFiles().Read(folder + choice.fileName, kMaxModuleBytes);
    ASSERT_TRUE(file);
    std::ostringstream log;
    openmpt::module module(*file, log);
    module.set_repeat_count(-1);
    const int starts[] = {choice.menuPosition, choice.gamePosition, choice.highScorePosition,
                          module.get_num_orders()};
    float samples[2 * 16];
    for (int section = 0; section < 3; ++section) {
        module.set_position_order_row(starts[section], 0);
        int returns = 0;
        int before = starts[section];
        for (int frame = 0; frame < kFrames; frame += 16) {
            ASSERT_EQ(module.read_interleaved_stereo(kRate, 16, samples), 16U);
            const int order = module.get_current_order();
            if (order < before) {
                ASSERT_EQ(order, starts[section]) << section << ", frame " << frame;
                ++returns;
            }
            ASSERT_LT(order, starts[section + 1]) << section << ", frame " << frame;
            before = order;
        }
        EXPECT_GE(returns, 1) << section;
    }
}

INSTANTIATE_TEST_SUITE_P(Skins, ShippedMusicTest,
                         testing::Values("Original", "Daylight", "Lantern"));

}  // namespace
}  // namespace korvane
