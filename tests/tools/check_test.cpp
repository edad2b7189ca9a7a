#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "qvui-skin/check.h"
#include "support/table.h"
#include "support/test_files.h"
#include "support/transcript.h"

namespace qvui::skin_tool {
namespace {

const std::string kData = test::TestFile("tools/data/");

// What the check says of a package in the data folder, one line each and without the folder's name.
std::vector<std::string> Lines(const Report& report)
{
    std::vector<std::string> lines;
    for (std::string line : Split(report.ToText(), '\n')) {
        if (line.rfind(kData, 0) == 0)
            line.erase(0, kData.size());
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

Report CheckPackage(const std::string& entry, std::vector<std::string> tags = {},
                    const std::string& root = "")
{
    Report report;
    const Package package(entry, root, report);
    Checker(package, std::move(tags), report).Run();
    return report;
}

TEST(Check, FindsEveryFaultOfABrokenPackageInItsPlace)
{
    const Report report = CheckPackage(kData + "broken-skin/entry.xml", {"gauge"});
    test::ExpectTranscript("tools/data/broken-skin-findings.txt", [&report](auto&) {
        std::string text;
        for (const std::string& line : Lines(report))
            text += line + "\n";
        return text;
    });
    EXPECT_FALSE(report.IsClean());
}

TEST(Check, AcceptsNothingButRegisteredTags)
{
    const auto unknownTags = [](std::vector<std::string> tags) {
        const Report report = CheckPackage(kData + "broken-skin/entry.xml", std::move(tags));
        std::vector<std::string> found;
        for (const Finding& finding : report.Findings())
            if (finding.text.find("it is left out with all that it holds") != std::string::npos)
                found.push_back(finding.text);
        return found;
    };
    // Only where it is no misspelling is it likely to be the application's own.
    EXPECT_THAT(unknownTags({}),
                testing::UnorderedElementsAre(testing::EndsWith("(--tag gauge)"),
                                              testing::EndsWith("it holds"), testing::EndsWith("it holds")));
    EXPECT_EQ(unknownTags({"gauge"}).size(), 2u);
    EXPECT_THAT(unknownTags({"gauge", "buton", "Label"}), testing::IsEmpty());
}

TEST(Check, FindsTheDirectoryThatNamesAreRelativeTo)
{
    const Table<const char*, std::vector<std::string>, const char*> cases{
        {"a/my-skin/entry.xml", {"my-skin\\x.xml"}, "a/"},
        {"a/my-skin/entry.xml", {".\\My-Skin/x.xml"}, "a/"},
        {"a/my-skin/entry.xml", {"x.xml", "deep\\y.xml"}, "a/my-skin/"},
        {"a/my-skin/entry.xml", {"my-skin2\\x.xml"}, "a/my-skin/"},
        {"a/my-skin/entry.xml", {}, "a/my-skin/"},
        {"my-skin/entry.xml", {"my-skin/x.xml"}, "."},
    };
    for (const auto& [entry, names, expected] : cases) {
        std::string root = FindRoot(entry, names);
        std::replace(root.begin(), root.end(), '\\', '/');
        EXPECT_EQ(root, expected) << entry << " " << (names.empty() ? "" : names.front());
    }
}

TEST(Check, TakesAnotherRootAndAMissingEntry)
{
    Report report;
    EXPECT_FALSE(Package(kData + "broken-skin/no.xml", "", report).IsFound());
    // With a wrong root nothing is where its name says.
    const Report wrong = CheckPackage(kData + "broken-skin/entry.xml", {}, kData + "broken-skin");
    EXPECT_THAT(Lines(wrong),
                testing::Contains(testing::HasSubstr(
                    "entry.xml:3:60: error: the file \"broken-skin\\english.xml\" cannot be opened")));
}

TEST(Check, WritesFindingsAsJson)
{
    const Document document = Document::FromText("a.xml", "<a>\n<b/></a>");
    Report report;
    report.Add(Severity::Note, document, 4, "say \"this\"", "that");
    report.Add(Severity::Error, document, 0, "first");
    report.Add(Severity::Error, document, 0, "first");
    const nlohmann::json list = nlohmann::json::parse(report.ToJson());
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0]["severity"], "error");
    EXPECT_EQ(list[1]["line"], 2);
    EXPECT_EQ(list[1]["text"], "say \"this\"");
    EXPECT_EQ(list[1]["suggestion"], "that");
    EXPECT_EQ(report.ToText(),
              "a.xml:1:1: error: first\na.xml:2:1: note: say \"this\"; did you mean \"that\"?\n");
}

}  // namespace
}  // namespace qvui::skin_tool
