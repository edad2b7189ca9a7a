// The skin manager: whole packages, switches, observers and added skins.

#include <functional>

#include "skin/skin_test.h"

using DUI::CDUISkinMgr;

namespace {

struct SkinObserver : DUI::IDUISkinObserver {
    explicit SkinObserver(std::function<void()> action = nullptr) : call(std::move(action)) {}
    void OnSkinUIDataChanged() override
    {
        ++calls;
        if (call)
            call();
    }
    std::function<void()> call;
    int calls = 0;
};

struct LanguageObserver : DUI::IDUILanguageObserver {
    explicit LanguageObserver(std::function<void()> action = nullptr) : call(std::move(action)) {}
    void OnLanguageTypeChanged(const CString& oldType, const CString& newType) override
    {
        changes.push_back(std::string(oldType.View()) + ">" + newType.GetString());
        if (call)
            call();
    }
    std::function<void()> call;
    std::vector<std::string> changes;
};

std::string Set(const std::string& set, const std::string& entries)
{
    return "<" + set + ">" + entries + "</" + set.substr(0, set.find(' ')) + ">";
}

std::string Entry(const std::string& tag, const std::string& name, const std::string& file)
{
    return "<" + tag + " name=\"" + name + "\" config_type=\"file\" file_name=\"skin-test/" + file + "\"/>";
}

}  // namespace

// A package of two languages and two skins in the test's folder.
class SkinManager : public SkinTest {
protected:
    SkinManager()
    {
        folder.WriteStrip("light.png", {0xFFFFFFFF});
        folder.WriteStrip("dark.png", {0xFF000000});
        folder.Write("english.xml",
                     R"(<s><string id="hello">Hello</string><string id="only">English</string></s>)");
        folder.Write("german.xml", R"(<s><string id="hello">Hallo</string></s>)");
        folder.Write("light.xml", Resources("light.png", "#FFFFFFFF"));
        folder.Write("dark.xml", Resources("dark.png", "#FF000000"));
        folder.Write("light-styles.xml", Styles("DT_LEFT"));
        folder.Write("dark-styles.xml", Styles("DT_CENTER"));
        folder.Write("templates.xml",
                     R"(<t><menu_template><menu name="m"/></menu_template><window_template>)"
                     R"(<window name="w" v="1"/></window_template><plugin_set><plugin name="p"/>)"
                     R"(</plugin_set></t>)");
        folder.Write("more.xml", R"(<t><window_template><window name="w" v="2"/></window_template></t>)");
    }

    static std::string Resources(const std::string& picture, const std::string& color)
    {
        return "<r><color_set><color name=\"paper\" value=\"" + color + "\"/></color_set>" +
               "<font_set><font name=\"text\" height=\"-13\" default=\"true\"/></font_set><image_set>" +
               Entry("image", "bk", picture) + "</image_set></r>";
    }
    static std::string Styles(const std::string& format)
    {
        return "<s><text_style_set><text_style name=\"t\" format=\"" + format +
               "\" normal_color=\"paper\"/></text_style_set><frame_style_set><frame_style name=\"f\" "
               "back_color=\"paper\" back_image=\"bk\"/></frame_style_set>"
               "<control_style_set><control_style name=\"c\"/></control_style_set></s>";
    }
    static std::string Languages(const std::string& attributes = "default=\"English\"")
    {
        return Set("language_set " + attributes,
                   Entry("language", "English", "english.xml") + Entry("language", "German", "german.xml"));
    }
    static std::string Skins(const std::string& name = "light")
    {
        return Set("skin_set default=\"" + name + "\"",
                   Entry("skin", "light", "light.xml") + Entry("skin", "dark", "dark.xml"));
    }
    static std::string StyleFiles()
    {
        return Set("style_set",
                   Entry("style", "light", "light-styles.xml") + Entry("style", "dark", "dark-styles.xml"));
    }
    static std::string Templates()
    {
        return Set("template_set", Entry("template", "1", "templates.xml") +
                                       Entry("template", "2", "missing.xml") +
                                       Entry("template", "3", "more.xml"));
    }
    static CString Package() { return Document(Languages() + Skins() + StyleFiles() + Templates()); }

