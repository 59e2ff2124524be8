#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/bmp_writer.h"
#include "tests/support/temporary_folder.h"
#include "tools/korvane-skin/catalogue.h"

namespace korvane {

/// What a faultless small picture for a row of the catalogue is made of.
BmpRecipe GoodPicture(const PictureRow& row);

/// A game's folder with two faultless skins of plain pictures: the Original, and Mine, which a test
/// breaks. Mine is in use.
class SkinToolFixture : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes Mine a copy of the Original again.
    void Restore() const;
    void Use(const std::string& skin) const;
    void Remove(const std::string& name) const {
        std::filesystem::remove_all(folder.Path() + "/" + name);
    }

    TemporaryFolder folder;
};

}  // namespace korvane
