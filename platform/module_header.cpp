#include "platform/module_header.h"

#include <algorithm>
#include <array>

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

// XM: the header's size counts from its own field; the order table is part of it. ----------------

bool IsXm(const Header& header) {
    return header.Has(0, "Extended Module: ");
}

ModuleCounts XmCounts(const Header& header) {
    constexpr std::size_t kSizeField = 60;
    constexpr std::size_t kFieldsEnd = 80;
    return {.channels = header.Word(68),
            .orders = header.Word(64),
            .patterns = header.Word(70),
            .instruments = header.Word(72),
            .tablesEnd = std::max(kFieldsEnd, kSizeField + header.Long(kSizeField))};
}

// IT: always 64 channels; behind the orders lie the places of instruments, samples and patterns. --

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
    counts.tablesEnd = 192 + counts.orders + 4 * places;
    return counts;
}

// S3M: 32 channels at most, each switched by a byte of the header. --------------------------------

bool IsS3m(const Header& header) {
    return header.Has(44, "SCRM");
}

ModuleCounts S3mCounts(const Header& header) {
    ModuleCounts counts{.channels = 32,
                        .orders = header.Word(32),
                        .patterns = header.Word(36),
                        .samples = header.Word(34)};
    const std::size_t places = counts.samples + counts.patterns;
    counts.tablesEnd = 96 + counts.orders + 2 * places;
    return counts;
}

// MOD: 31 samples; the signature behind the orders tells the channels. ----------------------------

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

// MTM: samples, 128 orders, tracks and patterns in this order; counts of last ones, not of all. ---

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

struct FormatRow {
    ModuleFormat format;
    std::string_view name;
    bool (*matches)(const Header& header);
    ModuleCounts (*counts)(const Header& header);
};

// In the order of `ModuleFormat`. MOD's signature comes late in the file and MTM's is short, so
// the others are tried first.
constexpr std::array kFormats = {
    FormatRow{ModuleFormat::Xm, "xm", IsXm, XmCounts},
    FormatRow{ModuleFormat::It, "it", IsIt, ItCounts},
    FormatRow{ModuleFormat::S3m, "s3m", IsS3m, S3mCounts},
    FormatRow{ModuleFormat::Mod, "mod", IsMod, ModCounts},
    FormatRow{ModuleFormat::Mtm, "mtm", IsMtm, MtmCounts},
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
    if (row == kFormats.end() || !IsAccepted(row->counts(header), file.size())) return std::nullopt;
    return row->format;
}

}  // namespace korvane