    // Initialises with the package, whose second template file is missing.
    void Initialize()
    {
        EXPECT_EQ(manager.InitializeSkin(Package()), 1);
        EXPECT_EQ(traces.Take(), std::vector<std::string>{"CResLoader::LoadXMLFromFile: can not open file(" +
                                                          SkinFolder::LibraryPath("missing.xml") + ")"});
    }
    std::string String(const char* id)
    {
        CString text;
        return manager.GetStringText(id, text) ? text.GetString() : "(none)";
    }

    CDUISkinMgr manager;
};

TEST_F(SkinManager, LoadsEverythingThatTheEntryDocumentNames)
{
    Initialize();
    EXPECT_STREQ(manager.GetLanguageType(), "English");
    EXPECT_STREQ(manager.GetSkinTyle(), "light");
    EXPECT_EQ(String("hello"), "Hello");
    EXPECT_EQ(String("#own"), "own");
    EXPECT_EQ(IconColor(manager.GetImage("bk", 1)), 0xFFFFFFFFU);
    EXPECT_NE(manager.GetImage("bk", 0), manager.GetImage("bk", 1));
    EXPECT_EQ(Bits(manager.GetColor("paper")), 0xFFFFFFFFU);
    EXPECT_EQ(manager.GetRawColor("#FF102030"), 0x302010U);
    EXPECT_EQ(manager.GetFont("text", 1)->GetHeight(), -13);
    EXPECT_EQ(manager.GetTextStyle("t")->GetTextFormat(), 0U);
    EXPECT_EQ(Bits(manager.GetFrameBK("f")->GetBKColor()), 0xFFFFFFFFU);
    CString xml;
    EXPECT_EQ(manager.GetWindowTemplate("w", xml), 1);
    EXPECT_STREQ(xml, R"(<window name="w" v="2"/>)") << "the later template file";
    EXPECT_EQ(
        manager.GetMenuTemplate("m", xml) + manager.GetPlugin("p", xml) + manager.GetControlStyle("c", xml),
        3);
    EXPECT_EQ(manager.GetImage("none", 1), nullptr);
    EXPECT_TRUE(manager.GetCursor("none", 1).IsNull());
    EXPECT_TRUE(manager.GetFrameBK("none").IsNull());
    EXPECT_EQ(manager.GetRawColor("none"), 0U);
    EXPECT_EQ(manager.GetWindowTemplate("none", xml), 0);
}

TEST_F(SkinManager, SaysWhichStepFailed)
{
    struct Case {
        const char* name;
        std::string content;
        const char* failure;
        std::string file;  // that the loader complains about
    };
    const std::string notRead = "CResLoader::LoadXMLFromFile: can not open file(";
    const std::vector<Case> cases{
        {"ill-formed", "<a>", "ParseEntryXML failed", ""},
        {"no languages", Skins() + StyleFiles(), "Load Language failed", ""},
        {"a default that is no language", Languages("default=\"French\"") + Skins() + StyleFiles(),
         "Load Language failed", ""},
        {"a language without a file",
         Set("language_set", Entry("language", "x", "no.xml")) + Skins() + StyleFiles(),
         "Load Language failed", "no.xml"},
        {"no skins", Languages() + StyleFiles(), "Load Resource failed", ""},
        {"skins before languages", Skins() + Languages() + StyleFiles(), "Load Resource failed", ""},
        {"a default that is no skin", Languages() + Skins("blue") + StyleFiles(), "Load Resource failed", ""},
        {"a default in other letter case", Languages() + Skins("Light") + StyleFiles(),
         "Load Resource failed", ""},
        {"a skin without a file",
         Languages() + Set("skin_set default=\"x\"", Entry("skin", "x", "no.xml")) + StyleFiles(),
         "Load Resource failed", "no.xml"},
        {"no styles", Languages() + Skins(), "LoadStyleResource failed", ""},
        {"styles of another skin",
         Languages() + Skins() + Set("style_set", Entry("style", "dark", "dark-styles.xml")),
         "LoadStyleResource failed", ""},
    };
    for (const Case& c : cases) {
        CDUISkinMgr fresh;
        EXPECT_EQ(fresh.InitializeSkin(Document(c.content)), 0) << c.name;
        std::vector<std::string> lines;
        if (!c.file.empty())
            lines.push_back(notRead + SkinFolder::LibraryPath(c.file) + ")");
        lines.push_back("CDUISkinMgr::InitializeSkin, " + std::string(c.failure));
        EXPECT_EQ(traces.Take(), lines) << c.name;
    }
}

