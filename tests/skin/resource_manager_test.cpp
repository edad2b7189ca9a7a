// Strings, colours, templates, and the records with the objects made from them.

#include <climits>
#include <map>

#include "skin/code_page.h"
#include "skin/skin_test.h"

using DUI::CARGB;
using DUI::CDUIImageListPtr;
using DUI::CFontObject;
using DUI::CRefPtr;
using DUI::CResMgr;

class ResourceManager : public SkinTest {
protected:
    std::string String(const char* id)
    {
        CString text("-");
        if (manager.GetString(id, text))
            return text.GetString();
        EXPECT_STREQ(text, "-") << "untouched";
        return "(none)";
    }

    // Loads one set of the resource document.
    void Load(const std::string& set, const std::string& entries)
    {
        EXPECT_EQ(manager.ParseDUIResource(Document("<" + set + ">" + entries + "</" + set + ">")), 1);
    }
    void LoadImage(const std::string& file, const std::string& attributes = "")
    {
        Load("image_set", R"(<image name="a" config_type="FILE" file_name="skin-test\)" + file + "\" " +
                              attributes + "/>");
    }
    void LoadFonts(const std::string& fonts) { Load("font_set", fonts); }
    CRefPtr<CFontObject> Font(const std::string& attributes)
    {
        LoadFonts("<font name=\"f\" " + attributes + "/>");
        return manager.GetFont("f", 0);
    }

    CResMgr manager;
};

