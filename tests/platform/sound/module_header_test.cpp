#include "platform/sound/module_header.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

using File = std::vector<std::byte>;

void PutText(File& file, std::size_t at, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        file.at(at + i) = static_cast<std::byte>(text[i]);
}

void PutWord(File& file, std::size_t at, unsigned value) {
    file.at(at) = static_cast<std::byte>(value & 0xFF);
    file.at(at + 1) = static_cast<std::byte>(value >> 8);
}

void PutLong(File& file, std::size_t at, std::size_t value) {
    PutWord(file, at, value & 0xFFFF);
    PutWord(file, at + 2, static_cast<unsigned>(value >> 16));
}

// The smallest files of each format that are accepted.

File Xm() {
    File file(60 + 276 + 2 * 4);  // two parts' sizes
    PutText(file, 0, "Extended Module: ");
    PutWord(file, 58, 0x0104);
    PutWord(file, 60, 276);
    for (const std::size_t count : {64U, 68U, 70U, 72U})
        PutWord(file, count, 1);
    return file;
}

File It() {
    File file(192 + 2 + 3 * 4);
    PutText(file, 0, "IMPM");
    PutWord(file, 32, 2);
    for (const std::size_t count : {34U, 36U, 38U})
        PutWord(file, count, 1);
    return file;
}

File S3m() {
    File file(96 + 2 + 2 * 2);
    PutText(file, 44, "SCRM");
    PutWord(file, 32, 2);
    PutWord(file, 34, 1);
    PutWord(file, 36, 1);
    return file;
}

File Mod(std::string_view signature = "M.K.") {
    File file(1084);
    PutText(file, 1080, signature);
    file[950] = std::byte{1};
    return file;
}

File Mtm() {
    File file(66 + 37 + 128 + 192 + 64 + 5);
    PutText(file, 0, "MTM\x10");
    PutWord(file, 24, 1);
    PutWord(file, 28, 5);
    PutWord(file, 30, 1);
    file[33] = std::byte{4};
    return file;
}

struct Sort {
    ModuleFormat format;
    File file;
};

std::vector<Sort> SmallestFiles() {
    return {{ModuleFormat::Xm, Xm()},
            {ModuleFormat::It, It()},
            {ModuleFormat::S3m, S3m()},
            {ModuleFormat::Mod, Mod()},
            {ModuleFormat::Mtm, Mtm()}};
}

TEST(ModuleHeaderTest, TellsTheFormatAndMissesNoByteOfTheTables) {
    for (const auto& [format, file] : SmallestFiles()) {
        SCOPED_TRACE(NameOf(format));
        EXPECT_EQ(CheckModuleHeader(file), format);
        for (std::size_t size = 0; size < file.size(); ++size)
            ASSERT_FALSE(CheckModuleHeader(std::span(file).first(size))) << size << " bytes";
    }
    EXPECT_EQ(CheckModuleHeader(MakeXm({})), ModuleFormat::Xm);
}

TEST(ModuleHeaderTest, CountsHaveLimits) {
    struct Count {
        const char* what;
        File file;
        std::size_t at;
        unsigned most;
        bool mayBeNone;
        bool isByte = false;
    };
    const Count counts[] = {
        {"XM channels", Xm(), 68, 64, false},
        {"XM orders", Xm(), 64, 256, false},
        {"XM patterns", Xm(), 70, 256, true},
        {"XM instruments", Xm(), 72, 256, true},
        {"IT orders", It(), 32, 256, false},
        {"IT patterns", It(), 38, 256, true},
        {"IT samples", It(), 36, 256, true},
        {"IT instruments", It(), 34, 256, true},
        {"S3M orders", S3m(), 32, 256, false},
        {"S3M patterns", S3m(), 36, 256, true},
        {"S3M samples", S3m(), 34, 256, true},
        {"MOD orders", Mod(), 950, 128, false, true},
        {"MTM last order", Mtm(), 27, 127, true, true},
        {"MTM channels", Mtm(), 33, 32, false, true},
    };
    for (Count c : counts) {
        SCOPED_TRACE(c.what);
        c.file.resize(8000);  // room for every table
        const auto accepts = [&](unsigned value) {
            c.file[c.at] = static_cast<std::byte>(value);
            if (!c.isByte) PutWord(c.file, c.at, value);
            return CheckModuleHeader(c.file).has_value();
        };
        EXPECT_EQ(accepts(0), c.mayBeNone);
        EXPECT_TRUE(accepts(c.most));
        EXPECT_FALSE(accepts(c.most + 1));
        EXPECT_FALSE(accepts(0xFFFF));
    }
}

