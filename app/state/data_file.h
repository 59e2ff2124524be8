#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/state/data_file_session.h"
#include "app/state/field_codec.h"

namespace korvane {

// A data file's `Layout` is a type with these static members:
//
//   Record                          the fields in memory
//   kPath                           of the file
//   kFewestBytes                    a file with fewer counts as none; at least 1
//   Defaults()                      the record when there is no file
//   Unreached()                     what fields hold that a short file does not reach
//   Visit(record, visitor)          visits the fields in file order
//   Merged(base, added, known)      `base` and whatever `added` has beyond `known`
//   kIsShared                       sessions that run side by side merge what they save; otherwise
//                                   the last writer wins

/// A record from a file's bytes; nothing when they count as none or hold a text that is too long.
template <typename Layout>
std::optional<typename Layout::Record> Decoded(std::span<const std::byte> bytes) {
    if (bytes.size() < Layout::kFewestBytes) return std::nullopt;
    FieldReader reader(bytes);
    typename Layout::Record record = Layout::Unreached();
    Layout::Visit(record, reader);
    if (reader.HasFailed()) return std::nullopt;
    return record;
}

template <typename Layout>
std::vector<std::byte> Encoded(const typename Layout::Record& record) {
    FieldWriter writer;
    Layout::Visit(record, writer);
    return {writer.Bytes().begin(), writer.Bytes().end()};
}

/// For layouts whose fields stand for themselves: each that `added` and `known` have alike comes
/// from `base`.
template <typename Layout>
typename Layout::Record MergedFields(typename Layout::Record base,
                                     const typename Layout::Record& added,
                                     const typename Layout::Record& known) {
    const auto split = [](const typename Layout::Record& record) {
        FieldSplitter fields;
        Layout::Visit(record, fields);
        return fields.All();
    };
    const FieldSplitter::Fields old = split(base), now = split(added), before = split(known);
    std::vector<std::byte> bytes;
    for (std::size_t i = 0; i < old.size(); ++i) {
        const std::vector<std::byte>& field = now[i] != before[i] ? now[i] : old[i];
        bytes.insert(bytes.end(), field.begin(), field.end());
    }
    return *Decoded<Layout>(bytes);
}

/// Joins the bytes of three files as `Layout::Merged` joins records.
using MergeBytes = std::vector<std::byte>(std::span<const std::byte> base,
                                          std::span<const std::byte> added,
                                          std::span<const std::byte> known);

/// `Layout::Merged` of three files' bytes; `added` where `base` counts as none.
template <typename Layout>
std::vector<std::byte> MergedBytes(std::span<const std::byte> base,
                                   std::span<const std::byte> added,
                                   std::span<const std::byte> known) {
    const auto record = Decoded<Layout>(base);
    if (!record) return {added.begin(), added.end()};
    return Encoded<Layout>(
        Layout::Merged(*record, *Decoded<Layout>(added), *Decoded<Layout>(known)));
}

/// What joins a session's bytes with those of another that it finds; null for the last writer wins.
struct Joining {
    MergeBytes* inFile;
    MergeBytes* beside;
};

template <typename Layout>
constexpr Joining JoiningOf() {
    return {.inFile = Layout::kIsShared ? MergedBytes<Layout> : nullptr,
            .beside = MergedBytes<Layout>};
}

/// Reads a data file and the one beside it for the session. Returns the bytes of the first: none
/// when it is missing, or cannot be read, which the user is told.
std::vector<std::byte> BeginDataFile(std::string_view path, DataFileSession& session);

/// Writes the bytes to the data file or beside it, as the session demands. During the session
/// nothing waits: false when they were not written, so that it must be tried again.
bool WriteDataFileSoFar(std::string_view path, DataFileSession& session,
                        std::span<const std::byte> bytes, const Joining& joining);
/// The same at the session's end, when everything is tried that can save them.
void FinishDataFile(std::string_view path, DataFileSession& session,
                    std::span<const std::byte> bytes, const Joining& joining);

/// What a data file holds, with what stands beside it; nothing when neither gives a record.
template <typename Layout>
std::optional<typename Layout::Record> LoadDataFile(DataFileSession& session) {
    const typename Layout::Record defaults = Layout::Defaults();
    auto record = Decoded<Layout>(BeginDataFile(Layout::kPath, session));
    const typename Layout::Record inFile = record.value_or(defaults);
    const auto added = Decoded<Layout>(session.added.value_or(std::vector<std::byte>()));
    if (added) record = Layout::Merged(record.value_or(defaults), *added, defaults);
    session.known = Encoded<Layout>(session.oldStays ? record.value_or(defaults) : inFile);
    return record;
}

/// Replaces the file, or the one beside it, at the session's end; a failure goes unnoticed.
template <typename Layout>
void SaveDataFile(DataFileSession& session, const typename Layout::Record& record) {
    FinishDataFile(Layout::kPath, session, Encoded<Layout>(record), JoiningOf<Layout>());
}

/// The same during the session; false when it must be tried again.
template <typename Layout>
bool SaveDataFileSoFar(DataFileSession& session, const typename Layout::Record& record) {
    return WriteDataFileSoFar(Layout::kPath, session, Encoded<Layout>(record), JoiningOf<Layout>());
}

}  // namespace korvane
