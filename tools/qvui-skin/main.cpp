#include <clocale>
#include <cstdio>
#include <exception>
#include <fstream>

#include <CLI/CLI.hpp>

#include "check.h"
#include "dump.h"
#include "reference.h"
#include "sheet.h"

namespace {

using namespace qvui::skin_tool;

enum Status { kClean = 0, kFindings = 1, kUnreadable = 2 };

struct Options {
    std::string entry;
    std::string root;
    bool isJson = false;
    std::vector<std::string> tags;
    std::string output;
    std::string skin;
};

int Unreadable(const std::string& path)
{
    std::fprintf(stderr, "qvui-skin: %s cannot be opened\n", path.c_str());
    return kUnreadable;
}

// What cannot be listed or drawn: a package whose entry document does not read.
int NotWellFormed(const Document& entry)
{
    const DocumentProblem& problem = entry.Problems().front();
    std::fprintf(stderr, "qvui-skin: %s:%d: %s\n", entry.Path().c_str(), entry.Where(problem.offset).line,
                 problem.text.c_str());
    return kUnreadable;
}

int Unwritable(const std::string& path)
{
    std::fprintf(stderr, "qvui-skin: %s cannot be written\n", path.c_str());
    return kUnreadable;
}

int RunCheck(const Options& options)
{
    Report report;
    const Package package(options.entry, options.root, report);
    if (!package.IsFound())
        return Unreadable(options.entry);
    Checker(package, options.tags, report).Run();
    std::fputs((options.isJson ? report.ToJson() : report.ToText()).c_str(), stdout);
    return report.IsClean() ? kClean : kFindings;
}

int RunDump(const Options& options)
{
    Report ignored;
    const Package package(options.entry, options.root, ignored);
    if (!package.IsFound())
        return Unreadable(options.entry);
    if (!package.Entry().IsWellFormed())
        return NotWellFormed(package.Entry());
    std::fputs(Dump(package, options.isJson).c_str(), stdout);
    return kClean;
}

int RunSheet(const Options& options)
{
    Report ignored;
    const Package package(options.entry, options.root, ignored);
    if (!package.IsFound())
        return Unreadable(options.entry);
    if (!package.Entry().IsWellFormed())
        return NotWellFormed(package.Entry());
    const std::string skin = options.skin.empty() ? package.DefaultSkin() : options.skin;
    if (WriteSheet(package, skin, options.output))
        return kClean;
    std::fprintf(stderr, "qvui-skin: no skin \"%s\", or %s cannot be written\n", skin.c_str(),
                 options.output.c_str());
    return kUnreadable;
}

int RunReference(const Options& options)
{
    std::ofstream file(options.output, std::ios::binary);
    file << ReferencePage();
    return file.flush() ? kClean : Unwritable(options.output);
}

void AddPackageOptions(CLI::App& command, Options& options)
{
    command.add_option("entry", options.entry, "The package's entry document")->required();
    command.add_option("--root", options.root, "The directory that the package's file names are relative to");
}

}  // namespace

int main(int argc, char** argv)
try {
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    CLI::App app{"Checks, lists and draws skin packages.", "qvui-skin"};
    app.require_subcommand(1);
    Options options;
    int status = kClean;

    CLI::App& check = *app.add_subcommand("check", "Reports what is wrong with a package; 0 when nothing is");
    AddPackageOptions(check, options);
    check.add_flag("--json", options.isJson, "Write an array of findings");
    check.add_option("--tag", options.tags,
                     "A control that the application registers itself; may be given again");
    check.callback([&] { status = RunCheck(options); });

    CLI::App& dump = *app.add_subcommand("dump", "Lists every resource of a package with its values");
    AddPackageOptions(dump, options);
    dump.add_flag("--json", options.isJson, "Write one object");
    dump.callback([&] { status = RunDump(options); });

    CLI::App& sheet =
        *app.add_subcommand("sheet", "Draws a skin's colours, fonts, images and frames into a picture");
    AddPackageOptions(sheet, options);
    sheet.add_option("-o,--output", options.output, "The picture, a PNG file")->required();
    sheet.add_option("--skin", options.skin, "The skin; without it, the package's default");
    sheet.callback([&] { status = RunSheet(options); });

    CLI::App& reference = *app.add_subcommand("reference", "Writes the reference page for skin designers");
    reference.add_option("-o,--output", options.output, "The page, in Markdown")->required();
    reference.callback([&] { status = RunReference(options); });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? kClean : kUnreadable;
    }
    return status;
} catch (const std::exception& error) {
    std::fprintf(stderr, "qvui-skin: %s\n", error.what());
    return kUnreadable;
}
