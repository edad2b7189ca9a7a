// The skin manager: whole packages, switches, observers and added skins.

#include <functional>

#include "skin/skin_test.h"

using DUI::CDUISkinMgr;

namespace {

struct SkinObserver final : DUI::IDUISkinObserver {
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

std::string Languages(const std::string& attributes = "default=\"English\"", const std::string& prefix = "")
{
    return Set("language_set " + attributes, Entry("language", "English", prefix + "english.xml") +
                                                 Entry("language", "German", prefix + "german.xml"));
}

std::string Skins(const std::string& name = "light", const std::string& prefix = "")
{
    return Set("skin_set default=\"" + name + "\"",
               Entry("skin", "light", prefix + "light.xml") + Entry("skin", "dark", prefix + "dark.xml"));
}

std::string StyleFiles(const std::string& prefix = "")
{
    return Set("style_set", Entry("style", "light", prefix + "light-styles.xml") +
                                Entry("style", "dark", prefix + "dark-styles.xml"));
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
        folder.Write("light-styles.xml", Styles("t", "DT_LEFT"));
        folder.Write("dark-styles.xml", Styles("t", "DT_CENTER"));
        folder.Write("templates.xml", Templates("m"));
        folder.Write("more.xml", R"(<t><window_template><window name="m" v="2"/></window_template></t>)");
    }

    static std::string Resources(const std::string& picture, const std::string& color,
                                 const std::string& name = "bk")
    {
        return "<r><color_set><color name=\"paper\" value=\"" + color + "\"/><color name=\"" + name +
               "\" value=\"" + color + "\"/></color_set><cursor_set>" + Entry("cursor", name, "hand.cur") +
               "</cursor_set><font_set><font name=\"text\" height=\"-13\" default=\"true\"/></font_set>" +
               Set("image_set", Entry("image", name, picture)) + "</r>";
    }
    static std::string Styles(const std::string& name, const std::string& format)
    {
        return "<s><text_style_set><text_style name=\"" + name + "\" format=\"" + format +
               "\" normal_color=\"paper\"/></text_style_set><frame_style_set><frame_style name=\"" + name +
               "\" back_color=\"paper\" back_image=\"bk\"/></frame_style_set>" +
               "<control_style_set><control_style name=\"" + name + "\"/></control_style_set></s>";
    }
    static std::string Templates(const std::string& name)
    {
        return "<t><menu_template><menu name=\"" + name + "\"/></menu_template><window_template>" +
               "<window name=\"" + name + "\"/></window_template><plugin_set><plugin name=\"" + name +
               "\"/></plugin_set></t>";
    }

