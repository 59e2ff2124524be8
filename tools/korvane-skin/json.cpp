#include "tools/korvane-skin/json.h"

namespace korvane {

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

std::string Object(std::initializer_list<std::pair<std::string_view, std::string>> fields) {
    std::string object;
    for (const auto& [name, value] : fields)
        object += (object.empty() ? "{" : ", ") + Quoted(name) + ": " + value;
    return object + "}";
}

}  // namespace korvane