TEST_F(ResourceManager, StringsKeepTheFirstOfAnId)
{
    EXPECT_EQ(manager.ParseAllString(Document(R"(
        <string id="a">first</string><string id="a">second</string><string id="A">capital</string>
        <string id="#x">never</string>
        <string id="">no id</string><string>no id</string><string id="empty"></string><string id="none"/>
        <strings id="other">x</strings><string id="b">&lt;b&gt; <![CDATA[ x ]]></string>
        <string id="c"><![CDATA[1 < 2]]></string><string id="&lt;d&gt;"> d </string>)")),
              1);
    EXPECT_EQ(String("a"), "first");
    EXPECT_EQ(String("A"), "capital");
    for (const char* id : {"", "empty", "none", "other", "B"})
        EXPECT_EQ(String(id), "(none)") << id;
    EXPECT_EQ(String("c"), "1 < 2");
    EXPECT_EQ(String("<d>"), " d ");
    EXPECT_EQ(String("#"), "");
    EXPECT_EQ(String("#x"), "x") << "an id may be its own text";
    EXPECT_EQ(String("##x"), "#x");
    manager.ParseAllString(Document(R"(<string id="a">third</string><string id="e">new</string>)"));
    EXPECT_EQ(String("a"), "first");
    EXPECT_EQ(String("e"), "new");
    manager.ClearAllString();
    EXPECT_EQ(String("a"), "(none)");
}

TEST_F(ResourceManager, TemplatesKeepTheLastOfAName)
{
    EXPECT_EQ(manager.ParseTemplateStyle(Document(
                  R"(<menu_template><menu name="m"><item/></menu><window name="not a menu"/></menu_template>
<menu_template><menu name="m2"/></menu_template>
<window_template><window name="w" caption="1"/><window name="w" caption="2"><b/></window>
</window_template><plugin_set><plugin name="p" file="x"/><plugin>nameless</plugin></plugin_set>)")),
              1);
    CString xml;
    EXPECT_EQ(manager.GetMenuTemplate("m", xml), 1);
    EXPECT_STREQ(xml, R"(<menu name="m"><item/></menu>)");
    EXPECT_EQ(manager.GetMenuTemplate("m2", xml), 1) << "a set may come again";
    EXPECT_EQ(manager.GetWindowTemplate("w", xml), 1);
    EXPECT_STREQ(xml, "<window name=\"w\" caption=\"2\"><b/></window>\n");
    EXPECT_EQ(manager.GetPlugin("p", xml), 1);
    EXPECT_EQ(manager.GetPlugin("", xml), 1) << "an empty name is a name";
    EXPECT_STREQ(xml, "<plugin>nameless</plugin>");
    xml = "before";
    for (const char* name : {"not a menu", "M", "w"})
        EXPECT_EQ(manager.GetMenuTemplate(name, xml), 0) << name;
    EXPECT_EQ(manager.GetWindowTemplate("m", xml), 0);
    EXPECT_STREQ(xml, "before");
    manager.ParseTemplateStyle(
        Document(R"(<window_template><window name="w" caption="3"/></window_template>)"));
    EXPECT_EQ(manager.GetWindowTemplate("w", xml), 1);
    EXPECT_STREQ(xml, R"(<window name="w" caption="3"/>)");
    manager.ClearTemplate();
    EXPECT_EQ(
        manager.GetWindowTemplate("w", xml) + manager.GetMenuTemplate("m", xml) + manager.GetPlugin("p", xml),
        0);
}

TEST_F(ResourceManager, SetsBehindALaterKindAreNotSeen)
{
    manager.ParseDUIResource(Document(R"(
        <unknown/><color_set><color name="a" value="#FF000001"/></color_set><cursor_set/>
        <color_set><color name="lost" value="#FF000002"/></color_set>
        <font_set><font name="f" height="7" default="true"/></font_set>
        <font_set><font name="g" height="8" default="true"/></font_set>)"));
    EXPECT_EQ(Bits(manager.GetColor("a")), 0xFF000001U);
    EXPECT_TRUE(manager.GetColor("lost").IsEmpty());
    EXPECT_EQ(manager.GetDefaultFont()->GetHeight(), 8) << "a kind may have several sets";
    manager.ParseDUIResource(
        Document(R"(<font_set/><color_set><color name="lost" value="#FF000003"/></color_set>)"));
    EXPECT_TRUE(manager.GetColor("lost").IsEmpty());
    manager.ParseTemplateStyle(
        Document(R"(<window_template/><menu_template><menu name="lost"/></menu_template>)"));
    CString xml;
    EXPECT_EQ(manager.GetMenuTemplate("lost", xml), 0);
}

TEST_F(ResourceManager, ColoursAreLiteralsOrNamesOfLiterals)
{
    manager.ParseDUIResource(Document(R"x(<color_set>
        <color name="a" value="#80112233"/><color name="mixed" value="rgb(1,2,3)"/><color name="a2" value="a"/>
        <color name="word" value="red"/><color name="" value="#FF000000"/><color name="none" value=""/>
        <color name="twice" value="#FF000001"/><color name="twice" value="#FF000002"/>
        <color name="kept" value="#FF000003"/><color name="kept" value="nonsense"/></color_set>)x"));
    // clang-format off
    const Table<const char*, int, std::uint32_t> cases{
        {"a", 1, 0x80112233}, {"mixed", 1, 0xFF010203}, {"a2", 0, 0}, {"word", 0, 0}, {"", 0, 0},
        {"none", 0, 0}, {"A", 0, 0}, {"twice", 1, 0xFF000002}, {"kept", 1, 0xFF000003},
        {"#FF445566", 1, 0xFF445566}, {"#445566", 1, 0x445566}, {"RGB(9,8,7)", 1, 0xFF090807},
        {"#zz", 1, 0}, {"#", 0, 0}};
    // clang-format on
    for (const auto& [name, found, expected] : cases) {
        CARGB color(9, 9, 9, 9);
        EXPECT_EQ(manager.GetColor(name, color), found) << name;
        EXPECT_EQ(Bits(color), found ? expected : 0x09090909U) << name;
        EXPECT_EQ(Bits(manager.GetColor(name)), expected) << name;
        CARGB literal;
        const bool isLiteral = (name[0] == '#' && name[1] != '\0') || name[0] == 'R';
        EXPECT_EQ(manager.GetColorFromString(name, literal) != 0, isLiteral) << name;
    }
    manager.ClearDUIResource();
    EXPECT_TRUE(manager.GetColor("a").IsEmpty());
}

TEST_F(ResourceManager, ImageAttributesSayHowItIsDrawn)
{
    // Count, direction, style, corner.
    const Table<const char*, std::vector<int>> cases{
        {R"()", {1, 0, 0, 0, 0}},
        {R"(count="3")", {3, 0, 0, 0, 0}},
        {R"(count="-2")", {1, 0, 0, 0, 0}},
        {R"(count="-4294967294" corner="4294967297,-4294967297")", {1, 0, 0, INT_MAX, INT_MIN}},
        {R"(count="4 icons")", {4, 0, 0, 0, 0}},
        {R"(direction="VERT")", {1, 1, 0, 0, 0}},
        {R"(drawstyle="stretch")", {1, 0, 1, 0, 0}},
        {R"(drawstyle="Stretch_Horz")", {1, 0, 2, 0, 0}},
        {R"(drawstyle="stretch_vert")", {1, 0, 3, 0, 0}},
        {R"(drawstyle="SQUARD")", {1, 0, 4, 0, 0}},
        {R"(drawstyle="tile")", {1, 0, 5, 0, 0}},
        {R"(drawstyle="stretched")", {1, 0, 0, 0, 0}},
        {R"(corner="4,6")", {1, 0, 0, 4, 6}},
        {R"(corner=" 4, 6 ")", {1, 0, 0, 4, 6}},
        {R"(corner="4")", {1, 0, 0, 0, 0}},
        {R"(corner="x,6")", {1, 0, 0, 0, 0}},
        {R"(alpha="10" mask_color="#FF00FF")", {1, 0, 0, 0, 0}},
        {R"(count="2" direction="vert" drawstyle="squard" corner="1,2")", {2, 1, 4, 1, 2}},
    };
    folder.WriteStrip("a.png", {0xFFFF0000});
    for (const auto& [attributes, drawing] : cases) {
        LoadImage("a.png", attributes);
        const CDUIImageListPtr list = manager.GetImage("a", 0);
        ASSERT_TRUE(list && !list->IsNull());
        EXPECT_EQ((std::vector<int>{list->GetItemCount(), list->GetImageDirection(), list->GetDrawStyle(),
                                    list->GetCornerWidth(), list->GetCornerHeight()}),
                  drawing)
            << attributes;
    }
}

TEST_F(ResourceManager, ImagesThatCannotBeMade)
{
    manager.ParseDUIResource(Document(R"(<image_set>
        <image name="missing" config_type="file" file_name="no.png" count="4"/>
        <image name="module" config_type="dll" file_name="no.dll" resource_id="1" resource_type="PNG"/>
        <image name="own" config_type="exe" resource_id="7" resource_type="NONE"/>
        <image name="elsewhere" config_type="web" file_name="a.png"/><image name="bare"/>
        <image config_type="file" file_name="nameless.png"/></image_set>)"));
    const CDUIImageListPtr missing = manager.GetImage("missing", 1);
    ASSERT_TRUE(missing);
    EXPECT_TRUE(missing->IsNull());
    EXPECT_EQ(missing->GetItemCount(), 1) << "attributes belong to pictures";
    EXPECT_NE(manager.GetImage("missing", 1), missing) << "tried again";
    EXPECT_EQ(manager.GetImage("module", 1), nullptr);
    EXPECT_TRUE(manager.GetImage("own", 1)->IsNull());
    for (const char* name : {"elsewhere", "bare", ""})
        EXPECT_EQ(manager.GetImage(name, 1), nullptr) << name;
    EXPECT_EQ(traces.Take(),
              (std::vector<std::string>{
                  "CResLoader::LoadImageFromFile: failed to load image(no.png)",
                  "CResLoader::LoadImageFromFile: failed to load image(no.png)",
                  "CResLoader::LoadImageFromResource: failed to load image(id-7, type:NONE)"}));
}

TEST_F(ResourceManager, ReloadingShowsTheNewPictureToAllHolders)
{
    folder.WriteStrip("a.png", {0xFFFF0000, 0xFF000000});
    folder.WriteStrip("b.png", {0xFF000000, 0xFF00FF00});
    LoadImage("a.png", "count=\"2\"");
    const CDUIImageListPtr own = manager.GetImage("a", 0);
    EXPECT_NE(own, manager.GetImage("a", 0));
    LoadImage("b.png", "count=\"2\"");
    EXPECT_EQ(IconColor(own), 0xFFFF0000U) << "a private list stays as it is";
    const CDUIImageListPtr shared = manager.GetImage("a", 1);
    EXPECT_NE(own, shared);
    EXPECT_EQ(manager.GetImage("a", 2), shared);
    EXPECT_EQ(IconColor(shared, 1), 0xFF00FF00U);
    LoadImage("a.png");
    EXPECT_EQ(IconColor(shared), 0xFFFF0000U);
    EXPECT_EQ(manager.GetImage("a", 1), shared);
    LoadImage("no.png");
    EXPECT_TRUE(shared->IsNull());
    EXPECT_EQ(traces.Take().size(), 1U);
    LoadImage("b.png");
    EXPECT_EQ(IconColor(shared, 1), 0xFF00FF00U) << "the list of the record comes back";
    EXPECT_EQ(manager.GetImage("A", 1), nullptr);
    manager.ClearDUIResource();
    EXPECT_EQ(manager.GetImage("a", 1), nullptr);
    EXPECT_EQ(IconColor(shared, 1), 0xFF00FF00U) << "who holds it keeps it";
}

TEST_F(ResourceManager, CursorsAreSharedOrNewAndStayWhenTheSkinChanges)
{
    folder.WriteCursor("a.cur");
    Load("cursor_set", R"(<cursor name="hand" config_type="file" file_name="skin-test\a.cur"/>
        <cursor name="missing" config_type="file" file_name="no.cur"/><cursor name="bare"/>)");
    const auto shared = manager.GetCursor("hand", 1);
    ASSERT_FALSE(shared.IsNull());
    EXPECT_EQ(shared->IsNull(), 0);
    EXPECT_EQ(manager.GetCursor("hand", 1).GetPtr(), shared.GetPtr());
    EXPECT_NE(manager.GetCursor("hand", 0).GetPtr(), shared.GetPtr());
    EXPECT_TRUE(manager.GetCursor("Hand", 1).IsNull());
    EXPECT_TRUE(manager.GetCursor("bare", 1).IsNull());
    const auto missing = manager.GetCursor("missing", 1);
    EXPECT_EQ(missing->IsNull(), 1);
    EXPECT_EQ(manager.GetCursor("missing", 1).GetPtr(), missing.GetPtr())
        << "an object is kept, cursor or not";
    EXPECT_EQ(traces.Take().size(), 1U);
    Load("cursor_set", R"(<cursor name="hand" config_type="file" file_name="no.cur"/>)");
    EXPECT_EQ(manager.GetCursor("hand", 1).GetPtr(), shared.GetPtr());
    EXPECT_EQ(manager.GetCursor("hand", 0)->IsNull(), 1) << "the record is the new skin's";
    EXPECT_EQ(traces.Take().size(), 1U);
}

TEST_F(ResourceManager, FontAttributesDescribeTheFont)
{
    const CRefPtr<CFontObject> plain(new CFontObject);
    const int height = plain->GetHeight();
    const int weight = plain->GetWeight();
    // Height, weight, italic, underline, strikeout.
    const Table<const char*, std::vector<int>> cases{
        {R"()", {height, weight, 0, 0, 0}},
        {R"(height="-12")", {-12, weight, 0, 0, 0}},
        {R"(height="20px")", {20, weight, 0, 0, 0}},
        {R"(height="tall")", {0, weight, 0, 0, 0}},
        {R"(weight="700")", {height, 700, 0, 0, 0}},
        {R"(weight="999")", {height, 999, 0, 0, 0}},
        {R"(weight="1000")", {height, weight, 0, 0, 0}},
        {R"(weight="-1")", {height, weight, 0, 0, 0}},
        {R"(weight="4294967996")", {height, weight, 0, 0, 0}},
        {R"(italic="true" underline="TRUE" strikeout="True")", {height, weight, 1, 1, 1}},
        {R"(italic="1" underline="yes" strikeout="false")", {height, weight, 0, 0, 0}},
    };
    for (const auto& [attributes, description] : cases) {
        const CRefPtr<CFontObject> font = Font(attributes);
        ASSERT_FALSE(font.IsNull() || font->IsNull()) << attributes;
        EXPECT_EQ((std::vector<int>{font->GetHeight(), font->GetWeight(), font->GetItalic(),
                                    font->GetUnderline(), font->GetStrikeout()}),
                  description)
            << attributes;
    }
}

TEST_F(ResourceManager, FaceNamesAreStringIds)
{
    const std::string system = CRefPtr<CFontObject>(new CFontObject)->GetFaceName();
    manager.ParseAllString(Document(R"(<string id="face">DejaVu Serif</string>)"));
    const Table<const char*, std::string> cases{
        {"#DejaVu Sans", "DejaVu Sans"},
        {"face", "DejaVu Serif"},
        {"unknown", system},
        {"", system},
        {"#", ""},
        {"#a name of a face that is much too long", "a name of a face that is much "}};
    for (const auto& [facename, face] : cases)
        EXPECT_EQ(Font("facename=\"" + std::string(facename) + "\"")->GetFaceName(), face) << facename;
}

TEST_F(ResourceManager, TheYaHeiFaceMayBeSwitchedOff)
{
    const std::map<UINT, std::string> names{{65001, "\xE5\xBE\xAE\xE8\xBD\xAF\xE9\x9B\x85\xE9\xBB\x91"},
                                            {936, "\xCE\xA2\xC8\xED\xD1\xC5\xBA\xDA"}};
    const std::string inCodePage936 = names.at(936);
    for (const UINT page : CodePages()) {
        const CodePage system(page);
        const auto known = names.find(page);
        const std::string name = known == names.end() ? inCodePage936 : known->second;
        CResMgr fresh;
        fresh.ParseDUIResource(Document("<font_set><font name=\"f\" facename=\"#" + name +
                                        "\"/><font name=\"other\" facename=\"#" + name + "x\"/></font_set>"));
        EXPECT_EQ(fresh.GetFont("f", 0)->GetFaceName(), name) << page;
        DUI::CYaHeiFlag::m_bEanbleYahi = FALSE;
        EXPECT_STREQ(fresh.GetFont("f", 0)->GetFaceName(), "") << "without a string for it, in " << page;
        fresh.ParseAllString(Document(R"(<string id="ids_def_font_txt_name">Other</string>)"));
        EXPECT_STREQ(fresh.GetFont("f", 0)->GetFaceName(), "Other") << page;
        EXPECT_EQ(fresh.GetFont("other", 0)->GetFaceName(), name + "x") << page;
        DUI::CYaHeiFlag::m_bEanbleYahi = TRUE;
    }
}

TEST_F(ResourceManager, TheDefaultFontIsChosenOnce)
{
    // The height is 0 where there is none yet.
    const Table<const char*, const char*, int> cases{
        {"marked", R"(<font name="b" height="11"/><font name="a" height="12" default="TRUE"/>)", 12},
        {"twice", R"(<font name="a" height="11" default="true"/><font name="b" height="12" default="true"/>)",
         12},
        {"marked without a name", R"(<font height="13" default="true"/>)", 13},
        {"not marked: the first by name, which is not made",
         R"(<font name="b" height="11"/><font name="a"/>)", 0},
        {"marked as false", R"(<font name="a" height="11" default="false"/>)", 0},
    };
    for (const auto& [name, fonts, height] : cases) {
        CResMgr fresh;
        fresh.ParseDUIResource(Document("<font_set>" + std::string(fonts) + "</font_set>"));
        const CRefPtr<CFontObject> font = fresh.GetDefaultFont();
        EXPECT_EQ(font.IsNull() ? 0 : font->GetHeight(), height) << name;
        EXPECT_EQ(fresh.GetFont("", 1).GetPtr(), font.GetPtr()) << name;
        EXPECT_EQ(fresh.GetFont("unknown", 0).GetPtr(), font.GetPtr()) << name;
    }
}

TEST_F(ResourceManager, FontsAreSharedOrNewAndOneIsTheDefault)
{
    LoadFonts(R"(<font name="b" height="11"/><font name="a" height="12"/>)");
    manager.GetFont("b", 1);
    EXPECT_TRUE(manager.GetDefaultFont().IsNull()) << "a comes first";
    const CRefPtr<CFontObject> first = manager.GetFont("a", 1);
    EXPECT_EQ(manager.GetDefaultFont().GetPtr(), first.GetPtr());
    EXPECT_NE(manager.GetFont("a", 0).GetPtr(), first.GetPtr());
    LoadFonts(R"(<font name="a" height="20"/><font name="b" height="13" default="true"/>)");
    EXPECT_EQ(manager.GetFont("a", 1).GetPtr(), first.GetPtr()) << "the record keeps the font made before";
    EXPECT_EQ(first->GetHeight(), 12);
    EXPECT_EQ(manager.GetFont("a", 0)->GetHeight(), 20) << "but is the new skin's";
    EXPECT_EQ(manager.GetDefaultFont()->GetHeight(), 13);
    EXPECT_EQ(manager.GetFont("b", 1).GetPtr(), manager.GetDefaultFont().GetPtr());
    manager.ClearDUIResource();
    const CRefPtr<CFontObject> system = manager.GetDefaultFont();
    ASSERT_FALSE(system.IsNull() || system->IsNull());
    EXPECT_EQ(system->GetHeight(), CRefPtr<CFontObject>(new CFontObject)->GetHeight());
    EXPECT_EQ(manager.GetDefaultFont().GetPtr(), system.GetPtr());
}

TEST_F(ResourceManager, DocumentsComeFromTheSourceThatTheyName)
{
    folder.Write("strings.xml", R"(<s><string id="a">1</string></s>)");
    const Table<const char*, const char*, int> cases{{"file", "strings.xml", 1}, {"File", "strings.xml", 1},
                                                     {"", "strings.xml", 0},     {"web", "strings.xml", 0},
                                                     {"dll", "strings.xml", 0},  {"EXE", "strings.xml", 0}};
    for (const auto& [type, file, result] : cases) {
        DUI::CResourceFileInfo info{"n", type, SkinFolder::Name(file), "1", "XML"};
        CString xml;
        EXPECT_EQ(manager.GetXMLByConfigInfo(info, xml), result) << type;
        EXPECT_EQ(manager.LoadAllString(info), result) << type;
        EXPECT_EQ(manager.LoadDUIResource(info), result) << type;
        EXPECT_EQ(manager.LoadTemplateStyle(info), result) << type;
        EXPECT_EQ(manager.LoadStyleResource(info), result) << type;
    }
    EXPECT_EQ(String("a"), "1");
}

TEST_F(ResourceManager, CopiedRecordsShareTheirObjectAndOwnThemselves)
{
    const CRefPtr<CFontObject> font(new CFontObject);
    const CRefPtr<DUI::CResourceFontData> first(new DUI::CResourceFontData);
    const CRefPtr<DUI::CResourceFontData> second(new DUI::CResourceFontData);
    first->m_pFont = font;
    first->AddRefCount();
    *second.GetPtr() = *first.GetPtr();
    EXPECT_EQ(first->SubRefCount(), 1);
    EXPECT_EQ(second->m_pFont.GetPtr(), font.GetPtr());
    EXPECT_EQ(font->GetRefCount(), 3);
    EXPECT_EQ(second->GetRefCount(), 1) << "its owners are its own";
}