    // A package whose second template file is missing.
    static CString Package()
    {
        const std::string templates = Set("template_set", Entry("template", "1", "templates.xml") +
                                                              Entry("template", "2", "missing.xml") +
                                                              Entry("template", "3", "more.xml"));
        return Document(Languages() + Skins() + StyleFiles() + templates);
    }
    void Initialize()
    {
        EXPECT_EQ(manager.InitializeSkin(Package()), 1);
        EXPECT_EQ(traces.Take(), std::vector<std::string>{NotRead("missing.xml")});
    }
    static std::string NotRead(const std::string& file)
    {
        return "CResLoader::LoadXMLFromFile: can not open file(" + SkinFolder::LibraryPath(file) + ")";
    }
    std::string String(const char* id)
    {
        CString text;
        return manager.GetStringText(id, text) ? text.GetString() : "(none)";
    }
    // How many kinds of templates, control styles included, have one of that name.
    int TemplatesNamed(const char* name)
    {
        CString xml;
        return manager.GetMenuTemplate(name, xml) + manager.GetPlugin(name, xml) +
               manager.GetControlStyle(name, xml) + manager.GetWindowTemplate(name, xml);
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
    EXPECT_EQ(Bits(manager.GetFrameBK("t")->GetBKColor()), 0xFFFFFFFFU);
    CString xml;
    EXPECT_EQ(manager.GetWindowTemplate("m", xml), 1);
    EXPECT_STREQ(xml, R"(<window name="m" v="2"/>)") << "the later template file";
    EXPECT_EQ(TemplatesNamed("m") + TemplatesNamed("t"), 4);
    EXPECT_EQ(manager.GetImage("none", 1), nullptr);
    EXPECT_TRUE(manager.GetCursor("none", 1).IsNull());
    EXPECT_TRUE(manager.GetFrameBK("none").IsNull());
    EXPECT_EQ(manager.GetRawColor("none"), 0U);
    EXPECT_EQ(TemplatesNamed("none"), 0);
}

TEST_F(SkinManager, SaysWhichStepFailed)
{
    const std::string missing = Set("language_set", Entry("language", "x", "no.xml"));
    const std::string noSkin = Set("skin_set default=\"x\"", Entry("skin", "x", "no.xml"));
    const std::string darkStyles = Set("style_set", Entry("style", "dark", "dark-styles.xml"));
    const char* const entry = "ParseEntryXML failed";
    const char* const language = "Load Language failed";
    const char* const resource = "Load Resource failed";
    const char* const style = "LoadStyleResource failed";
    // The content, the step that fails, and the file that the loader complains about.
    const Table<const char*, std::string, const char*, std::string> cases{
        {"ill-formed", "<a>", entry, ""},
        {"no languages", Skins() + StyleFiles(), language, ""},
        {"no such language", Languages("default=\"French\"") + Skins() + StyleFiles(), language, ""},
        {"a language without a file", missing + Skins() + StyleFiles(), language, "no.xml"},
        {"no skins", Languages() + StyleFiles(), resource, ""},
        {"skins before languages", Skins() + Languages() + StyleFiles(), resource, ""},
        {"no such skin", Languages() + Skins("blue") + StyleFiles(), resource, ""},
        {"a skin in other letter case", Languages() + Skins("Light") + StyleFiles(), resource, ""},
        {"a skin without a file", Languages() + noSkin + StyleFiles(), resource, "no.xml"},
        {"no styles", Languages() + Skins(), style, ""},
        {"styles of another skin", Languages() + Skins() + darkStyles, style, ""},
    };
    for (const auto& [name, content, failure, file] : cases) {
        CDUISkinMgr fresh;
        EXPECT_EQ(fresh.InitializeSkin(Document(content)), 0) << name;
        std::vector<std::string> lines;
        if (!file.empty())
            lines.push_back(NotRead(file));
        lines.push_back("CDUISkinMgr::InitializeSkin, " + std::string(failure));
        EXPECT_EQ(traces.Take(), lines) << name;
    }
}

TEST_F(SkinManager, ReadsTheFirstSetOfAKindAndTheLastEntryOfAName)
{
    const std::string twice = Entry("skin", "light", "dark.xml") + Entry("skin", "light", "light.xml");
    EXPECT_EQ(manager.InitializeSkin(
                  Document(Languages("") + Set("skin_set default=\"light\"", twice + "<other/>") +
                           Skins("dark") + StyleFiles() + "<skin_package file=\"a.zip\"/>")),
              1);
    EXPECT_STREQ(manager.GetLanguageType(), "English") << "the first one when there is no default";
    EXPECT_STREQ(manager.GetSkinTyle(), "light");
    EXPECT_EQ(Bits(manager.GetColor("paper")), 0xFFFFFFFFU);

    const std::string alike = Entry("language", "X", "english.xml") + Entry("language", "x", "german.xml");
    CDUISkinMgr other;
    EXPECT_EQ(
        other.InitializeSkin(Document(Set("language_set default=\"x\"", alike) + Skins() + StyleFiles())), 1);
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
    EXPECT_TRUE(manager.GetFrameBK("t").IsNull());
    EXPECT_EQ(IconColor(image), 0xFFFFFFFFU);
    EXPECT_STREQ(manager.GetLanguageType(), "german");
    EXPECT_EQ(manager.SetLanguageType("English"), 0) << "there are no languages now";
    Initialize();
    EXPECT_STREQ(manager.GetLanguageType(), "German") << "as the entry spells it";
    EXPECT_EQ(String("hello"), "Hallo");
}

TEST_F(SkinManager, SwitchesTheLanguageAndTells)
{
    Initialize();
    LanguageObserver observer;
    EXPECT_EQ(manager.AddLanguageObserver(&observer), 1);
    EXPECT_EQ(manager.AddLanguageObserver(&observer), 1) << "told once all the same";
    // The type asked for, whether it is taken, the type then, and two strings.
    const Table<const char*, int, const char*, const char*, const char*> cases{
        {"English", 0, "English", "Hello", "English"}, {"ENGLISH", 0, "English", "Hello", "English"},
        {"French", 0, "English", "Hello", "English"},  {"", 0, "English", "Hello", "English"},
        {"GERMAN", 1, "GERMAN", "Hallo", "(none)"},    {"german", 0, "GERMAN", "Hallo", "(none)"},
        {"English", 1, "English", "Hello", "English"},
    };
    for (const auto& [type, result, language, hello, only] : cases) {
        EXPECT_EQ(manager.SetLanguageType(type), result) << type;
        EXPECT_STREQ(manager.GetLanguageType(), language) << type;
        EXPECT_EQ(String("hello"), hello) << type;
        EXPECT_EQ(String("only"), only) << type;
    }
    EXPECT_EQ(manager.RemoveLanguageObserver(&observer), 1);
    manager.SetLanguageType("German");
    EXPECT_EQ(observer.changes, (std::vector<std::string>{"English>GERMAN", "GERMAN>English"}));
}

TEST_F(SkinManager, SwitchesTheSkinInPlaceAndTells)
{
    Initialize();
    const auto image = manager.GetImage("bk", 1);
    const auto text = manager.GetTextStyle("t");
    const auto frame = manager.GetFrameBK("t");
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
    EXPECT_EQ(manager.GetFrameBK("t").GetPtr(), frame.GetPtr());
    EXPECT_EQ(manager.GetImage("bk", 1), image);

    folder.Write("dark.xml", Resources("dark.png", "#FF123456"));
    manager.SetSkinTyle("Light");
    EXPECT_STREQ(manager.GetSkinTyle(), "dark") << "an unknown one reloads the current one";
    EXPECT_EQ(Bits(frame->GetBKColor()), 0xFF123456U);
    EXPECT_EQ(observer.calls, 2);
}

TEST_F(SkinManager, ABrokenOrMissingPartLeavesWhatWasThere)
{
    const std::string lightAlone = Set("style_set", Entry("style", "light", "light-styles.xml"));
    EXPECT_EQ(manager.InitializeSkin(Document(Languages() + Skins() + lightAlone)), 1);
    manager.SetSkinTyle("dark");
    EXPECT_EQ(manager.GetTextStyle("t")->GetTextFormat(), 0U) << "a skin without styles has the other's";
    EXPECT_EQ(Bits(manager.GetTextStyle("t")->GetNormalColor()), 0xFF000000U) << "in the new colours";

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
    EXPECT_EQ(traces.Take(), (std::vector<std::string>{NotRead("dark.xml"), NotRead("dark-styles.xml")}));
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

TEST_F(SkinManager, ObserversComeOnceInOrder)
{
    Initialize();
    std::string order;
    SkinObserver first([&] { order += '1'; });
    SkinObserver second([&] { order += '2'; });
    for (SkinObserver* observer : {&first, &second, &first, static_cast<SkinObserver*>(nullptr)})
        EXPECT_EQ(manager.AddSkinObserver(observer), 1);
    manager.SetSkinTyle("dark");
    EXPECT_EQ(order, "12");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(manager.RemoveSkinObserver(&first), 1);
    manager.SetSkinTyle("light");
    EXPECT_EQ(order, "122");
}

TEST_F(SkinManager, ObserversMayComeAndGoDuringTheCall)
{
    Initialize();
    SkinObserver late;
    SkinObserver removed;
    auto gone = std::make_unique<SkinObserver>();
    SkinObserver self;
    self.call = [&] {
        manager.RemoveSkinObserver(&self);
        manager.RemoveSkinObserver(&removed);
        manager.RemoveSkinObserver(gone.get());
        gone.reset();
        manager.AddSkinObserver(&late);
    };
    SkinObserver last;
    for (SkinObserver* observer : {&self, gone.get(), &removed, &last})
        manager.AddSkinObserver(observer);
    manager.SetSkinTyle("dark");
    EXPECT_EQ(self.calls, 1);
    EXPECT_EQ(last.calls, 1);
    EXPECT_EQ(late.calls, 0) << "not part of this round";
    EXPECT_EQ(removed.calls, 1) << "part of this round";
    manager.SetSkinTyle("light");
    EXPECT_EQ(removed.calls, 1);
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

TEST_F(SkinManager, MayEndDuringTheCall)
{
    auto ending = std::make_unique<CDUISkinMgr>();
    ending->InitializeSkin(Package());
    LanguageObserver switching;
    LanguageObserver lastOfLanguage;
    SkinObserver end([&] { ending.reset(); });
    SkinObserver lastOfSkin;
    switching.call = [&] { ending->SetSkinTyle("dark"); };
    ending->AddLanguageObserver(&switching);
    ending->AddLanguageObserver(&lastOfLanguage);
    ending->AddSkinObserver(&end);
    ending->AddSkinObserver(&lastOfSkin);
    EXPECT_EQ(ending->SetLanguageType("German"), 1);
    traces.Take();
    EXPECT_EQ(end.calls, 1);
    EXPECT_EQ(lastOfSkin.calls, 0) << "the end of the manager ends both rounds";
    EXPECT_TRUE(lastOfLanguage.changes.empty());
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

TEST_F(SkinManager, AddedSkinsAnswerWhatTheMainOneLacks)
{
    Initialize();
    folder.WriteCursor("hand.cur");
    folder.Write("x-english.xml", R"(<s><string id="extra">More</string><string id="hello">no</string></s>)");
    folder.Write("x-german.xml", R"(<s><string id="extra">Mehr</string></s>)");
    folder.Write("x-light.xml", Resources("dark.png", "#FF111111", "extra"));
    folder.Write("x-dark.xml", Resources("dark.png", "#FF222222", "extra"));
    folder.Write("x-light-styles.xml", Styles("extra", "DT_RIGHT"));
    folder.Write("x-dark-styles.xml", Styles("extra", "DT_RIGHT"));
    folder.Write("x-templates.xml", Templates("extra"));
    const CString entry =
        Document(Languages("default=\"English\"", "x-") + Skins("dark", "x-") + StyleFiles("x-") +
                 Set("template_set", Entry("template", "", "x-templates.xml")));
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
    EXPECT_FALSE(manager.GetCursor("extra", 1).IsNull());
    EXPECT_FALSE(manager.GetFrameBK("extra").IsNull());
    EXPECT_EQ(manager.GetTextStyle("extra").GetPtr(), manager.GetTextStyle("").GetPtr())
        << "the main one's default is an answer";
    EXPECT_EQ(TemplatesNamed("extra"), 4);
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