TEST_F(SkinManager, ReadsTheFirstSetOfAKindAndTheLastEntryOfAName)
{
    EXPECT_EQ(manager.InitializeSkin(Document(
                  Languages("") + "<skin_set default=\"light\">" + Entry("skin", "light", "dark.xml") +
                  Entry("skin", "light", "light.xml") + "<other/></skin_set>" + Skins("dark") + StyleFiles() +
                  "<skin_package file=\"a.zip\"/>")),
              1);
    EXPECT_STREQ(manager.GetLanguageType(), "English") << "the first one when there is no default";
    EXPECT_STREQ(manager.GetSkinTyle(), "light");
    EXPECT_EQ(Bits(manager.GetColor("paper")), 0xFFFFFFFFU);

    CDUISkinMgr other;
    EXPECT_EQ(other.InitializeSkin(
                  Document(Set("language_set default=\"x\"",
                               Entry("language", "X", "english.xml") + Entry("language", "x", "german.xml")) +
                           Skins() + StyleFiles())),
              1);
    EXPECT_STREQ(other.GetLanguageType(), "X") << "of two that differ in letter case the first";
}

TEST_F(SkinManager, ComesBackInTheSameLanguage)
{
    Initialize();
    EXPECT_EQ(manager.SetLanguageType("german"), 1);
    const auto image = manager.GetImage("bk", 1);
    manager.UninitializeSkin();
    EXPECT_EQ(String("hello"), "(none)");
    EXPECT_TRUE(manager.GetColor("paper").IsEmpty());
    EXPECT_EQ(manager.GetImage("bk", 1), nullptr);
    EXPECT_TRUE(manager.GetFrameBK("f").IsNull());
    EXPECT_EQ(IconColor(image), 0xFFFFFFFFU);
    EXPECT_STREQ(manager.GetLanguageType(), "german");
    EXPECT_EQ(manager.SetLanguageType("English"), 0) << "there are no languages now";
    Initialize();
    EXPECT_STREQ(manager.GetLanguageType(), "German") << "as the entry spells it";
    EXPECT_EQ(String("hello"), "Hallo");
}

// --- languages
// ----------------------------------------------------------------------------------------------

