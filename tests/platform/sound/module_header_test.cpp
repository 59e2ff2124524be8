#include "platform/sound/module_header.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/broken_files.h"

namespace korvane {
namespace {

using File = std::vector<std::byte>;

/// The place in the file and the value of a field of 16 bits, little-endian.
using Word = std::pair<std::size_t, unsigned>;

File With(File file, std::initializer_list<Word> words) {
    for (const auto& [at, value] : words) {
        file.at(at) = static_cast<std::byte>(value & 0xFF);
        file.at(at + 1) = static_cast<std::byte>(value >> 8);
    }
    return file;
}

File With(File file, std::size_t at, std::string_view text) {
    for (const char letter : text)
        file.at(at++) = static_cast<std::byte>(letter);
    return file;
}

File Resized(File file, std::size_t size) {
    file.resize(size);
    return file;
}

// The smallest files of each format that are accepted.

File Xm() {
    return With(With(File(60 + 276 + 2 * 4), 0, "Extended Module: "),
                {{58, 0x0104}, {60, 276}, {64, 1}, {68, 1}, {70, 1}, {72, 1}});
}

File It() {
    return With(With(File(192 + 2 + 3 * 4), 0, "IMPM"), {{32, 2}, {34, 1}, {36, 1}, {38, 1}});
}

File S3m() {
    return With(With(File(96 + 2 + 2 * 2), 44, "SCRM"), {{32, 2}, {34, 1}, {36, 1}});
}

File Mod(std::string_view signature = "M.K.") {
    return With(With(File(1084), 1080, signature), {{950, 1}});
}

File Mtm() {
    return With(With(File(66 + 37 + 128 + 192 + 64 + 5), 0, "MTM\x10"),
                {{24, 1}, {28, 5}, {30, 1}, {33, 4}});
}

TEST(ModuleHeaderTest, TheFormatIsToldAndAllTablesMustBeThere) {
    const std::pair<ModuleFormat, File> files[] = {{ModuleFormat::Xm, Xm()},
                                                   {ModuleFormat::It, It()},
                                                   {ModuleFormat::S3m, S3m()},
                                                   {ModuleFormat::Mod, Mod()},
                                                   {ModuleFormat::Mtm, Mtm()}};
    for (const auto& [format, file] : files) {
        SCOPED_TRACE(NameOf(format));
        EXPECT_EQ(CheckModuleHeader(file), format);
        ForEachCut(file,
                   [](std::span<const std::byte> cut) { EXPECT_FALSE(CheckModuleHeader(cut)); });
    }
}

TEST(ModuleHeaderTest, CountsHaveLimits) {
    const struct {
        const char* what;
        File file;
        std::vector<std::size_t> places;
        unsigned least;
        unsigned most;
        bool areBytes = false;
    } kCounts[] = {
        {"XM channels", Xm(), {68}, 1, 64},
        {"XM orders", Xm(), {64}, 1, 256},
        {"XM patterns, instruments", Xm(), {70, 72}, 0, 256},
        {"IT orders", It(), {32}, 1, 256},
        {"IT instruments, samples, patterns", It(), {34, 36, 38}, 0, 256},
        {"S3M orders", S3m(), {32}, 1, 256},
        {"S3M samples, patterns", S3m(), {34, 36}, 0, 256},
        {"MOD orders", Mod(), {950}, 1, 128, true},
        {"MTM last order", Mtm(), {27}, 0, 127, true},
        {"MTM channels", Mtm(), {33}, 1, 32, true},
    };
    for (const auto& c : kCounts) {
        for (const std::size_t at : c.places) {
            const auto accepts = [&](unsigned value) {
                // Room for every table. Behind a byte lies another field, which keeps its value.
                File file = With(Resized(c.file, 8000), {{at, value}});
                if (c.areBytes) file[at + 1] = c.file[at + 1];
                return CheckModuleHeader(file).has_value();
            };
            SCOPED_TRACE(testing::Message() << c.what << " at " << at);
            EXPECT_EQ(accepts(0), c.least == 0);
            EXPECT_TRUE(accepts(c.least) && accepts(c.most));
            EXPECT_FALSE(accepts(c.most + 1) || accepts(0xFFFF));
        }
    }
}

// Files with one sample or pattern, whose length is still to be written. Samples have their heads
// at 4000, in files without patterns; the same pattern is played by every order.

File ItSample(unsigned flags) {
    return With(Resized(It(), 8000), {{38, 0}, {198, 4000}, {4018, flags}});
}

File S3mSample(unsigned flags, unsigned kind = 1) {
    return With(Resized(S3m(), 8000), {{36, 0}, {98, 4000 / 16}, {4000, kind}, {4030, flags << 8}});
}

File XmPattern() {
    return With(Resized(Xm(), 8000), {{64, 256}});
}

File ItPattern() {
    return With(Resized(It(), 8000), {{32, 256}, {456, 4000}});
}

TEST(ModuleHeaderTest, TheMemoryToPlayItHasALimit) {
    const struct {
        const char* what;
        File file;
        std::size_t at;
        std::size_t most;
    } kCases[] = {
        {"IT, 8 bits", ItSample(0), 4048, kMaxModuleMemory},
        {"IT, 16 bits", ItSample(2), 4048, kMaxModuleMemory / 2},
        {"IT, 16 bits, stereo", ItSample(6), 4048, kMaxModuleMemory / 4},
        {"IT, rows", ItPattern(), 4002, 127},
        {"S3M, 8 bits", S3mSample(0), 4016, kMaxModuleMemory - 8000},
        {"S3M, 16 bits, stereo", S3mSample(6), 4016, (kMaxModuleMemory - 8000) / 4},
        {"XM, rows", XmPattern(), 60 + 276 + 5, 127},
        {"S3M, made by a chip: settings where a sample has its length", S3mSample(0, /*kind=*/2),
         4016, 0x7FFFFFFF},
    };
    for (const auto& c : kCases) {
        const auto accepts = [&](std::size_t length) {
            const auto low = static_cast<unsigned>(length & 0xFFFF);
            const auto high = static_cast<unsigned>(length >> 16);
            return CheckModuleHeader(With(c.file, {{c.at, low}, {c.at + 2, high}})).has_value();
        };
        EXPECT_TRUE(accepts(c.most)) << c.what;
        EXPECT_EQ(accepts(c.most + 1), c.most == 0x7FFFFFFF) << c.what;
    }
    // Three packed samples of empty blocks up to the end of the file.
    const File packed = With(ItSample(8), {{36, 3}, {202, 4000}, {206, 4000}, {4072, 5000}});
    EXPECT_TRUE(CheckModuleHeader(Resized(packed, std::size_t{10} << 20)));
    EXPECT_FALSE(CheckModuleHeader(Resized(packed, std::size_t{11} << 20)));
}

TEST(ModuleHeaderTest, ModSignaturesTellTheChannels) {
    for (const char* good :
         {"M.K.", "M!K!", "FLT4", "FLT8", "CD81", "OKTA", "1CHN", "9CHN", "10CH", "64CH"})
        EXPECT_EQ(CheckModuleHeader(Mod(good)), ModuleFormat::Mod) << good;
    for (const char* bad : {"0CHN", "00CH", "65CH", "99CH", "M.K!", "xCHN", "CHN4"})
        EXPECT_FALSE(CheckModuleHeader(Mod(bad))) << bad;
}

TEST(ModuleHeaderTest, OtherFormatsAndLargerFilesAreRefused) {
    EXPECT_TRUE(CheckModuleHeader(Resized(Xm(), kMaxModuleBytes)));
    EXPECT_FALSE(CheckModuleHeader(Resized(Xm(), kMaxModuleBytes + 1)));
    for (const char* other : {"OggS", "RIFF", "MO3", "PSM ", "AMF", "extended module: "})
        EXPECT_FALSE(CheckModuleHeader(With(File(2000), 0, other))) << other;
    for (const char* packer : {"PP20", "XPKF", "ziRCONia"})
        for (const File& packed : {Mod(), S3m()})
            EXPECT_FALSE(CheckModuleHeader(With(packed, 0, packer))) << packer;
    EXPECT_FALSE(CheckModuleHeader(With(Resized(Xm(), 500), 490, "OggS"))) << "a packed sample";
    EXPECT_FALSE(CheckModuleHeader(With(Xm(), {{58, 0x0103}}))) << "patterns lie elsewhere";
}

}  // namespace
}  // namespace korvane
