#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>

#include "tools/korvane-skin/catalogue.h"
#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/measure.h"
#include "tools/korvane-skin/new_skin.h"
#include "tools/korvane-skin/sheet.h"
#include "tools/korvane-skin/skin_files.h"
#include "tools/korvane-skin/skin_text.h"

namespace korvane {
namespace {

constexpr int kFoundErrors = 1;
constexpr int kWrongUse = 2;

/// The arguments of all subcommands.
struct Request {
    std::string skin;
    std::string original;
    std::string picture;
    std::string name;
    bool asJson = false;
    bool isStrict = false;
};

int Refuse(const std::string& reason) {
    std::cerr << "korvane-skin: " << reason << '\n';
    return kWrongUse;
}

int Check(const Request& request) {
    if (const std::string reason = UseSkin(request.skin, request.original); !reason.empty())
        return Refuse(reason);
    const Report report = CheckSkin();
    if (request.asJson) {
        report.PrintJson(std::cout);
    } else {
        const std::string title = TitleOf(LoadSkinText());
        if (!title.empty()) std::cout << title << '\n';
        report.Print(std::cout);
    }
    const bool fails = report.Count(Severity::Error) > 0 ||
                       (request.isStrict && report.Count(Severity::Warning) > 0);
    return fails ? kFoundErrors : 0;
}

int Sheet(const Request& request) {
    if (const std::string reason = UseSkin(request.skin, request.original); !reason.empty())
        return Refuse(reason);
    if (!WriteSheet(request.picture)) return Refuse(Text("cannot write ", request.picture));
    return 0;
}

int Measure(const Request& request) {
    if (const std::string reason = UseSkin(request.skin, request.original); !reason.empty())
        return Refuse(reason);
    std::cout << MeasureSkin();
    return 0;
}

int New(const Request& request) {
    const NewSkin made = MakeNewSkin(request.name, GameFolders());
    if (!made.wasMade) return Refuse(made.text);
    std::cout << made.text;
    return 0;
}

int Catalogue(const Request& request) {
    std::cout << (request.asJson ? CatalogueAsJson() : CatalogueAsMarkdown());
    return 0;
}

/// Adds a subcommand whose result becomes the program's.
CLI::App* AddCommand(CLI::App& app, const char* name, const char* does,
                     const std::function<int()>& run, int& result) {
    CLI::App* command = app.add_subcommand(name, does);
    command->callback([run, &result] { result = run(); });
    return command;
}

void AddFolders(CLI::App& command, Request& request) {
    command.add_option("FOLDER", request.skin, "The skin's folder")->required();
    command.add_option("--original", request.original,
                       "The folder of the Original (default: the one beside FOLDER, or "
                       "the game's)");
}

int Main(int count, char** words) {
    CLI::App app("The skin maker's tool of Korvane.");
    app.require_subcommand(1);
    app.set_version_flag("--version", "korvane-skin " KORVANE_VERSION);
    Request request;
    int result = 0;
    const auto add = [&](const char* name, const char* does, int (*run)(const Request&)) {
        return AddCommand(
            app, name, does, [&request, run] { return run(request); }, result);
    };
    CLI::App* check = add("check", "Looks for what is wrong in a skin", Check);
    AddFolders(*check, request);
    check->add_flag("--strict", request.isStrict, "Warnings fail, too");
    check->add_flag("--json", request.asJson, "Tells it for programs");
    CLI::App* sheet = add("sheet", "Shows all screens in a skin as one picture", Sheet);
    AddFolders(*sheet, request);
    sheet->add_option("OUT.png", request.picture, "The picture to write")->required();
    add("new", "Starts a skin as a copy of the Original, in Skins/NAME of your game's folder", New)
        ->add_option("NAME", request.name, "The name of the new skin")
        ->required();
    AddFolders(*add("measure", "Measures tiles, texts and the light of all screens", Measure),
               request);
    add("catalogue", "Lists all files of a skin as Markdown", Catalogue)
        ->add_flag("--json", request.asJson, "Lists pictures and buttons for programs instead");
    try {
        app.parse(count, words);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongUse;
    }
    return result;
}

}  // namespace
}  // namespace korvane

int main(int count, char** words) {
    return korvane::Main(count, words);
}
