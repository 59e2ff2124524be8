#include "fuzz/module_seeds.h"

#include <cstdint>
#include <initializer_list>
#include <utility>

namespace korvane::fuzz {
namespace {

/// The number of bytes of a sample, all of which repeat for ever.
constexpr unsigned kWave = 32;

/// A file of a fixed size, all zeros at first. Numbers are little-endian.
class MadeFile {
  public:
    explicit MadeFile(std::size_t size) : bytes_(size) {}

    void Text(std::size_t at, std::string_view text) {
        for (const char letter : text)
            bytes_.at(at++) = static_cast<std::byte>(letter);
    }
    void Bytes(std::size_t at, std::initializer_list<unsigned> values) {
        for (const unsigned value : values)
            bytes_.at(at++) = static_cast<std::byte>(value);
    }
    void Words(std::size_t at, std::initializer_list<unsigned> values) {
        for (const unsigned value : values) {
            Bytes(at, {value & 0xFF, value >> 8});
            at += 2;
        }
    }
    void Longs(std::size_t at, std::initializer_list<unsigned> values) {
        for (const unsigned value : values) {
            Words(at, {value & 0xFFFF, value >> 16});
            at += 4;
        }
    }
    void Fill(std::size_t at, std::size_t count, unsigned value) {
        for (std::size_t i = 0; i < count; ++i)
            Bytes(at + i, {value});
    }
    /// One period of a square wave, as signed bytes.
    void Wave(std::size_t at) {
        Fill(at, kWave / 2, 60);
        Fill(at + kWave / 2, kWave / 2, 0x100 - 60);
    }

    std::vector<std::byte> Take() { return std::move(bytes_); }

  private:
    std::vector<std::byte> bytes_;
};

/// The lengths of this format's samples are big-endian and count words.
std::vector<std::byte> MakeMod() {
    constexpr std::size_t kPattern = 1084;
    constexpr std::size_t kSample = kPattern + 1024;
    MadeFile file(kSample + kWave);
    file.Bytes(42, {0, kWave / 2, /*tuning=*/0, /*volume=*/64, 0, 0, 0, kWave / 2});
    file.Bytes(950, {/*orders=*/2, 127});
    file.Text(1080, "M.K.");
    file.Bytes(kPattern, {1, 0xAC, 0x10, 0});
    file.Wave(kSample);
    return file.Take();
}

/// The parts of this format begin at multiples of 16.
std::vector<std::byte> MakeS3m() {
    constexpr unsigned kInstrument = 112;
    constexpr unsigned kPattern = 192;
    constexpr unsigned kSample = 272;
    MadeFile file(kSample + kWave);
    file.Bytes(28, {0x1A, 16});
    file.Words(32, {/*orders=*/2, /*samples=*/1, /*patterns=*/1, 0, 0x1320, /*unsigned=*/2});
    file.Text(44, "SCRM");
    file.Bytes(48, {64, /*speed=*/6, /*tempo=*/125, 48});
    file.Fill(65, 31, 255);  // every channel but the first is off
    file.Bytes(97, {255});
    file.Words(98, {kInstrument / 16, kPattern / 16});
    file.Bytes(kInstrument, {1});
    file.Words(kInstrument + 14, {kSample / 16});
    file.Longs(kInstrument + 16, {kWave, 0, kWave});
    file.Bytes(kInstrument + 28, {/*volume=*/64, 0, 0, /*loops=*/1});
    file.Longs(kInstrument + 32, {8363});
    file.Text(kInstrument + 76, "SCRS");
    file.Words(kPattern, {2 + 3 + 64});
    file.Bytes(kPattern + 2, {/*note and instrument=*/0x20, 0x40, 1});
    file.Wave(kSample);
    return file.Take();
}

void WriteItSample(MadeFile& file, std::size_t at, unsigned flags, unsigned data) {
    file.Text(at, "IMPS");
    file.Bytes(at + 17, {64, flags, 64});
    file.Bytes(at + 46, {/*signed=*/1});
    file.Longs(at + 48, {kWave, 0, kWave, 8363});
    file.Longs(at + 72, {data});
}

/// Two samples: one as it is, and one in a packed block, which is silent.
std::vector<std::byte> MakeIt() {
    constexpr unsigned kSample = 208;
    constexpr unsigned kPackedSample = kSample + 80;
    constexpr unsigned kPattern = kPackedSample + 80;
    constexpr unsigned kData = 448;
    constexpr unsigned kPackedData = kData + kWave;
    constexpr unsigned kBlock = 9 * kWave / 8;
    constexpr unsigned kThereAndLoops = 0x11;
    constexpr unsigned kPacked = 8;
    MadeFile file(kPackedData + 2 + kBlock);
    file.Text(0, "IMPM");
    file.Words(32, {/*orders=*/2, /*instruments=*/0, /*samples=*/2, /*patterns=*/1, 0x0214, 0x0200,
                    /*stereo=*/1});
    file.Bytes(48, {128, 48, /*speed=*/6, /*tempo=*/125, 128});
    file.Fill(64, 64, 32);
    file.Fill(128, 64, 64);
    file.Bytes(193, {255});
    file.Longs(194, {kSample, kPackedSample, kPattern});
    WriteItSample(file, kSample, kThereAndLoops, kData);
    WriteItSample(file, kPackedSample, kThereAndLoops | kPacked, kPackedData);
    file.Words(kPattern, {8 + 64, /*rows=*/64});
    // Both samples at once, on two channels.
    file.Bytes(kPattern + 8, {0x81, 3, 60, 1, 0x82, 3, 60, 2});
    file.Wave(kData);
    file.Words(kPackedData, {kBlock});
    return file.Take();
}

std::vector<std::byte> MakeMtm() {
    constexpr std::size_t kSampleHead = 66;
    constexpr std::size_t kTrack = kSampleHead + 37 + 128;
    constexpr std::size_t kPattern = kTrack + 192;
    constexpr std::size_t kSample = kPattern + 64;
    MadeFile file(kSample + kWave);
    file.Text(0, "MTM\x10");
    file.Words(24, {/*tracks=*/1});
    file.Bytes(30, {/*samples=*/1, 0, /*rows=*/64, /*channels=*/4});
    file.Longs(kSampleHead + 22, {kWave, 0, kWave});
    file.Bytes(kSampleHead + 35, {/*volume=*/64});
    file.Bytes(kTrack, {/*note=*/24 << 2, /*sample=*/1 << 4});
    file.Words(kPattern, {1});
    file.Wave(kSample);
    return file.Take();
}

}  // namespace

std::vector<ModuleSeed> MakeModuleSeeds() {
    return {{"mod", MakeMod()}, {"s3m", MakeS3m()}, {"it", MakeIt()}, {"mtm", MakeMtm()}};
}

}  // namespace korvane::fuzz
