#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/app.h>
#include <qvui/framework/control_builder.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

/// Writes down what a build reports.
class Follower : public IDUIControlBuilderCallback {
public:
    CRefPtr<IDUIControl> OnBuilderNewControl(const CString& tag) override
    {
        lines.push_back(std::string("new ") + tag.GetString());
        return tag == "own" ? new Probe : nullptr;
    }
    void OnBuilderControlCreated(CRefPtr<IDUIControl> root) override
    {
        lines.push_back(std::string("created ") + root->GetName().GetString());
    }
    void OnBuilderWindowAttribute(const CString& name, const CString& value) override
    {
        lines.push_back(std::string(name) + "=" + value.GetString());
    }
    BOOL OnAddChildControl(CRefPtr<IDUIControl> parent, CRefPtr<IDUIControl> child) override
    {
        lines.push_back(std::string(parent->GetName()) + " <- " + child->GetName().GetString());
        return IDUIControlBuilderCallback::OnAddChildControl(parent, child);
    }

    std::vector<std::string> lines;
};

class Builder : public ControlTest {
protected:
    Builder() { Probe::Register(); }

    Follower follower;
};

TEST_F(Builder, ReportsWindowAttributesThenLinksThenTheRoot)
{
    const CRefPtr<IDUIControl> root = CDUIControlBuilder(&follower).CreateFromXML(
        "<window name='w' frame_style='red'><probe name='root'><probe name='a'><probe name='inner'/></probe>"
        "<strange name='x'><probe name='lost'/></strange><own name='b'/></probe><probe "
        "name='second'/></window>");
    ASSERT_FALSE(root.IsNull());
    EXPECT_EQ(follower.lines,
              (std::vector<std::string>{"name=w", "frame_style=red", "root <- a", "a <- inner", "new strange",
                                        "new own", "root <- b", "created root"}));
    EXPECT_EQ(root->GetControlCount(), 2);
}

TEST_F(Builder, GivesNullForWhatItCannotBuild)
{
    const char* const broken[] = {"",
                                  "no xml",
                                  "<window><probe></window>",
                                  "<other><probe/></other>",
                                  "<window/>",
                                  "<window>text</window>",
                                  "<window><strange/></window>"};
    for (const char* const xml : broken)
        EXPECT_TRUE(CDUIControlBuilder(&follower).CreateFromXML(xml).IsNull()) << xml;
    EXPECT_TRUE(CDUIControlBuilder(nullptr).CreateFromResource("missing").IsNull());
    DUIGetAppInstance()->Term();
    EXPECT_TRUE(CDUIControlBuilder(nullptr).CreateFromXML("<window><probe/></window>").IsNull());
}

TEST_F(Builder, SetsAttributesBeforeTheControlHasAParent)
{
    SkinAdditions additions;
    additions.templates = "<window name='main'><probe name='root'><probe text='greeting'/></probe></window>";
    UseSkin(additions);
    Probe::Register();
    const CRefPtr<IDUIControl> root = CDUIControlBuilder(nullptr).CreateFromResource("main");
    ASSERT_FALSE(root.IsNull());
    EXPECT_EQ(root->GetControlByIndex(0)->GetText(), "Hello");
}

TEST_F(Builder, LeavesOutWhatIsNestedTooDeep)
{
    constexpr int kLevels = 10000;
    std::string xml = "<window>";
    for (int i = 0; i < kLevels; ++i)
        xml += "<probe>";
    for (int i = 0; i < kLevels; ++i)
        xml += "</probe>";
    xml += "</window>";
    traces.Expect("nested deeper");
    const CRefPtr<IDUIControl> root = CDUIControlBuilder(nullptr).CreateFromXML(xml.c_str());
    ASSERT_FALSE(root.IsNull());
    int depth = 1;
    for (const IDUIControl* control = root.GetPtr(); (control = control->GetControlByIndex(0)) != nullptr;)
        ++depth;
    EXPECT_EQ(depth, 1000);
    ControlWindow window({50, 50}, root);
    window.Paint();
}

TEST_F(Builder, KnowsEveryBuiltInTagLetterForLetter)
{
    IDUIControlFactory& factory = *DUIGetAppInstance()->GetControlFactory();
    for (const BuiltinControl& builtin : BuiltinControls())
        EXPECT_FALSE(factory.NewControl(builtin.tag).IsNull()) << builtin.tag;
    EXPECT_TRUE(factory.NewControl("Button").IsNull());
}

TEST_F(Builder, NeverReplacesARegisteredTag)
{
    IDUIControlFactory& factory = *DUIGetAppInstance()->GetControlFactory();
    const ControlCreator creator = []() -> IDUIControl* { return new Probe("mine"); };
    EXPECT_FALSE(factory.RegisterControl("", creator));
    EXPECT_FALSE(factory.RegisterControl("mine", nullptr));
    EXPECT_TRUE(factory.RegisterControl("canvas", creator));
    EXPECT_NE(factory.NewControl("canvas")->GetName(), "mine");
    EXPECT_TRUE(factory.RegisterControl("mine", creator));
    EXPECT_EQ(factory.NewControl("mine")->GetName(), "mine");
    EXPECT_TRUE(factory.UnregisterControl("mine"));
    EXPECT_TRUE(factory.UnregisterControl("mine"));
    EXPECT_TRUE(factory.NewControl("mine").IsNull());
    EXPECT_TRUE(factory.RegisterControl("nothing", []() -> IDUIControl* { return nullptr; }));
    EXPECT_TRUE(factory.NewControl("nothing").IsNull());
}

}  // namespace
}  // namespace qvui::test
