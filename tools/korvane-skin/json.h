#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

// Texts in the notation of JSON. They hold no control characters.

std::string Quoted(std::string_view text);

/// An object of names and values that are JSON already.
std::string Object(std::initializer_list<std::pair<std::string_view, std::string>> fields);

/// A list, an element a line.
template <typename Rows>
std::string List(const Rows& rows, std::string (*toJson)(const typename Rows::value_type&)) {
    std::string list;
    for (const auto& row : rows)
        list += (list.empty() ? "[\n  " : ",\n  ") + toJson(row);
    return list.empty() ? "[]" : list + "\n]";
}

}  // namespace korvane
