#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "platform/headless/headless_host.h"
#include "platform/sound/bass.h"
#include "tests/support/heard.h"
#include "tests/support/temporary_folder.h"

namespace korvane {

/// An open sound device on the headless machine, in an empty folder of its own, without a window:
/// message boxes become reports, "caption: text".
class AudioFixture : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    void WriteText(const std::string& name, std::string_view text) const {
        folder.Write(name, std::as_bytes(std::span(text)));
    }

    TemporaryFolder folder;
};

}  // namespace korvane