/// A sample without data. Its head lies at 4000, in a file without patterns.
File ItSample(unsigned flags) {
    File file = It();
    file.resize(8000);
    PutWord(file, 38, 0);
    PutWord(file, 198, 4000);
    PutWord(file, 4018, flags);
    return file;
}

File S3mSample(unsigned flags, unsigned sort = 1) {
    File file = S3m();
    file.resize(8000);
    PutWord(file, 36, 0);
    PutWord(file, 98, 4000 / 16);
    PutWord(file, 4000, sort);
    PutWord(file, 4030, flags << 8);
    return file;
}

/// The same pattern in every order; its head lies behind the tables.
File XmPattern() {
    File file = Xm();
    file.resize(8000);
    PutWord(file, 64, 256);
    return file;
}

File ItPattern() {
    File file = It();
    file.resize(8000);
    PutWord(file, 32, 256);
    PutWord(file, 456, 4000);
    return file;
}

TEST(ModuleHeaderTest, WhatThePlayerMakesOfItHasALimit) {
    struct Case {
        const char* what;
        File file;
        std::size_t at;
        std::size_t most;
    };
    Case cases[] = {
        {"IT, 8 bits", ItSample(0), 4048, kMaxModuleMemory},
        {"IT, 16 bits", ItSample(2), 4048, kMaxModuleMemory / 2},
        {"IT, 16 bits, stereo", ItSample(6), 4048, kMaxModuleMemory / 4},
        {"IT, rows", ItPattern(), 4002, 127},
        {"S3M, 8 bits", S3mSample(0), 4016, kMaxModuleMemory - 8000},
        {"S3M, 16 bits, stereo", S3mSample(6), 4016, (kMaxModuleMemory - 8000) / 4},
        {"XM, rows", XmPattern(), 60 + 276 + 5, 127},
    };
    for (Case& c : cases) {
        SCOPED_TRACE(c.what);
        PutLong(c.file, c.at, c.most);
        EXPECT_TRUE(CheckModuleHeader(c.file));
        PutLong(c.file, c.at, c.most + 1);
        EXPECT_FALSE(CheckModuleHeader(c.file));
    }
    File packed = ItSample(8);
    for (std::size_t sample = 0; sample < 3; ++sample)
        PutLong(packed, 198 + 4 * sample, 4000);
    PutWord(packed, 36, 3);
    PutLong(packed, 4072, 5000);
    packed.resize(std::size_t{10} << 20);
    EXPECT_TRUE(CheckModuleHeader(packed));
    packed.resize(std::size_t{11} << 20);
    EXPECT_FALSE(CheckModuleHeader(packed)) << "empty blocks without end";
    File synthesised = S3mSample(0, /*sort=*/2);
    PutLong(synthesised, 4016, 0x7FFFFFFF);
    EXPECT_TRUE(CheckModuleHeader(synthesised)) << "it has settings there, no length";
}

TEST(ModuleHeaderTest, ModSignaturesTellTheChannels) {
    for (const char* good :
         {"M.K.", "M!K!", "FLT4", "FLT8", "CD81", "OKTA", "1CHN", "9CHN", "10CH", "64CH"})
        EXPECT_EQ(CheckModuleHeader(Mod(good)), ModuleFormat::Mod) << good;
    for (const char* bad : {"0CHN", "00CH", "65CH", "99CH", "M.K!", "xCHN", "CHN4"})
        EXPECT_FALSE(CheckModuleHeader(Mod(bad))) << bad;
}

TEST(ModuleHeaderTest, NoOtherFormatAndNoLargerFile) {
    File file = Xm();
    file.resize(kMaxModuleBytes);
    EXPECT_TRUE(CheckModuleHeader(file));
    file.resize(kMaxModuleBytes + 1);
    EXPECT_FALSE(CheckModuleHeader(file));
    for (const char* signature : {"OggS", "RIFF", "MO3", "PSM ", "AMF", "extended module: "}) {
        File other(2000);
        PutText(other, 0, signature);
        EXPECT_FALSE(CheckModuleHeader(other)) << signature;
    }
    for (const char* signature : {"PP20", "XPKF", "ziRCONia"}) {
        for (File packed : {Mod(), S3m()}) {
            PutText(packed, 0, signature);
            EXPECT_FALSE(CheckModuleHeader(packed)) << signature;
        }
    }
    File packed = Xm();
    packed.resize(500);
    PutText(packed, 490, "OggS");
    EXPECT_FALSE(CheckModuleHeader(packed)) << "a sample that is packed";
    File early = Xm();
    PutWord(early, 58, 0x0103);
    EXPECT_FALSE(CheckModuleHeader(early)) << "its patterns lie elsewhere";
}

}  // namespace
}  // namespace korvane
