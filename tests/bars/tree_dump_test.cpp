#include <cstdlib>
#include <fstream>
#include <sstream>
#include <typeinfo>

#include <qvui/bars/builtin_controls.h>
#include <qvui/controls/scrolling/scroll_bar.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"
#include "support/test_files.h"

// A template in, the laid-out tree as text out. tests/dumps/<name>.xml is a "window" element; its "client"
// attribute is the window's size. <name>.txt is the tree; with QVUI_UPDATE_DUMPS=1 in the environment it is
// written instead.

namespace qvui::test {
namespace {

using namespace DUI;

std::string PathOf(const std::string& file)
{
    return TestFile("dumps/" + file);
}

std::string ReadAll(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << path;
    std::stringstream text;
    text << stream.rdbuf();
    std::string result = text.str();
    result.erase(std::remove(result.begin(), result.end(), '\r'), result.end());
    return result;
}

std::string TagOf(const IDUIControl& control)
{
    for (const BuiltinControl& builtin : BuiltinControls()) {
        const CRefPtr<IDUIControl> created = builtin.create();
        const IDUIControl& sample = *created.GetPtr();
        if (typeid(sample) == typeid(control))
            return builtin.tag;
    }
    return "?";
}

void Dump(IDUIControl& control, const std::string& indent, std::string& text)
{
    text += indent + TagOf(control);
    if (!control.GetName().IsEmpty())
        AddWord(text, control.GetName().GetString());
    AddWord(text, Text(control.GetControlRect()));
    if (!control.IsVisible(FALSE))
        text += " hidden";
    if (control.GetStatus() & DUISTATUS_CHECKED)
        text += " checked";
    auto* const base = dynamic_cast<CDUIControlBase*>(&control);
    for (CDUIScrollBarBase* const bar : {static_cast<CDUIScrollBarBase*>(base->GetHorizontalSB()),
                                         static_cast<CDUIScrollBarBase*>(base->GetVerticalSB())})
        if (bar)
            text +=
                bar->IsVisible(FALSE) ? " bar " + Text(bar->GetControlRect()) : std::string(" bar hidden");
    text += "\n";
    // What a bar is made of is its own business.
    if (!control.GetInterface("scrollbar") && !control.GetInterface("track_bar"))
        for (int i = 0; i < control.GetControlCount(); ++i)
            Dump(*control.GetControlByIndex(i), indent + "  ", text);
}

class TreeDump : public ControlTest, public testing::WithParamInterface<const char*> {};

TEST_P(TreeDump, IsTheTreeOfTheTemplate)
{
    const std::string name = GetParam();
    const std::string content = ReadAll(PathOf(name + ".xml"));
    int width = 0;
    int height = 0;
    ASSERT_EQ(std::sscanf(content.c_str(), "<window client=\"%d,%d\"", &width, &height), 2) << content;
    ControlWindow window({width, height}, content);
    std::string text;
    Dump(*window.GetRootControl(), "", text);
    if (std::getenv("QVUI_UPDATE_DUMPS"))
        std::ofstream(PathOf(name + ".txt"), std::ios::binary) << text;
    EXPECT_EQ(text, ReadAll(PathOf(name + ".txt"))) << name;
}

INSTANTIATE_TEST_SUITE_P(All, TreeDump, testing::Values("form", "shell", "scrolling", "bars"),
                         [](const auto& dump) { return std::string(dump.param); });

}  // namespace
}  // namespace qvui::test