TEST_F(SkinManager, SwitchesTheLanguageAndTells)
{
    Initialize();
    LanguageObserver observer;
    manager.AddLanguageObserver(&observer);
    struct Case {
        const char* type;
        int result;
        const char* language;
        const char* hello;
        const char* only;
    };
    const std::vector<Case> cases{
        {"English", 0, "English", "Hello", "English"}, {"ENGLISH", 0, "English", "Hello", "English"},
        {"French", 0, "English", "Hello", "English"},  {"", 0, "English", "Hello", "English"},
        {"GERMAN", 1, "GERMAN", "Hallo", "(none)"},    {"german", 0, "GERMAN", "Hallo", "(none)"},
        {"English", 1, "English", "Hello", "English"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(manager.SetLanguageType(c.type), c.result) << c.type;
        EXPECT_STREQ(manager.GetLanguageType(), c.language) << c.type;
        EXPECT_EQ(String("hello"), c.hello) << c.type;
        EXPECT_EQ(String("only"), c.only) << c.type;
    }
    EXPECT_EQ(observer.changes, (std::vector<std::string>{"English>GERMAN", "GERMAN>English"}));
}

// --- skins
// --------------------------------------------------------------------------------------------------

TEST_F(SkinManager, SwitchesTheSkinInPlaceAndTells)
{
    Initialize();
    const auto image = manager.GetImage("bk", 1);
    const auto text = manager.GetTextStyle("t");
    const auto frame = manager.GetFrameBK("f");
    std::vector<std::uint32_t> seen;
    SkinObserver observer([&] { seen.push_back(Bits(frame->GetBKColor())); });
    manager.AddSkinObserver(&observer);
    manager.SetSkinTyle("light");
    EXPECT_EQ(observer.calls, 0) << "it is the current one";
    manager.SetSkinTyle("dark");
    EXPECT_STREQ(manager.GetSkinTyle(), "dark");
    EXPECT_EQ(seen, std::vector<std::uint32_t>{0xFF000000}) << "everything is new when observers hear of it";
    EXPECT_EQ(IconColor(image), 0xFF000000U);
    EXPECT_EQ(text->GetTextFormat(), 1U);
    EXPECT_EQ(Bits(text->GetNormalColor()), 0xFF000000U);
    EXPECT_EQ(manager.GetTextStyle("t").GetPtr(), text.GetPtr());
    EXPECT_EQ(manager.GetFrameBK("f").GetPtr(), frame.GetPtr());
    EXPECT_EQ(manager.GetImage("bk", 1), image);
}

TEST_F(SkinManager, AnUnknownSkinReloadsTheCurrentOne)
{
    Initialize();
    SkinObserver observer;
    manager.AddSkinObserver(&observer);
    folder.Write("light.xml", Resources("light.png", "#FF123456"));
    manager.SetSkinTyle("Dark");
    EXPECT_STREQ(manager.GetSkinTyle(), "light");
    EXPECT_EQ(Bits(manager.GetColor("paper")), 0xFF123456U);
    EXPECT_EQ(Bits(manager.GetFrameBK("f")->GetBKColor()), 0xFF123456U);
    EXPECT_EQ(observer.calls, 1);
}

TEST_F(SkinManager, ASkinWithoutStylesKeepsThoseOfTheOther)
{
    EXPECT_EQ(manager.InitializeSkin(Document(Languages() + Skins() +
                                              Set("style_set", Entry("style", "light", "light-styles.xml")))),
              1);
    manager.SetSkinTyle("dark");
    EXPECT_EQ(manager.GetTextStyle("t")->GetTextFormat(), 0U);
    EXPECT_EQ(Bits(manager.GetTextStyle("t")->GetNormalColor()), 0xFF000000U)
        << "with the new skin's colours";
}

TEST_F(SkinManager, ABrokenSkinLeavesWhatWasThere)
{
    Initialize();
    const auto image = manager.GetImage("bk", 1);
    folder.Write("dark.xml", "<r><color_set>");
    folder.Write("dark-styles.xml", "");
    SkinObserver observer;
    manager.AddSkinObserver(&observer);
    manager.SetSkinTyle("dark");
    EXPECT_STREQ(manager.GetSkinTyle(), "dark");
    EXPECT_EQ(observer.calls, 1);
    EXPECT_EQ(IconColor(image), 0xFFFFFFFFU);
    EXPECT_EQ(traces.Take().size(), 2U);
}

TEST_F(SkinManager, AThousandSwitchesLeaveNothingBehind)
{
    Initialize();
    const auto image = manager.GetImage("bk", 1);
    const auto pixels = [&] {
        const CImage& raw = *image->GetRawImage();
        std::string bytes;
        for (int y = 0; y < raw.GetHeight(); ++y)
            bytes.append(static_cast<const char*>(raw.GetPixelAddress(0, y)),
                         static_cast<std::size_t>(raw.GetWidth() * raw.GetBPP() / 8));
        return bytes;
    };
    const std::string before = pixels();
    manager.SetSkinTyle("dark");
    const std::string dark = pixels();
    EXPECT_NE(dark, before);
    manager.SetSkinTyle("light");
    const std::size_t counted = DUI::CRefCountBase::GetLiveCount();
    const qvui::test::LiveObjects objects = qvui::test::LiveObjects::Count();
    for (int i = 0; i < 500; ++i) {
        manager.SetSkinTyle("dark");
        ASSERT_EQ(pixels(), dark);
        manager.SetSkinTyle("light");
    }
    EXPECT_EQ(pixels(), before);
    EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), counted);
    EXPECT_EQ(objects.Leaked(qvui::test::LiveObjects::Count()), "");
}

