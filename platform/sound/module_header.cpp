#include "platform/sound/module_header.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace korvane {
namespace {

/// Fields by their place in the file; all are little-endian and 0 beyond the end.
class Header {
  public:
    explicit Header(std::span<const std::byte> file) : file_(file) {}

    std::size_t Size() const { return file_.size(); }
    unsigned Byte(std::size_t at) const {
        return at < file_.size() ? std::to_integer<unsigned>(file_[at]) : 0;
    }
    unsigned Word(std::size_t at) const { return Byte(at) | Byte(at + 1) << 8; }
    std::size_t Long(std::size_t at) const {
        return std::size_t{Word(at)} | std::size_t{Word(at + 2)} << 16;
    }
    bool Has(std::size_t at, std::string_view text) const {
        for (std::size_t i = 0; i < text.size(); ++i)
            if (at + i >= Size() || Byte(at + i) != static_cast<unsigned char>(text[i]))
                return false;
        return true;
    }
    bool Contains(std::string_view text) const {
        return std::string_view(reinterpret_cast<const char*>(file_.data()), Size()).find(text) !=
               std::string_view::npos;
    }

  private:
    std::span<const std::byte> file_;
};

struct ModuleCounts {
    unsigned channels = 0;
    unsigned orders = 0;
    unsigned patterns = 0;
    unsigned instruments = 0;
    unsigned samples = 0;
    std::size_t tablesEnd = 0;  ///< where the tables of header, orders and places end in the file
};

bool IsAccepted(const ModuleCounts& counts, std::size_t fileSize) {
    const auto isCount = [](unsigned count) { return count <= kMaxModuleParts; };
    return counts.channels >= 1 && counts.channels <= kMaxModuleChannels && counts.orders >= 1 &&
           isCount(counts.orders) && isCount(counts.patterns) && isCount(counts.instruments) &&
           isCount(counts.samples) && counts.tablesEnd <= fileSize;
}

// What the player needs is not bounded by the size of the file: several places in it may name the
// same data, and an empty pattern takes none. So the memory is added up before the player sees the
// file.

/// The rows of each pattern.
using Rows = std::array<std::size_t, kMaxModuleParts>;

constexpr std::size_t kDefaultRows = 64;

/// The player reads 0 as the default and cuts what is over 1024.
std::size_t RowsOf(unsigned written) {
    return written == 0 ? kDefaultRows : std::min(written, 1024U);
}

/// The cells of all patterns, and what the player keeps about each row of each order to notice
/// endless loops. That grows with the row's loops, which are not looked at here, up to 1.5 KiB.
std::size_t PatternMemory(const Header& header, std::size_t orders, unsigned orderCount,
                          const Rows& rows, std::size_t channels) {
    constexpr std::size_t kCell = 6;
    constexpr std::size_t kPassedRow = 1536;
    std::size_t memory = 0;
    for (const std::size_t count : rows)
        memory += count * channels * kCell;
    for (std::size_t i = 0; i < orderCount; ++i)
        memory += rows[header.Byte(orders + i)] * kPassedRow;
    return memory;
}

/// One flag (2 or 4) means 16 bits, the other two channels; IT and S3M differ in which is which.
/// Each doubles the bytes.
std::size_t SampleMemory(std::size_t length, unsigned flags) {
    return length << std::popcount(flags & 6U);
}

/// For formats whose parts lie in the file once and are small: the limits of the counts suffice.
std::size_t NoMemory(const Header& /*header*/, const ModuleCounts& /*counts*/) {
    return 0;
}

// XM. The size of the header is counted from its own field and includes the order table.

constexpr std::size_t kXmSizeField = 60;
constexpr std::size_t kXmOrders = 80;

/// Older versions have the patterns elsewhere.
bool IsXm(const Header& header) {
    return header.Has(0, "Extended Module: ") && header.Word(58) >= 0x0104;
}

/// Patterns and instruments follow the header, each after its size in four bytes. A file without
/// room for these is refused by the player; another that is cut off plays as far as it goes.
ModuleCounts XmCounts(const Header& header) {
    ModuleCounts counts = {.channels = header.Word(68),
                           .orders = header.Word(64),
                           .patterns = header.Word(70),
                           .instruments = header.Word(72)};
    counts.tablesEnd =
        std::max(kXmOrders + counts.orders, kXmSizeField + header.Long(kXmSizeField)) +
        std::size_t{4} * (counts.patterns + counts.instruments);
    return counts;
}

std::size_t XmMemory(const Header& header, const ModuleCounts& counts) {
    using namespace std::string_view_literals;
    // A few bytes of Ogg can unpack to any length of sound.
    if (header.Contains("OggS\0"sv)) return std::numeric_limits<std::size_t>::max();
    Rows rows{};
    std::size_t at = kXmSizeField + header.Long(kXmSizeField);
    for (std::size_t i = 0; i < counts.patterns; ++i) {
        rows[i] = RowsOf(header.Word(at + 5));
        at += header.Long(at) + header.Word(at + 7);
    }
    // Samples lie in the file once and unpack to twice their size at most.
    return 2 * header.Size() +
           PatternMemory(header, kXmOrders, counts.orders, rows, counts.channels);
}

// IT. Always 64 channels. The places of instruments, samples and patterns follow the orders.

constexpr std::size_t kItOrders = 192;

bool IsIt(const Header& header) {
    return header.Has(0, "IMPM");
}

ModuleCounts ItCounts(const Header& header) {
    ModuleCounts counts{.channels = 64,
                        .orders = header.Word(32),
                        .patterns = header.Word(38),
                        .instruments = header.Word(34),
                        .samples = header.Word(36)};
    const std::size_t places = counts.instruments + counts.samples + counts.patterns;
    counts.tablesEnd = kItOrders + counts.orders + 4 * places;
    return counts;
}

/// The player follows the blocks of each packed sample to the end of the file, and blocks may be
/// empty: 256 such samples in a file of 16 MiB took it 15 s, this many blocks an eighth of a
/// second.
constexpr std::size_t kMaxItBlocks = std::size_t{1} << 24;

std::size_t ItMemory(const Header& header, const ModuleCounts& counts) {
    // A pattern can name so many, although no more than 64 are played.
    constexpr std::size_t kChannels = 127;
    constexpr unsigned kPacked = 8;
    const std::size_t samples = kItOrders + counts.orders + std::size_t{4} * counts.instruments;
    const std::size_t patterns = samples + std::size_t{4} * counts.samples;
    std::size_t memory = 0;
    std::size_t blocks = 0;
    for (std::size_t i = 0; i < counts.samples; ++i) {
        const std::size_t at = header.Long(samples + 4 * i);
        const unsigned flags = header.Byte(at + 18);
        memory += SampleMemory(header.Long(at + 48), flags);
        std::size_t block = (flags & kPacked) != 0 ? header.Long(at + 72) : header.Size();
        for (; block < header.Size() && blocks <= kMaxItBlocks; ++blocks)
            block += 2 + header.Word(block);
    }
    if (blocks > kMaxItBlocks) return std::numeric_limits<std::size_t>::max();
    Rows rows{};
    for (std::size_t i = 0; i < counts.patterns; ++i) {
        const std::size_t at = header.Long(patterns + 4 * i);
        rows[i] = at == 0 ? kDefaultRows : RowsOf(header.Word(at + 2));
    }
    return memory + PatternMemory(header, kItOrders, counts.orders, rows, kChannels);
}

// S3M. At most 32 channels, each switched on by a byte of the header.

constexpr std::size_t kS3mOrders = 96;

bool IsS3m(const Header& header) {
    return header.Has(44, "SCRM");
}

ModuleCounts S3mCounts(const Header& header) {
    ModuleCounts counts{.channels = 32,
                        .orders = header.Word(32),
                        .patterns = header.Word(36),
                        .samples = header.Word(34)};
    const std::size_t places = counts.samples + counts.patterns;
    counts.tablesEnd = kS3mOrders + counts.orders + 2 * places;
    return counts;
}

std::size_t S3mMemory(const Header& header, const ModuleCounts& counts) {
    constexpr unsigned kSampled = 1;  // other kinds of instruments have no data
    const std::size_t samples = kS3mOrders + counts.orders;
    std::size_t memory = 0;
    for (std::size_t i = 0; i < counts.samples; ++i) {
        const std::size_t at = std::size_t{16} * header.Word(samples + 2 * i);
        if (header.Byte(at) == kSampled)
            memory += SampleMemory(header.Long(at + 16), header.Byte(at + 31));
    }
    Rows rows{};
    std::fill_n(rows.begin(), counts.patterns, kDefaultRows);
    // The file itself is copied once.
    return header.Size() + memory +
           PatternMemory(header, kS3mOrders, counts.orders, rows, counts.channels);
}

// MOD. 31 samples. The signature behind the orders tells the number of channels.

constexpr std::size_t kModSignature = 1080;

/// 0 when there is no signature that is known.
unsigned ModChannels(const Header& header) {
    struct Signature {
        std::string_view text;
        unsigned channels;
    };
    constexpr std::array kSignatures = {Signature{"M.K.", 4}, Signature{"M!K!", 4},
                                        Signature{"FLT4", 4}, Signature{"FLT8", 8},
                                        Signature{"CD81", 8}, Signature{"OKTA", 8}};
    for (const auto& [text, channels] : kSignatures)
        if (header.Has(kModSignature, text)) return channels;
    const unsigned first = header.Byte(kModSignature) - '0';
    const unsigned second = header.Byte(kModSignature + 1) - '0';
    if (first <= 9 && header.Has(kModSignature + 1, "CHN")) return first;
    if (first <= 9 && second <= 9 && header.Has(kModSignature + 2, "CH"))
        return 10 * first + second;
    return 0;
}

bool IsMod(const Header& header) {
    return ModChannels(header) != 0;
}

ModuleCounts ModCounts(const Header& header) {
    constexpr std::size_t kOrders = 952;
    constexpr unsigned kOrderCount = 128;
    ModuleCounts counts{.channels = ModChannels(header),
                        .orders = header.Byte(950),
                        .samples = 31,
                        .tablesEnd = kModSignature + 4};
    if (counts.orders > kOrderCount) return {};
    for (std::size_t i = 0; i < counts.orders; ++i)
        counts.patterns = std::max(counts.patterns, header.Byte(kOrders + i) + 1);
    return counts;
}

// MTM. Samples, 128 orders, tracks and patterns follow each other. The header holds the numbers of
// the last order and the last pattern, not their counts.

bool IsMtm(const Header& header) {
    return header.Has(0, "MTM");
}

ModuleCounts MtmCounts(const Header& header) {
    constexpr unsigned kOrderCount = 128;
    ModuleCounts counts{.channels = header.Byte(33),
                        .orders = header.Byte(27) + 1,
                        .patterns = header.Byte(26) + 1,
                        .samples = header.Byte(30)};
    if (counts.orders > kOrderCount || counts.channels > 32) return {};
    const std::size_t tracks = header.Word(24);
    counts.tablesEnd = 66 + 37 * std::size_t{counts.samples} + kOrderCount + 192 * tracks +
                       64 * std::size_t{counts.patterns} + header.Word(28);
    return counts;
}

/// The player would unpack these before it looks for a format.
bool IsPacked(const Header& header) {
    return header.Has(0, "PP20") || header.Has(0, "XPKF") || header.Has(0, "ziRCONia");
}

struct FormatRow {
    ModuleFormat format;
    std::string_view name;
    bool (*matches)(const Header& header);
    ModuleCounts (*counts)(const Header& header);
    /// An upper limit of the bytes that the player takes; asked only for accepted counts.
    std::size_t (*memory)(const Header& header, const ModuleCounts& counts);
};

// In the order of `ModuleFormat`. MOD's signature comes late in the file and MTM's is short, so
// the others are tried first.
constexpr std::array kFormats = {
    FormatRow{ModuleFormat::Xm, "xm", IsXm, XmCounts, XmMemory},
    FormatRow{ModuleFormat::It, "it", IsIt, ItCounts, ItMemory},
    FormatRow{ModuleFormat::S3m, "s3m", IsS3m, S3mCounts, S3mMemory},
    FormatRow{ModuleFormat::Mod, "mod", IsMod, ModCounts, NoMemory},
    FormatRow{ModuleFormat::Mtm, "mtm", IsMtm, MtmCounts, NoMemory},
};

}  // namespace

std::string_view NameOf(ModuleFormat format) {
    return kFormats[static_cast<std::size_t>(format)].name;
}

std::optional<ModuleFormat> CheckModuleHeader(std::span<const std::byte> file) {
    if (file.size() > kMaxModuleBytes) return std::nullopt;
    const Header header(file);
    const auto row = std::ranges::find_if(
        kFormats, [&](const FormatRow& format) { return format.matches(header); });
    if (row == kFormats.end() || IsPacked(header)) return std::nullopt;
    const ModuleCounts counts = row->counts(header);
    const bool accepted =
        IsAccepted(counts, file.size()) && row->memory(header, counts) <= kMaxModuleMemory;
    return accepted ? std::optional(row->format) : std::nullopt;
}

}  // namespace korvane
