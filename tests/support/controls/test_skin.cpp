#include "support/controls/test_skin.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include <qvui/framework/app.h>
#include <qvui/platform/cimage.h>
#include <qvui/skin/resource_loader.h>

namespace qvui::test {
namespace {

// Relative to the test program's directory, where the library looks for files.
constexpr const char* kFolder = "test-skin";

std::string ProgramDirectory()
{
    char path[MAX_PATH]{};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string directory(path);
    directory.erase(directory.find_last_of('\\'));
    for (char& character : directory)
        if (character == '\\')
            character = '/';
    return directory;
}

void WriteFile(const std::string& name, const std::string& text)
{
    std::ofstream(TestSkin::Path(name), std::ios::binary) << text;
}

std::string Document(const std::string& content)
{
    return "<document>" + content + "</document>";
}

std::string Set(const char* name, const std::string& content)
{
    return std::string("<") + name + ">" + content + "</" + name + ">";
}

std::string Entry(const char* tag, const char* name, const char* file)
{
    return std::string("<") + tag + " name=\"" + name + "\" config_type=\"file\" file_name=\"" +
           TestSkin::File(file) + "\"/>";
}

std::string Image(const char* name, const char* file, const char* more)
{
    return std::string("<image name=\"") + name + "\" config_type=\"file\" file_name=\"" +
           TestSkin::File(file) + "\" " + more + "/>";
}

std::string Resources(const SkinAdditions& additions, const char* paper, const char* strip)
{
    const std::string colors =
        std::string("<color name=\"paper\" value=\"") + paper + "\"/>" +
        "<color name=\"red\" value=\"#FFFF0000\"/><color name=\"green\" value=\"#FF00FF00\"/>"
        "<color name=\"blue\" value=\"#FF0000FF\"/><color name=\"white\" value=\"#FFFFFFFF\"/>"
        "<color name=\"black\" value=\"#FF000000\"/><color name=\"grey\" value=\"#FF808080\"/>";
    const char* const fonts =
        "<font name=\"text\" facename=\"#DejaVu Sans\" height=\"-13\" default=\"true\"/>"
        "<font name=\"bold\" facename=\"#DejaVu Sans\" height=\"-13\" weight=\"700\"/>";
    const std::string images = Image("strip", strip, "count=\"4\"") +
                               Image("strip2", "strip2.png", "count=\"2\"") + Image("dot", "dot.png", "") +
                               Image("thumb", "thumb.png", "count=\"4\"") +
                               Image("expander", "expander.png", "count=\"2\"");
    return Document(Set("color_set", colors + additions.colors) + Set("font_set", fonts + additions.fonts) +
                    Set("image_set", images + additions.images));
}

std::string Styles(const SkinAdditions& additions)
{
    constexpr const char* kColors =
        "font=\"text\" normal_color=\"black\" hover_color=\"blue\" select_color=\"green\" "
        "disable_color=\"grey\"/>";
    const std::string textStyles =
        std::string("<text_style name=\"normal\" format=\"DT_SINGLELINE\" default=\"true\" ") + kColors +
        "<text_style name=\"centre\" format=\"DT_CENTER|DT_VCENTER|DT_SINGLELINE\" " + kColors;
    const char* const frames =
        "<frame_style name=\"red\" back_color=\"red\"/><frame_style name=\"blue\" back_color=\"blue\"/>"
        "<frame_style name=\"framed\" back_color=\"blue\" border_color=\"red\" border_rect=\"2,2,2,2\"/>";
    const char* const controls =
        "<control_style name=\"blue_button\" back_image=\"strip\" text_style=\"centre\"/>"
        "<control_style name=\"cs_v_scrollbar\" thumb_image=\"thumb\" width=\"10\"/>"
        "<control_style name=\"cs_h_scrollbar\" thumb_image=\"thumb\" height=\"10\"/>";
    return Document(Set("text_style_set", textStyles + additions.textStyles) +
                    Set("frame_style_set", frames + additions.frameStyles) +
                    Set("control_style_set", controls + additions.controlStyles));
}

void WriteImages()
{
    constexpr unsigned kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kGrey = 0xFF808080;
    WriteStrip(TestSkin::Path("strip.png"), 20, 20, {kRed, kGreen, kBlue, kGrey});
    WriteStrip(TestSkin::Path("strip_dark.png"), 20, 20, {kGrey, kBlue, kGreen, kRed});
    WriteStrip(TestSkin::Path("strip2.png"), 20, 10, {kRed, kGreen});
    WriteStrip(TestSkin::Path("dot.png"), 8, 8, {kBlue});
    WriteStrip(TestSkin::Path("thumb.png"), 10, 10, {kGrey, kGrey, kGrey, kGrey});
    WriteStrip(TestSkin::Path("expander.png"), 8, 8, {kRed, kGreen});
}

}  // namespace

// One test program's package does not meet another's: they run from different names.
std::string TestSkin::File(const std::string& name)
{
    static const std::string folder = [] {
        char path[MAX_PATH]{};
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        const std::string program(path);
        return std::string(kFolder) + "-" + program.substr(program.find_last_of('\\') + 1);
    }();
    return folder + "/" + name;
}

std::string TestSkin::Path(const std::string& name)
{
    return ProgramDirectory() + "/" + File(name);
}

void WriteStrip(const std::string& path, int width, int height, std::initializer_list<unsigned> colors)
{
    CImage image;
    ASSERT_TRUE(image.Create(width * static_cast<int>(colors.size()), height, 32));
    image.SetHasAlphaChannel(TRUE);
    int left = 0;
    for (const unsigned color : colors) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                *static_cast<unsigned*>(image.GetPixelAddress(left + x, y)) = color;
        left += width;
    }
    ASSERT_EQ(image.Save(path.c_str()), S_OK) << path;
}

TestSkin::TestSkin(const SkinAdditions& additions)
{
    std::filesystem::create_directories(Path(""));
    static const bool hasImages = (WriteImages(), true);
    (void)hasImages;
    for (const auto& [name, content] : additions.files)
        WriteFile(name, content);
    const auto strings = [&additions](const char* greeting) {
        return Document(std::string("<string id=\"greeting\">") + greeting + "</string>" + additions.strings);
    };
    WriteFile("english.xml", strings("Hello"));
    WriteFile("deutsch.xml", strings("Hallo"));
    WriteFile("light.xml", Resources(additions, "#FFFFFFFF", "strip.png"));
    WriteFile("dark.xml", Resources(additions, "#FF000000", "strip_dark.png"));
    WriteFile("styles.xml", Styles(additions));
    WriteFile("templates.xml", Document(Set("window_template", additions.templates)));
    const std::string entry =
        "<skin><language_set default=\"English\">" + Entry("language", "English", "english.xml") +
        Entry("language", "Deutsch", "deutsch.xml") + "</language_set><skin_set default=\"light\">" +
        Entry("skin", "light", "light.xml") + Entry("skin", "dark", "dark.xml") + "</skin_set><style_set>" +
        Entry("style", "light", "styles.xml") + Entry("style", "dark", "styles.xml") +
        "</style_set><template_set>" + Entry("template", "all", "templates.xml") + "</template_set></skin>";
    EXPECT_TRUE(DUIGetAppInstance()->Init(entry.c_str(), TRUE));
}

TestSkin::~TestSkin()
{
    DUIGetAppInstance()->Term();
}

DUI::IDUISkinMgr& TestSkin::Manager() const
{
    return *DUIGetAppInstance()->GetSkinMgr();
}

}  // namespace qvui::test
