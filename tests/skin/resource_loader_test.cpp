// Resolving names, and loading documents, images and cursors from files.

#include <memory>

#include "skin/code_page.h"
#include "skin/skin_test.h"

using DUI::CDUIImageListPtr;
using DUI::CResLoader;
using DUI::ResolveSkinPath;

TEST(SkinPath, IsRelativeToTheExecutable)
{
    // clang-format off
    const Table<const char*, const char*, const char*> cases{
        {R"(C:\App\bin)", R"(skin/main.xml)", R"(C:\App\bin\skin\main.xml)"},
        {R"(C:\App\bin)", R"(.\skin\a.png)", R"(C:\App\bin\skin\a.png)"},
        {R"(C:\App\bin)", R"(./skin/a.png)", R"(C:\App\bin\skin\a.png)"},
        {R"(C:\App\bin)", R"(..\res\a.png)", R"(C:\App\res\a.png)"},
        {R"(C:\App\bin)", R"(../../a.png)", R"(C:\App\a.png)"},
        {R"(C:\App)", R"(..\..\..\a.png)", R"(C:\App\a.png)"},
        {R"(C:\App\bin)", R"()", R"(C:\App\bin)"},
        {R"(C:\App\bin)", R"(\a.png)", R"(C:\App\bin\a.png)"},
        {R"(C:\App\bin)", R"(/a.png)", R"(C:\App\bin\a.png)"},
        {R"(C:\App\bin)", R"(D:\a.png)", R"(C:\App\bin\D:\a.png)"},
        {R"(C:\App\bin)", R"(a\..\b.png)", R"(C:\App\bin\a\..\b.png)"},
        {R"(C:\App\bin)", R"(.\..\b.png)", R"(C:\App\b.png)"},
        {R"(C:\App\bin)", R"(..\.\b.png)", R"(C:\App\.\b.png)"},
        {R"(C:\App\bin)", R"(.\.\b.png)", R"(C:\App\bin\.\b.png)"},
        // Too short to be taken apart.
        {R"(C:\App\bin)", R"(.\)", R"(C:\App\bin\.\)"},
        {R"(C:\App\bin)", R"(..\)", R"(C:\App\bin\..\)"},
        {R"(C:\App\bin)", R"(..)", R"(C:\App\bin\..)"},
        {R"(C:\App\bin)", R"(..\a)", R"(C:\App\a)"},
        {R"(\usr\lib\app)", R"(..\share/a.xml)", R"(\usr\lib\share\a.xml)"},
        {R"(\app)", R"(..\..\a.xml)", R"(\a.xml)"},
        {R"()", R"(a.xml)", R"(\a.xml)"},
        {R"(app)", R"(..\a.xml)", R"(app\a.xml)"},
    };
    // clang-format on
    for (const auto& [directory, name, path] : cases)
        EXPECT_STREQ(ResolveSkinPath(directory, name), path) << directory << " " << name;
}

TEST(SkinPath, DoesNotSplitCharacters)
{
    // In code page 936 the second byte of this character is a back-slash.
    for (const UINT page : CodePages())
        if (page == 936) {
            const CodePage system(page);
            EXPECT_STREQ(ResolveSkinPath("C:\\App\\\x81\x5C", "..\\a.png"), "C:\\App\\a.png");
            EXPECT_STREQ(ResolveSkinPath("C:\\App", "\x81\x5C.png"), "C:\\App\\\x81\x5C.png");
        }
}

class ResourceLoader : public SkinTest {
protected:
    CResLoader loader;
};

