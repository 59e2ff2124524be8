#pragma once

#include <cstddef>
#include <cstdint>

namespace korvane {

/// Ids of the dialogs' controls.
enum DialogItem : std::uint16_t {
    // The advanced settings.
    kItemCountUpScore = 1010,
    kItemRightPreview = 1013,
    kItemLeftPreview = 1014,
    kItemIndividualQuakes = 1015,
    kItemSkins = 1016,
    kItemLeftStatistics = 1017,
    kItemRightStatistics = 1018,
    kItemDisplayModes = 1020,
    kItemDropDelay = 1027,
    kItemDropDelayText = 1028,
    kItemScrollingPieces = 1034,
    kItemMagnitude2 = 1048,
    kItemMagnitude4 = 1049,
    kItemMagnitude8 = 1050,
    kItemMagnitude16 = 1051,

    // The level settings; the boxes of each column follow from the level.
    kItemFigures = 1036,
    kItemSeconds = 1037,
    kItemVersion = 1038,
    kItemNormalEasy = 1065,
    kItemNormalMedium = 1095,
    kItemNormalHard = 1105,
    kItemScrollingEasy = 1115,
    kItemScrollingMedium = 1125,
    kItemScrollingHard = 1135,

    // The sound effects' settings.
    kItemSfxMenuButtons = 1042,
    kItemSfxRowsDone = 1043,
    kItemSfxEnabled = 1044,
    kItemSfxLevelChange = 1045,
    kItemSfxRotate = 1046,
    kItemSfxFigureLanding = 1047,

    // The about box.
    kItemProductText = 104,
};

/// The edit boxes of one kind of level value: the id of level 0's, and the way to the next level's.
struct LevelItems {
    DialogItem first;
    int step;

    constexpr std::uint16_t OfLevel(std::size_t level) const {
        return static_cast<std::uint16_t>(first + static_cast<int>(level) * step);
    }
};

/// By difficulty.
inline constexpr LevelItems kScrollingItems[] = {
    {kItemScrollingEasy, 1}, {kItemScrollingMedium, 1}, {kItemScrollingHard, 1}};
inline constexpr LevelItems kNormalItems[] = {
    {kItemNormalEasy, 1}, {kItemNormalMedium, 1}, {kItemNormalHard, 1}};
inline constexpr LevelItems kFiguresItems = {kItemFigures, 3};
inline constexpr LevelItems kSecondsItems = {kItemSeconds, 3};

}  // namespace korvane
