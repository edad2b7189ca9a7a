// A small package cut off at every byte, and with every byte changed: nothing crashes, hangs or leaks, a
// document that was cut changes nothing, and the good package loads afterwards as if nothing had happened.

#include <functional>
#include <sstream>

#include "skin/skin_test.h"

using DUI::CResMgr;

namespace {

struct Part {
    const char* name;
    std::string text;
    int (CResMgr::*parse)(const CString&);
};

const std::vector<Part>& Parts()
{
    static const std::vector<Part> parts{
        {"strings", R"(<?xml version="1.0" encoding="utf-8"?><s><string id="a">1 &lt; 2</string>
<string id="b"><![CDATA[<b>]]></string><!-- end --></s>)",
         &CResMgr::ParseAllString},
        {"resources",
         R"x(<r><color_set><color name="c" value="rgb(1,2,3)"/></color_set><cursor_set><cursor name="h"
config_type="file" file_name="skin-test/h.cur"/></cursor_set><font_set><font name="f" facename="#DejaVu Sans"
height="-12" weight="700" default="true"/></font_set><image_set><image name="i" config_type="file"
file_name="skin-test/i.png" count="2" drawstyle="squard" corner="2,2"/></image_set></r>)x",
         &CResMgr::ParseDUIResource},
        {"styles", R"(<s><text_style_set><text_style name="t" format="DT_CENTER" font="f" normal_color="c"/>
</text_style_set><frame_style_set><frame_style name="f" back_color="c,#FF00FF00,c" back_sep="0.25" back_image="i"
border_color="c" border_rect="1,2,3,4" border_round="5,6"/></frame_style_set><control_style_set>
<control_style name="s"/></control_style_set></s>)",
         &CResMgr::ParseStyleResource},
        {"templates",
         R"(<t><menu_template><menu name="m"/></menu_template><window_template><window name="w"><b/></window>
</window_template><plugin_set><plugin name="p"/></plugin_set></t>)",
         &CResMgr::ParseTemplateStyle},
    };
    return parts;
}

// Everything that can be asked of a manager that knows the package, in one line.
std::string Describe(CResMgr& manager)
{
    std::ostringstream line;
    CString text;
    for (const char* id : {"a", "b"})
        line << (manager.GetString(id, text) ? text.GetString() : "-") << ";";
    for (const auto get : {&CResMgr::GetMenuTemplate, &CResMgr::GetWindowTemplate, &CResMgr::GetPlugin,
                           &CResMgr::GetControlStyle})
        for (const char* name : {"m", "w", "p", "s"})
            if ((manager.*get)(name, text))
                line << text.GetString() << ";";
    const auto font = manager.GetFont("f", 0);
    const auto cursor = manager.GetCursor("h", 0);
    line << Bits(manager.GetColor("c")) << ";" << (font.IsNull() ? 0 : font->GetHeight()) << ";"
         << IconColor(manager.GetImage("i", 1)) << ";" << (cursor.IsNull() ? -1 : cursor->IsNull()) << ";"
         << manager.GetTextStyle("t")->GetTextFormat() << ";";
    if (const auto frame = manager.GetFrameBK("f"); !frame.IsNull())
        line << Bits(frame->GetFrameColor()) << "," << frame->GetFrameBorder().bottom;
    return line.str();
}

}  // namespace

class BrokenPackage : public SkinTest {
protected:
    BrokenPackage()
    {
        folder.WriteStrip("i.png", {0xFFFF0000, 0xFF00FF00});
        folder.WriteCursor("h.cur");
    }

    static void LoadGood(CResMgr& manager)
    {
        for (const Part& part : Parts())
            EXPECT_EQ((manager.*part.parse)(part.text.c_str()), 1) << part.name;
    }
};

TEST_F(BrokenPackage, CutDocumentsChangeNothing)
{
    CResMgr manager;
    LoadGood(manager);
    const std::string good = Describe(manager);
    for (const Part& part : Parts())
        for (std::size_t length = 0; length < part.text.size(); ++length)
            ASSERT_EQ((manager.*part.parse)(part.text.substr(0, length).c_str()), 0)
                << part.name << " " << length;
    EXPECT_EQ(Describe(manager), good);
}

