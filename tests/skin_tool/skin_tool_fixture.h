#pragma once

#include <gtest/gtest.h>

#include "tests/support/bmp_writer.h"
#include "tests/support/temporary_folder.h"
#include "tools/korvane-skin/catalogue.h"

namespace korvane {

/// A small picture without a fault for a row of the catalogue.
BmpRecipe GoodPicture(const PictureRow& row);

/// A game's folder with two skins without a fault: the Original, and Mine, which a test changes and
/// which is in use.
class SkinToolFixture : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes Mine a copy of the Original again.
    void Restore() const;

    TemporaryFolder folder;
};

}  // namespace korvane
