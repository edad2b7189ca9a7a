// Packages in resource modules and in the program's own resources. The modules are built beside the program.

#include "skin/code_page.h"
#include "skin/skin_test.h"

using DUI::CDUIImageListPtr;
using qvui::test::LiveObjects;

namespace {

constexpr const char* kModuleA = "skin_module_a.dll";
constexpr const char* kModuleB = "skin_module_b.dll";

struct Loader : DUI::CResLoader {
    using CResLoader::FreeResDll;
    using CResLoader::GetResInstance;
    using CResLoader::LoadStringFromResource;
};

std::string Set(const char* set, const char* entry, const std::string& source, int id)
{
    return std::string("<") + set + " default=\"x\"><" + entry + " name=\"x\" " + source + " resource_id=\"" +
           std::to_string(id) + "\" resource_type=\"XML\"/></" + set + ">";
}

CString PackageFrom(const std::string& source)
{
    return Document(Set("language_set", "language", source, 101) + Set("skin_set", "skin", source, 104) +
                    Set("style_set", "style", source, 105) + Set("template_set", "template", source, 106));
}

}  // namespace

class ResourceModules : public SkinTest {
protected:
    Loader loader;
};

TEST_F(ResourceModules, HoldPicturesByNumber)
{
    // The colour; 0 where there is no picture. Of a number the low 16 bits count.
    // clang-format off
    const Table<const char*, const char*, std::uint32_t> cases{
        {"102", "PNG", 0xFFFF0000}, {"0102", "PNG", 0xFFFF0000}, {" 102x", "PNG", 0xFFFF0000},
        {"65638", "PNG", 0xFFFF0000}, {"101", "PNG", 0}, {"102", "XML", 0}, {"PNG", "PNG", 0},
        {"", "PNG", 0}, {"102", "", 0}, {"101", "XML", 0}};
    // clang-format on
    for (const auto& [id, type, color] : cases) {
        const CDUIImageListPtr list = loader.LoadImageFromDll(kModuleA, id, type);
        ASSERT_TRUE(list) << id;
        EXPECT_EQ(IconColor(list), color) << id << " " << type;
        std::vector<std::string> lines;
        if (!color)
            lines.push_back("CResLoader::LoadImageFromResource: failed to load image(id-" + std::string(id) +
                            ", type:" + type + ")");
        EXPECT_EQ(traces.Take(), lines);
    }
}

TEST_F(ResourceModules, HoldCursors)
{
    const auto cursor = loader.LoadCursorFromDll(kModuleA, "103", "anything");
    ASSERT_FALSE(cursor.IsNull());
    EXPECT_EQ(cursor->IsNull(), 0);
    EXPECT_EQ(cursor->CreateFromResource(GetModuleHandleA(nullptr), "103"), 1);
    // The second one's low 16 bits are 103.
    for (const std::string id : {"104", "4294967399"}) {
        EXPECT_EQ(loader.LoadCursorFromDll(kModuleA, id.c_str(), "CURSOR")->IsNull(), 1);
        EXPECT_EQ(traces.Take(),
                  std::vector<std::string>{"CResLoader::LoadCursorFromResource: failed to load cursor(id-" +
                                           id + ", type:CURSOR)"});
    }
}

TEST_F(ResourceModules, HoldTextsInUtf8)
{
    const Table<UINT, const char*, const char*> cases{
        {65001, "caf\xC3\xA9", "\xEF\xBB\xBF"}, {936, "caf\xA8\xA6", "?"}, {1252, "caf\xE9", "?"}};
    for (const auto& [codePage, accent, mark] : cases)
        for (const UINT page : CodePages())
            if (page == codePage) {
                const CodePage system(page);
                CString xml;
                EXPECT_EQ(loader.LoadXMLFromDll(kModuleA, "101", "XML", xml), 1) << page;
                EXPECT_TRUE(xml.View().ends_with(std::string(accent) + "</string></s>\n")) << page;
                EXPECT_EQ(loader.LoadXMLFromDll(kModuleA, "107", "XML", xml), 1) << "well-formed or not";
                EXPECT_EQ(xml, (std::string(mark) + "<a>").c_str()) << page;
            }
    CString xml("before");
    EXPECT_EQ(loader.LoadXMLFromDll(kModuleA, "109", "XML", xml), 0);
    EXPECT_EQ(loader.LoadXMLFromDll(kModuleA, "101", "PNG", xml), 0);
    EXPECT_STREQ(xml, "before");
    DUI::CResMgr manager;
    EXPECT_EQ(manager.LoadAllString({"", "dll", kModuleA, "107", "XML"}), 0)
        << "now it has to be well-formed";
    EXPECT_EQ(loader.LoadXMLFromDll(kModuleA, "108", "XML", xml), 1) << "empty";
    EXPECT_EQ(manager.LoadAllString({"", "dll", kModuleA, "108", "XML"}), 0);
}

