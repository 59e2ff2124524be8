#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace korvane {

/// The largest module file that is looked at.
inline constexpr std::size_t kMaxModuleBytes = std::size_t{16} << 20;
inline constexpr unsigned kMaxModuleChannels = 64;
/// The most patterns, the most orders, the most instruments and the most samples.
inline constexpr unsigned kMaxModuleParts = 256;
/// The most memory that the player may need for a file's samples and patterns, in bytes.
inline constexpr std::size_t kMaxModuleMemory = std::size_t{48} << 20;

enum class ModuleFormat : std::uint8_t { Xm, It, S3m, Mod, Mtm };

/// The format's short name in lower case, as files are named after it.
std::string_view NameOf(ModuleFormat format);

/// Tells a tracker module by its signature, whatever its file is called, and checks what its
/// header claims: counts within the limits above, at least one channel and order, every table that
/// the header announces inside the file, and no more memory to play it than the limit. No value for
/// any other file.
std::optional<ModuleFormat> CheckModuleHeader(std::span<const std::byte> file);

}  // namespace korvane
