// Fonts and cursors.

#include <map>

#include "skin/character_set.h"
#include "skin/code_page.h"
#include "skin/skin_test.h"

using DUI::CCursorObject;
using DUI::CFontObject;
using DUI::CRefPtr;

class FontsAndCursors : public SkinTest {};

TEST_F(FontsAndCursors, ANewFontIsTheSystemsInItsCharacterSet)
{
    LOGFONTA system{};
    ASSERT_NE(GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof system, &system), 0);
    const CRefPtr<CFontObject> font(new CFontObject);
    EXPECT_EQ(font->IsNull(), 1);
    EXPECT_EQ(font->GetFont(), nullptr);
    EXPECT_EQ(font->GetHeight(), system.lfHeight);
    EXPECT_EQ(font->GetWeight(), system.lfWeight);
    EXPECT_STREQ(font->GetFaceName(), system.lfFaceName);
    ASSERT_EQ(font->CreateFontA(), 1);
    LOGFONTA made{};
    ASSERT_NE(GetObjectA(font->GetFont(), sizeof made, &made), 0);
    EXPECT_EQ(made.lfCharSet, DUI::CharacterSetOf(GetSystemDefaultLangID()));
}

TEST_F(FontsAndCursors, CharacterSetsByLanguage)
{
    const std::map<LANGID, int> characterSets{{1041, 128}, {1028, 136}, {3076, 136}, {4100, 136}, {2052, 134},
                                              {1042, 130}, {2066, 130}, {1033, 0},   {0, 0},      {5124, 0}};
    for (const auto& [language, characterSet] : characterSets)
        EXPECT_EQ(DUI::CharacterSetOf(language), characterSet) << language;
}

TEST_F(FontsAndCursors, SettersChangeTheNextFont)
{
    const CRefPtr<CFontObject> font(new CFontObject);
    ASSERT_EQ(font->CreateFontA(), 1);
    const HFONT before = font->GetFont();
    font->SetHeight(-20);
    font->SetWeight(700);
    font->SetItalic(1);
    font->SetUnderline(2);
    font->SetStrikeout(0x101);
    font->SetFaceName("DejaVu Sans");
    EXPECT_EQ(font->GetFont(), before);
    ASSERT_EQ(font->CreateFontA(), 1);
    LOGFONTA made{};
    ASSERT_NE(GetObjectA(font->GetFont(), sizeof made, &made), 0);
    EXPECT_TRUE(made.lfHeight == -20 && made.lfWeight == 700 && made.lfItalic && made.lfUnderline);
    EXPECT_STREQ(made.lfFaceName, "DejaVu Sans");
    EXPECT_EQ(font->GetStrikeout(), 1) << "a byte";
}

TEST_F(FontsAndCursors, FaceNamesAreCutAfterThirtyBytes)
{
    const CRefPtr<CFontObject> font(new CFontObject);
    font->SetFaceName(std::string(40, 'x').c_str());
    EXPECT_EQ(font->GetFaceName(), std::string(30, 'x'));
    font->SetFaceName(nullptr);
    EXPECT_EQ(font->GetFaceName(), std::string(30, 'x')) << "null is ignored";
    // A character that would be cut in two is left out.
    const Table<UINT, std::string, std::size_t> cases{{65001, "\xE4\xB8\xAD", 28}, {936, "\xD6\xD0", 29}};
    for (const auto& [codePage, character, kept] : cases)
        for (const UINT page : CodePages())
            if (page == codePage) {
                const CodePage system(page);
                std::string name(1, 'x');
                while (name.size() < 40)
                    name += character;
                font->SetFaceName(name.c_str());
                EXPECT_EQ(font->GetFaceName(), name.substr(0, kept)) << page;
            }
}

TEST_F(FontsAndCursors, CursorsComeFromFiles)
{
    folder.WriteCursor("a.cur");
    folder.WriteCursor("b.cur");
    folder.Write("broken.cur", "no cursor");
    const CRefPtr<CCursorObject> cursor(new CCursorObject);
    EXPECT_EQ(cursor->IsNull(), 1);
    EXPECT_EQ(cursor->CreateFromFile(SkinFolder::LibraryPath("a.cur").c_str()), 1);
    EXPECT_EQ(cursor->IsNull(), 0);
    EXPECT_NE(cursor->GetCursor(), nullptr);
    const qvui::test::LiveObjects one = qvui::test::LiveObjects::Count();
    EXPECT_EQ(cursor->CreateFromFile(SkinFolder::LibraryPath("b.cur").c_str()), 1);
    EXPECT_EQ(one.Leaked(qvui::test::LiveObjects::Count()), "") << "the first one is gone";
    for (const char* file : {"broken.cur", "missing.cur"}) {
        EXPECT_EQ(cursor->CreateFromFile(SkinFolder::LibraryPath(file).c_str()), 0) << file;
        EXPECT_EQ(cursor->GetCursor(), nullptr) << file;
    }
    EXPECT_EQ(cursor->CreateFromResource(GetModuleHandleA(nullptr), "4711"), 0);
    EXPECT_EQ(cursor->CreateFromResource(GetModuleHandleA(nullptr), nullptr), 0);
}

TEST_F(FontsAndCursors, TellOfTheirLife)
{
    const auto number = [](HANDLE handle) {
        return std::to_string(static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(handle)));
    };
    folder.WriteCursor("a.cur");
    traces.KeepObjects();
    std::vector<std::string> expected{"CCursorObject::CCursorObject()"};
    {
        const CRefPtr<CFontObject> font(new CFontObject);
        const CRefPtr<CCursorObject> cursor(new CCursorObject);
        font->CreateFontA();
        cursor->CreateFromFile(SkinFolder::LibraryPath("a.cur").c_str());
        expected.push_back("CCursorObject::~CCursorObject(): m_hCursor(" + number(cursor->GetCursor()) + ")");
        expected.push_back("CFontObject::~CFontObject(): m_hFont(" + number(font->GetFont()) + ")");
    }
    EXPECT_EQ(traces.Take(), expected);
}