TEST_F(ResourceLoader, LoadsPicturesAndCursors)
{
    folder.WriteStrip("a.png", {0xFFFF0000, 0x80C86432});
    folder.WriteCursor("a.cur");
    const CDUIImageListPtr list = loader.LoadImageFromFile(SkinFolder::Name("a.png"));
    ASSERT_TRUE(list && !list->IsNull());
    EXPECT_EQ(IconColor(list, 0), 0xFFFF0000U);
    EXPECT_EQ(IconColor(list, 1), 0x80643219U) << "premultiplied";
    const std::unique_ptr<CImage> image(loader.LoadRawImage(SkinFolder::Name("a.png")));
    ASSERT_TRUE(image);
    EXPECT_EQ(*static_cast<std::uint32_t*>(image->GetPixelAddress(8, 0)), 0x80C86432U) << "straight alpha";
    EXPECT_EQ(loader.LoadCursorFromFile(SkinFolder::Name("a.cur"))->IsNull(), 0);

    EXPECT_TRUE(loader.LoadImageFromFile("./skin-test/missing.png")->IsNull()) << "a list without a picture";
    EXPECT_EQ(loader.LoadRawImage("missing.png"), nullptr);
    EXPECT_EQ(loader.LoadCursorFromFile("missing.cur")->IsNull(), 1) << "an object without a cursor";
    EXPECT_EQ(traces.Take(),
              (std::vector<std::string>{
                  "CResLoader::LoadImageFromFile: failed to load image(./skin-test/missing.png)",
                  "CResLoader::LoadImageFromFile: failed to load image(missing.png)",
                  "CResLoader::LoadCursorFromFile: failed to load cursor(missing.cur)"}));
}

TEST_F(ResourceLoader, ReloadsImagesInPlace)
{
    folder.WriteStrip("a.png", {0xFFFF0000});
    folder.WriteStrip("b.png", {0xFF00FF00});
    folder.Write("broken.png", folder.Read("a.png").substr(0, 40));
    const CDUIImageListPtr list = loader.LoadImageFromFile(SkinFolder::Name("a.png"));
    const CDUIImageListPtr copy = std::make_shared<DUI::CDUIImageList>(*list);
    EXPECT_EQ(loader.LoadImageFromFile(SkinFolder::Name("b.png"), list), 1);
    EXPECT_EQ(IconColor(copy), 0xFF00FF00U) << "copies share the picture";
    EXPECT_EQ(loader.LoadImageFromFile(SkinFolder::Name("b.png"), nullptr), 0);
    EXPECT_EQ(traces.Take(), std::vector<std::string>{}) << "no list is no failure to load";
    EXPECT_EQ(loader.LoadImageFromFile(SkinFolder::Name("broken.png"), list), 0);
    EXPECT_TRUE(list->IsNull());
    EXPECT_EQ(traces.Take().size(), 1U);
}

TEST_F(ResourceLoader, LoadsWellFormedDocuments)
{
    folder.Write("good.xml", "<a>1</a>");
    folder.Write("wide.xml", std::string_view("\xFF\xFE<\0a\0>\0001\0<\0/\0a\0>\0", 18));
    folder.Write("bad.xml", "<a>");
    CString xml;
    EXPECT_EQ(loader.LoadXMLFromFile(SkinFolder::Name("good.xml"), xml), 1);
    EXPECT_STREQ(xml, "<a>1</a>");
    xml.Empty();
    EXPECT_EQ(loader.LoadXMLFromFile("skin-test/wide.xml", xml), 1);
    EXPECT_STREQ(xml, "<a>1</a>");
    for (const char* file : {"bad.xml", "missing.xml"}) {
        EXPECT_EQ(loader.LoadXMLFromFile(("skin-test/" + std::string(file)).c_str(), xml), 0);
        EXPECT_STREQ(xml, "<a>1</a>") << "untouched";
        EXPECT_EQ(traces.Take(), std::vector<std::string>{"CResLoader::LoadXMLFromFile: can not open file(" +
                                                          SkinFolder::LibraryPath(file) + ")"});
    }
}

TEST_F(ResourceLoader, ModulesThatAreNoneGiveNothing)
{
    folder.Write("text.dll", "no module");
    for (const char* module : {"text.dll", "missing.dll"}) {
        const CString name = SkinFolder::Name(module);
        CString xml("before");
        EXPECT_EQ(loader.LoadLibraryA(name), nullptr) << module;
        EXPECT_EQ(loader.LoadImageFromDll(name, "1", "PNG"), nullptr) << module;
        EXPECT_TRUE(loader.LoadCursorFromDll(name, "1", "CURSOR").IsNull()) << module;
        EXPECT_EQ(loader.LoadXMLFromDll(name, "1", "XML", xml), 0) << module;
        EXPECT_STREQ(xml, "before");
    }
    EXPECT_TRUE(loader.LoadImageFromExe("4711", "NOTHING")->IsNull());
    EXPECT_EQ(traces.Take(),
              std::vector<std::string>{
                  "CResLoader::LoadImageFromResource: failed to load image(id-4711, type:NOTHING)"});
}