// --- observers
// ----------------------------------------------------------------------------------------------

TEST_F(SkinManager, ObserversComeOnceInOrder)
{
    Initialize();
    std::string order;
    SkinObserver first([&] { order += '1'; });
    SkinObserver second([&] { order += '2'; });
    EXPECT_EQ(manager.AddSkinObserver(&first), 1);
    EXPECT_EQ(manager.AddSkinObserver(&second), 1);
    EXPECT_EQ(manager.AddSkinObserver(&first), 1);
    EXPECT_EQ(manager.AddSkinObserver(nullptr), 1);
    manager.SetSkinTyle("dark");
    EXPECT_EQ(order, "12");
    EXPECT_EQ(manager.RemoveSkinObserver(&first), 1);
    EXPECT_EQ(manager.RemoveSkinObserver(&first), 1);
    manager.SetSkinTyle("light");
    EXPECT_EQ(order, "122");
    LanguageObserver language;
    manager.AddLanguageObserver(&language);
    EXPECT_EQ(manager.AddLanguageObserver(&language), 1);
    manager.SetLanguageType("German");
    EXPECT_EQ(language.changes.size(), 1U);
    EXPECT_EQ(manager.RemoveLanguageObserver(&language), 1);
    manager.SetLanguageType("English");
    EXPECT_EQ(language.changes.size(), 1U);
}

TEST_F(SkinManager, ObserversMayComeAndGoDuringTheCall)
{
    Initialize();
    SkinObserver late;
    auto gone = std::make_unique<SkinObserver>();
    SkinObserver self;
    self.call = [&] {
        manager.RemoveSkinObserver(&self);
        manager.RemoveSkinObserver(gone.get());
        gone.reset();
        manager.AddSkinObserver(&late);
    };
    SkinObserver last;
    manager.AddSkinObserver(&self);
    manager.AddSkinObserver(gone.get());
    manager.AddSkinObserver(&last);
    manager.SetSkinTyle("dark");
    EXPECT_EQ(self.calls, 1);
    EXPECT_EQ(last.calls, 1);
    EXPECT_EQ(late.calls, 0) << "not part of this round";
    manager.SetSkinTyle("light");
    EXPECT_EQ(self.calls, 1);
    EXPECT_EQ(last.calls, 2);
    EXPECT_EQ(late.calls, 1);

    LanguageObserver leaving;
    LanguageObserver staying;
    leaving.call = [&] { manager.RemoveLanguageObserver(&leaving); };
    manager.AddLanguageObserver(&leaving);
    manager.AddLanguageObserver(&staying);
    manager.SetLanguageType("German");
    manager.SetLanguageType("English");
    EXPECT_EQ(leaving.changes.size(), 1U);
    EXPECT_EQ(staying.changes.size(), 2U);
}

TEST_F(SkinManager, ASwitchInsideASwitchEndsWithTheInnerOne)
{
    Initialize();
    SkinObserver back;
    back.call = [&] { manager.SetSkinTyle("light"); };
    SkinObserver last;
    manager.AddSkinObserver(&back);
    manager.AddSkinObserver(&last);
    manager.SetSkinTyle("dark");
    EXPECT_STREQ(manager.GetSkinTyle(), "light");
    EXPECT_EQ(back.calls, 2);
    EXPECT_EQ(last.calls, 2);
    EXPECT_EQ(Bits(manager.GetColor("paper")), 0xFFFFFFFFU);
}

// --- added skins
// --------------------------------------------------------------------------------------------