TEST_F(BrokenPackage, ChangedDocumentsAreOverwrittenByGoodOnes)
{
    CResMgr untouched;
    LoadGood(untouched);
    const std::string good = Describe(untouched);
    for (const Part& part : Parts())
        for (const char other : {'<', '"', '&', ' ', '\xFF', '\x01'}) {
            // One manager takes all the changes of a kind, so that its tables fill with whatever they leave.
            CResMgr manager;
            for (std::size_t at = 0; at < part.text.size(); ++at) {
                std::string changed = part.text;
                changed[at] = other;
                (manager.*part.parse)(changed.c_str());
                if (at % 16 == 0)
                    Describe(manager);
            }
            manager.ClearAllString();
            manager.ClearDUIResource();
            manager.ClearTemplate();
            LoadGood(manager);
            EXPECT_EQ(Describe(manager), good) << part.name << " " << static_cast<int>(other);
        }
    traces.Take();
}

// The entry document, with the files that it names.
TEST_F(BrokenPackage, BrokenEntryDocumentsLeaveAGoodOneAlone)
{
    const auto set = [](const std::string& tag, const std::string& file) {
        return "<" + tag + "_set default=\"x\"><" + tag +
               " name=\"x\" config_type=\"file\" file_name=\"skin-test/" + file + "\"/></" + tag + "_set>";
    };
    const std::string entry = "<p>" + set("language", Parts()[0].name) + set("skin", Parts()[1].name) +
                              set("style", Parts()[2].name) + set("template", Parts()[3].name) + "</p>";
    for (const Part& part : Parts())
        folder.Write(part.name, part.text);
    DUI::CDUISkinMgr manager;
    for (std::size_t length = 0; length < entry.size(); ++length)
        ASSERT_EQ(manager.InitializeSkin(entry.substr(0, length).c_str()), 0) << length;
    for (std::size_t at = 0; at < entry.size(); ++at) {
        std::string changed = entry;
        changed[at] = "<\"& \xFF"[at % 5];
        manager.InitializeSkin(changed.c_str());
        manager.UninitializeSkin();
    }
    EXPECT_EQ(manager.InitializeSkin(entry.c_str()), 1);
    CString text;
    EXPECT_EQ(manager.GetStringText("a", text), 1);
    EXPECT_STREQ(text, "1 < 2");
    traces.Take();
}

TEST_F(BrokenPackage, BrokenFilesAreNoPicturesAndNoCursors)
{
    const std::string picture = folder.Read("i.png");
    const std::string cursor = folder.Read("h.cur");
    CResMgr manager;
    LoadGood(manager);
    const auto image = manager.GetImage("i", 1);
    const auto forEachCut = [&](const std::string& bytes, const char* file, std::size_t step,
                                const std::function<void(std::size_t)>& look) {
        for (std::size_t length = 0; length < bytes.size(); length += step) {
            folder.Write(file, bytes.substr(0, length));
            look(length);
        }
        for (std::size_t at = 0; at < bytes.size(); at += step) {
            std::string changed = bytes;
            changed[at] = static_cast<char>(changed[at] ^ 0x81);
            folder.Write(file, changed);
            look(bytes.size());
        }
        folder.Write(file, bytes);
    };
    forEachCut(picture, "i.png", 1, [&](std::size_t length) {
        (manager.*Parts()[1].parse)(Parts()[1].text.c_str());
        // A decoder may do without the last checksum, which covers nothing.
        EXPECT_TRUE(length + 4 >= picture.size() || image->IsNull()) << "a picture of " << length << " bytes";
    });
    forEachCut(cursor, "h.cur", 1, [&](std::size_t) { manager.GetCursor("h", 0); });
    (manager.*Parts()[1].parse)(Parts()[1].text.c_str());
    EXPECT_EQ(IconColor(image, 1), 0xFF00FF00U);
    EXPECT_EQ(manager.GetCursor("h", 0)->IsNull(), 0);
    traces.Take();
}