TEST_F(ResourceModules, OneIsLoadedAtATime)
{
    const LiveObjects none = LiveObjects::Count();
    const CDUIImageListPtr first = loader.LoadImageFromDll(kModuleA, "102", "PNG");
    const CDUIImageListPtr second = loader.LoadImageFromDll(kModuleA, "102", "PNG");
    EXPECT_NE(first, second);
    const LiveObjects one = LiveObjects::Count();
    const CDUIImageListPtr other = loader.LoadImageFromDll(kModuleB, "102", "PNG");
    EXPECT_EQ(IconColor(other), 0xFF00FF00U);
    EXPECT_EQ(GetModuleHandleA(kModuleA), nullptr) << "the first one was let go";
    EXPECT_EQ(one.Leaked(LiveObjects::Count()).find("module"), std::string::npos);
    EXPECT_EQ(loader.LoadImageFromDll("missing.dll", "102", "PNG"), nullptr);
    EXPECT_EQ(IconColor(loader.LoadImageFromDll(kModuleB, "102", "PNG")), 0xFF00FF00U);
    EXPECT_EQ(IconColor(first), 0xFFFF0000U) << "pictures outlive their module";

    const HINSTANCE own = loader.LoadLibraryA("./skin_module_a.dll");
    ASSERT_NE(own, nullptr);
    CString text;
    EXPECT_EQ(loader.LoadStringFromResource(own, "101", "XML", text), 1);
    EXPECT_TRUE(FreeLibrary(own)) << "the caller's";

    const HINSTANCE given = loader.GetResInstance((ProgramDirectory() + "\\" + kModuleA).c_str());
    EXPECT_NE(given, nullptr);
    EXPECT_EQ(loader.GetResInstance("no\\such.dll"), nullptr);
    EXPECT_EQ(loader.GetResInstance((ProgramDirectory() + "\\" + kModuleA).c_str()), given);
    loader.FreeResDll();
    loader.FreeResDll();
    EXPECT_EQ(GetModuleHandleA(kModuleA), nullptr);
    EXPECT_EQ(none.Leaked(LiveObjects::Count()).find("module"), std::string::npos);
}

TEST_F(ResourceModules, HoldWholePackages)
{
    for (const std::string& source : {std::string("config_type=\"dll\" file_name=\"skin_module_a.dll\""),
                                      std::string("config_type=\"Exe\"")}) {
        DUI::CDUISkinMgr manager;
        EXPECT_EQ(manager.InitializeSkin(PackageFrom(source)), 1) << source;
        CString text;
        EXPECT_EQ(manager.GetStringText("hello", text), 1);
        EXPECT_STREQ(text, "Hello");
        EXPECT_EQ(manager.GetWindowTemplate("w", text), 1);
        EXPECT_EQ(IconColor(manager.GetImage("red", 1)), 0xFFFF0000U);
        EXPECT_EQ(manager.GetImage("red", 1)->GetItemCount(), 2);
        EXPECT_EQ(IconColor(manager.GetImage("green", 1)), 0xFF00FF00U);
        EXPECT_EQ(IconColor(manager.GetImage("own", 1)), 0xFF00FF00U) << "the program's";
        EXPECT_EQ(manager.GetFrameBK("f")->GetSkinImage(), manager.GetImage("own", 1));
        for (const char* name : {"hand", "own"})
            EXPECT_EQ(manager.GetCursor(name, 1)->IsNull(), 0) << name;
    }
}

// Changed bytes are left to the native reader's test: the loader of the windows target trusts every address
// that a header of a module gives it, and so reads outside of it.
TEST_F(ResourceModules, ThatAreCutOffGiveNothing)
{
    constexpr std::size_t kResources = 0xA00;  // where the section of the resources starts
    const std::string whole = folder.Read("../skin_module_b.dll");
    ASSERT_GT(whole.size(), kResources);
    for (std::size_t length = 0; length < whole.size(); length += length < kResources ? 61 : 5) {
        folder.Write("cut.dll", whole.substr(0, length));
        const CDUIImageListPtr list = loader.LoadImageFromDll(SkinFolder::Name("cut.dll"), "102", "PNG");
        EXPECT_TRUE(length > kResources || IconColor(list) == 0) << length;
        loader.FreeResDll();
    }
    traces.Take();
}