TEST_F(SkinManager, AddedSkinsAnswerWhatTheMainOneLacks)
{
    Initialize();
    folder.Write("extra-en.xml", R"(<s><string id="extra">More</string><string id="hello">no</string></s>)");
    folder.Write("extra-de.xml", R"(<s><string id="extra">Mehr</string></s>)");
    const auto resources = [&](const char* color) {
        return "<r><color_set><color name=\"extra\" value=\"" + std::string(color) +
               "\"/><color name=\"paper\" value=\"#FF999999\"/></color_set><cursor_set>" +
               Entry("cursor", "hand", "hand.cur") + "</cursor_set><image_set>" +
               Entry("image", "extra", "dark.png") + "</image_set></r>";
    };
    folder.WriteCursor("hand.cur");
    folder.Write("extra-light.xml", resources("#FF111111"));
    folder.Write("extra-dark.xml", resources("#FF222222"));
    folder.Write(
        "extra-styles.xml",
        R"(<s><text_style_set><text_style name="extra" format="DT_RIGHT"/></text_style_set><frame_style_set>)"
        R"(<frame_style name="extra"/></frame_style_set><control_style_set><control_style name="extra"/>)"
        R"(</control_style_set></s>)");
    folder.Write(
        "extra-templates.xml",
        R"(<t><menu_template><menu name="extra"/></menu_template><window_template><window name="extra"/>)"
        R"(</window_template><plugin_set><plugin name="extra"/></plugin_set></t>)");
    const CString entry =
        Document(Set("language_set default=\"English\"", Entry("language", "English", "extra-en.xml") +
                                                             Entry("language", "German", "extra-de.xml")) +
                 Set("skin_set default=\"dark\"",
                     Entry("skin", "light", "extra-light.xml") + Entry("skin", "dark", "extra-dark.xml")) +
                 Set("style_set", Entry("style", "light", "extra-styles.xml") +
                                      Entry("style", "dark", "extra-styles.xml")) +
                 Set("template_set", Entry("template", "", "extra-templates.xml")));
    EXPECT_EQ(String("extra"), "(none)");
    EXPECT_EQ(manager.AddNewSkin(entry), 1);
    EXPECT_EQ(manager.AddNewSkin(entry), 0) << "it is there";
    EXPECT_EQ(String("extra"), "More");
    EXPECT_EQ(String("hello"), "Hello") << "the main one comes first";
    EXPECT_EQ(Bits(manager.GetColor("extra")), 0xFF111111U) << "it follows the main skin at once";
    EXPECT_EQ(manager.GetRawColor("extra"), 0x111111U);
    EXPECT_EQ(Bits(manager.GetColor("paper")), 0xFFFFFFFFU);
    EXPECT_EQ(IconColor(manager.GetImage("extra", 1)), 0xFF000000U);
    EXPECT_EQ(manager.GetImage("extra", 1), manager.GetImage("extra", 1));
    EXPECT_NE(manager.GetImage("extra", 0), manager.GetImage("extra", 1));
    EXPECT_FALSE(manager.GetCursor("hand", 1).IsNull());
    EXPECT_FALSE(manager.GetFrameBK("extra").IsNull());
    EXPECT_EQ(manager.GetTextStyle("extra").GetPtr(), manager.GetTextStyle("").GetPtr())
        << "the main one's default is an answer";
    CString xml;
    EXPECT_EQ(manager.GetWindowTemplate("extra", xml) + manager.GetMenuTemplate("extra", xml) +
                  manager.GetControlStyle("extra", xml) + manager.GetPlugin("extra", xml),
              4);
    manager.SetLanguageType("German");
    manager.SetSkinTyle("dark");
    EXPECT_EQ(String("extra"), "Mehr");
    EXPECT_EQ(Bits(manager.GetColor("extra")), 0xFF222222U);
    manager.RemoveSkin("unknown");
    EXPECT_EQ(String("extra"), "Mehr");
    manager.RemoveSkin(entry);
    EXPECT_EQ(String("extra"), "(none)");
    EXPECT_EQ(manager.GetImage("extra", 1), nullptr);
    EXPECT_EQ(manager.AddNewSkin(entry), 1) << "it may come again";
}

TEST_F(SkinManager, AnAddedSkinThatFailsIsStillThere)
{
    Initialize();
    EXPECT_EQ(manager.AddNewSkin("<broken>"), 1);
    EXPECT_EQ(manager.AddNewSkin("<broken>"), 0);
    EXPECT_EQ(traces.Take(), std::vector<std::string>{"CDUISkinMgr::InitializeSkin, ParseEntryXML failed"});
    EXPECT_EQ(manager.GetImage("none", 1), nullptr);
    manager.SetSkinTyle("dark");
    manager.SetLanguageType("German");
    EXPECT_EQ(String("hello"), "Hallo");
}
