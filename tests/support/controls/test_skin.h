#pragma once

#include <map>
#include <string>

#include <qvui/skin/skin_manager.h>

namespace qvui::test {

/// What a test adds to the package that every test has; each text stands inside the set's element.
struct SkinAdditions {
    std::string colors;
    std::string fonts;
    std::string images;
    std::string textStyles;
    std::string frameStyles;
    std::string controlStyles;
    std::string strings;                       // in every language
    std::string templates;                     // "window" elements
    std::map<std::string, std::string> files;  // further files of the package, by name; an image's file_name
                                               // is File("name")
};

/// The application, initialised with a small skin package in files, for the scope of this object.
///
/// Languages "English" and "Deutsch" (string "greeting": Hello, Hallo); skins "light" and "dark", which
/// differ in the colour "paper" (white, black) and in the image "strip". Colours red, green, blue, white,
/// black, grey; fonts "text" (the default) and "bold"; text styles "normal" (left, top, single line; black,
/// hover blue, select green, disable grey) and "centre"; frame styles "red", "blue" and "framed" (blue with a
/// 2-pixel red border); control styles "blue_button" and "cs_v_scrollbar", "cs_h_scrollbar" (10 pixels thick,
/// thumb image "thumb"). Images of plain colours, each with its size: "strip" 4 icons of 20x20 (red, green,
/// blue, grey; in the dark skin grey, blue, green, red), "strip2" 2 icons of 20x10 (red, green), "dot" 8x8
/// (blue), "thumb" 4 icons of 10x10 (grey), "expander" 2 icons of 8x8 (red, green).
class TestSkin {
public:
    explicit TestSkin(const SkinAdditions& additions = {});
    TestSkin(const TestSkin&) = delete;
    TestSkin& operator=(const TestSkin&) = delete;
    ~TestSkin();

    DUI::IDUISkinMgr& Manager() const;
    /// The name by which skin documents call a file of the package.
    static std::string File(const std::string& name);
    /// The file's path on the disk.
    static std::string Path(const std::string& name);
};

/// Writes a picture of `count` icons side by side, each of one colour (0xAARRGGBB, straight alpha).
void WriteStrip(const std::string& path, int width, int height, std::initializer_list<unsigned> colors);

}  // namespace qvui::test
