#include <CLI/CLI.hpp>
#include <iostream>

#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/new_skin.h"
#include "tools/korvane-skin/sheet.h"
#include "tools/korvane-skin/skin_files.h"

namespace korvane {
namespace {

constexpr int kFoundErrors = 1;
constexpr int kWrongUse = 2;

/// What the user asks for.
struct Request {
    std::string skin;
    std::string original;
    std::string picture;
    std::string name;
};

int Refuse(const std::string& reason) {
    std::cerr << "korvane-skin: " << reason << '\n';
    return kWrongUse;
}

int Check(const Request& request) {
    if (const std::string reason = UseSkin(request.skin, request.original); !reason.empty())
        return Refuse(reason);
    const Report report = CheckSkin();
    report.Print(std::cout);
    return report.Count(Severity::Error) > 0 ? kFoundErrors : 0;
}

int Sheet(const Request& request) {
    if (const std::string reason = UseSkin(request.skin, request.original); !reason.empty())
        return Refuse(reason);
    if (!WriteSheet(request.picture)) return Refuse(Text("cannot write ", request.picture));
    return 0;
}

int New(const Request& request) {
    const NewSkin made = MakeNewSkin(request.name);
    if (!made.wasMade) return Refuse(made.text);
    std::cout << made.text;
    return 0;
}

int Main(int count, char** words) {
    CLI::App app("The skin maker's tool of Korvane.");
    app.require_subcommand(1);
    Request request;
    CLI::App* check = app.add_subcommand("check", "Looks for what is wrong in a skin");
    CLI::App* sheet = app.add_subcommand("sheet", "Shows all screens in a skin as one picture");
    CLI::App* make =
        app.add_subcommand("new", "Starts a skin in Skins/NAME as a copy of the Original");
    for (CLI::App* command : {check, sheet}) {
        command->add_option("FOLDER", request.skin, "The skin's folder")->required();
        command->add_option("--original", request.original,
                            "The folder of the Original (default: the one beside FOLDER, or "
                            "Skins/Original)");
    }
    sheet->add_option("OUT.png", request.picture, "The picture to write")->required();
    make->add_option("NAME", request.name, "The name of the new skin")->required();
    try {
        app.parse(count, words);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongUse;
    }
    if (check->parsed()) return Check(request);
    return sheet->parsed() ? Sheet(request) : New(request);
}

}  // namespace
}  // namespace korvane

int main(int count, char** words) {
    return korvane::Main(count, words);
}
