#include "support/controls/scenario.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>
#include <typeinfo>

#include <gtest/gtest.h>

#include <qvui/qvui.h>

#include "support/controls/probe.h"
#include "support/geometry_text.h"
#include "support/transcript.h"

namespace qvui::test {
namespace {

using namespace DUI;

int KeyOf(const std::string& name)
{
    static const std::map<std::string, int> keys{
        {"LEFT", VK_LEFT},     {"RIGHT", VK_RIGHT},       {"UP", VK_UP},
        {"DOWN", VK_DOWN},     {"HOME", VK_HOME},         {"END", VK_END},
        {"PAGEUP", VK_PRIOR},  {"PAGEDOWN", VK_NEXT},     {"SPACE", VK_SPACE},
        {"RETURN", VK_RETURN}, {"ESCAPE", VK_ESCAPE},     {"TAB", VK_TAB},
        {"ADD", VK_ADD},       {"SUBTRACT", VK_SUBTRACT}, {"MULTIPLY", VK_MULTIPLY},
        {"DELETE", VK_DELETE}, {"SHIFT", VK_SHIFT},       {"CONTROL", VK_LCONTROL},
        {"MENU", VK_MENU},     {"CTRL", VK_CONTROL}};
    const auto found = keys.find(name);
    return found == keys.end() ? name.empty() ? 0 : name[0] : found->second;
}

// A message of a text field's window, as the loop gives it: to the filter, then to the window.
void FieldMessage(ControlWindow& host, CDUIEdit& edit, UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG native{edit.m_hWnd, message, wParam, lParam, 0, {}};
    if (!host.PreTranslateMessage(&native))
        SendMessageA(native.hwnd, message, wParam, lParam);
}

void FieldPointer(ControlWindow& host, CDUIEdit& edit, UINT message, POINT point)
{
    FieldMessage(host, edit, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                 MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

CString Number(long long number)
{
    return CString(std::to_string(number).c_str());
}

// Calls an operation of a rich edit with the arguments that follow.
CString AskEdit(CDUIRichEdit& edit, const std::string& operation, std::istream& a)
{
    using Answer = CString (*)(CDUIRichEdit&, std::istream&);
    static const std::map<std::string, Answer> operations{
        {"lines", [](auto& e, auto&) { return Number(e.GetLineCount()); }},
        {"line", [](auto& e, auto& in) { return e.GetLine(ReadNumber(in), 100); }},
        {"index", [](auto& e, auto& in) { return Number(e.LineIndex(ReadNumber(in))); }},
        {"length", [](auto& e, auto& in) { return Number(e.LineLength(ReadNumber(in))); }},
        {"line-of", [](auto& e, auto& in) { return Number(e.LineFromChar(ReadNumber(in))); }},
        {"selected", [](auto& e, auto&) { return e.GetSelText(); }},
        {"type", [](auto& e, auto&) { return Number(e.GetSelectionType()); }},
        {"range",
         [](auto& e, auto& in) {
             const int first = ReadNumber(in);
             return e.GetTextRange(first, ReadNumber(in));
         }},
        {"insert",
         [](auto& e, auto& in) {
             const int at = ReadNumber(in);
             return Number(e.InsertText(at, ReadRest(in).c_str(), TRUE));
         }},
        {"append", [](auto& e, auto& in) { return Number(e.AppendText(ReadRest(in).c_str(), TRUE)); }},
        {"replace",
         [](auto& e, auto& in) {
             e.ReplaceSel(ReadRest(in).c_str(), TRUE);
             return e.GetSelText();
         }},
        {"modified", [](auto& e, auto&) { return Number(e.GetModify()); }},
        {"unmodify",
         [](auto& e, auto&) {
             e.SetModify(FALSE);
             return Number(e.GetModify());
         }},
        {"can",  // undo, redo
         [](auto& e, auto&) { return Number(e.CanUndo()) + Number(e.CanRedo()); }},
        {"forget-undo",
         [](auto& e, auto&) {
             e.EmptyUndoBuffer();
             return Number(e.CanUndo());
         }},
        {"zoom",
         [](auto& e, auto& in) {
             int numerator = ReadNumber(in);
             int denominator = ReadNumber(in);
             e.SetZoom(numerator, denominator);
             e.GetZoom(numerator, denominator);
             return Number(numerator) + "/" + Number(denominator);
         }},
        {"bold",
         [](auto& e, auto&) {
             CHARFORMAT2A format{};
             format.dwMask = CFM_BOLD;
             format.dwEffects = CFE_BOLD;
             e.SetSelectionCharFormat(format);
             format = {};
             e.GetSelectionCharFormat(format);
             return Number((format.dwEffects & CFE_BOLD) != 0);
         }},
        {"centre",
         [](auto& e, auto&) {
             PARAFORMAT2 format{};
             format.dwMask = PFM_ALIGNMENT;
             format.wAlignment = PFA_CENTER;
             e.SetParaFormat(format);
             format = {};
             e.GetParaFormat(format);
             return Number(format.wAlignment);
         }},
    };
    return operations.at(operation)(edit, a);
}

std::string TagOf(const IDUIControl& control)
{
    if (dynamic_cast<const Probe*>(&control))
        return "probe";
    for (const BuiltinControl& builtin : BuiltinControls()) {
        const CRefPtr<IDUIControl> created = builtin.create();
        const IDUIControl& sample = *created.GetPtr();
        if (typeid(sample) == typeid(control))
            return builtin.tag;
    }
    return "?";
}

std::string ThumbText(IDUIControl& bar, int index)
{
    IDUIControl* const thumb = bar.GetControlByIndex(index);
    return thumb ? " thumb " + Text(thumb->GetControlRect()) : "";
}

std::string ScrollText(CDUIScrollBarBase& bar)
{
    SCROLLINFO info{};
    bar.GetScrollBarInfo(&info);
    std::string text = std::to_string(info.nPos) + " of " + std::to_string(info.nMin) + "-" +
                       std::to_string(info.nMax) + " page " + std::to_string(info.nPage) + " " +
                       Text(bar.GetControlRect());
    return text + ThumbText(bar, 1);
}

// What a class has besides the state of every control.
std::string ValuesOf(IDUIControl& control)
{
    std::string text;
    auto* const base = dynamic_cast<CDUIControlBase*>(&control);
    if (auto* const button = dynamic_cast<CDUIButton*>(&control)) {
        static constexpr std::array kLooks{"", " looks hot", " looks pushed", " looks disabled"};
        text += kLooks.at(static_cast<std::size_t>(button->GetImageStatus()));
    }
    if (auto* const bar = dynamic_cast<CDUIScrollBarBase*>(&control))
        return text + " at " + ScrollText(*bar);
    if (auto* const progress = dynamic_cast<CDUIProgressBar*>(&control))
        text += " at " + std::to_string(progress->GetPos());
    if (auto* const track = dynamic_cast<CDUITrackBarBase*>(&control))
        text += " at " + std::to_string(track->GetPos()) + ThumbText(*track, 0);
    if (auto* const split = dynamic_cast<CDUISplitBase*>(&control))
        text += " at " + std::to_string(split->GetSplitPos());
    if (auto* const tabs = dynamic_cast<CDUITabLayout*>(&control))
        text += " page " + std::to_string(tabs->GetSelectIndex());
    if (auto* const list = dynamic_cast<CDUIListBox*>(&control))
        text += " selected " + std::to_string(list->GetCurSel()) + " rows " +
                std::to_string(list->GetTopIndex()) + "-" + std::to_string(list->GetLastIndex());
    if (auto* const item = dynamic_cast<CDUIListItem*>(&control))
        text += std::string(item->GetSelect() ? " selected" : "") + (item->GetExpand() ? " expanded" : "");
    if (auto* const tree = dynamic_cast<CDUITreeViewImpl*>(&control))
        text += " rows " + std::to_string(tree->GetRowCount()) + " top " + std::to_string(tree->GetTopRow());
    if (auto* const node = dynamic_cast<CDUITreeNode*>(&control))
        text += std::string(node->GetSelect() ? " selected" : "") + (node->GetExpand() ? " expanded" : "");
    for (CDUIScrollBarBase* const bar : {static_cast<CDUIScrollBarBase*>(base->GetHorizontalSB()),
                                         static_cast<CDUIScrollBarBase*>(base->GetVerticalSB())})
        if (bar)
            text += bar->IsVisible(FALSE) ? " bar " + ScrollText(*bar) : std::string(" bar hidden");
    return text;
}

std::string StateOf(IDUIControl& control)
{
    std::string text = Text(control.GetControlRect());
    const struct {
        bool holds;
        const char* word;
    } flags[] = {{!control.IsVisible(FALSE), " hidden"},
                 {!control.IsEnabled(), " off"},
                 {(control.GetStatus() & DUISTATUS_CHECKED) != 0, " checked"},
                 {(control.GetStatus() & DUISTATUS_HOT) != 0, " hot"},
                 {(control.GetStatus() & DUISTATUS_PUSHED) != 0, " pushed"},
                 {(control.GetStatus() & DUISTATUS_FOCUSED) != 0, " focused"},
                 {(control.GetStyle() & DUISTYLE_TABSTOP) != 0, " stop"}};
    for (const auto& flag : flags)
        if (flag.holds)
            text += flag.word;
    return text + ValuesOf(control);
}

IDUIControl* FindBelow(IDUIControl* control, const std::string& name)
{
    if (!control || control->GetName() == name.c_str())
        return control;
    for (int i = 0; i < control->GetControlCount(); ++i)
        if (IDUIControl* const found = FindBelow(control->GetControlByIndex(i), name))
            return found;
    return nullptr;
}

IDUIControl* g_sender = nullptr;  // of the notification that is being handled

// In the whole tree: a search by name in the window finds only the rows in view of a list box.
IDUIControl& Named(ControlWindow& window, const std::string& name)
{
    IDUIControl* control = name == "." ? g_sender : FindBelow(window.GetRootControl(), name);
    // What goes together with the sender has left the window's tree.
    for (IDUIControl* top = g_sender; !control && top; top = top->GetParent())
        control = FindBelow(top, name);
    if (!control)
        throw std::runtime_error("no control is named " + name);
    return *control;
}

template <class Control>
Control& As(ControlWindow& window, const std::string& name)
{
    auto* const control = dynamic_cast<Control*>(&Named(window, name));
    if (!control)
        throw std::runtime_error(name + " is of another class");
    return *control;
}

// Operations of control classes: the control's name follows the word, and numbers that name.
using Operation = std::function<void(ControlWindow&, const std::string& name, std::istream&)>;
using TabBar = CDUITabBar<CDUIHorizontalLayout>;
using ToolBar = CDUIToolBar<CDUIHorizontalLayout>;

/// A method whose parameters are numbers.
template <class Control, class Result, class... Parameters>
Operation Call(Result (Control::*method)(Parameters...))
{
    return
        [method](ControlWindow& window, const std::string& name, [[maybe_unused]] std::istream& arguments) {
            const std::tuple<Parameters...> numbers{static_cast<Parameters>(ReadNumber(arguments))...};
            std::apply([&](auto... number) { (As<Control>(window, name).*method)(number...); }, numbers);
        };
}

const std::map<std::string, Operation> kOperations{
    {"list.select", Call(&CDUIListBox::SetCurSel)},
    {"list.top", Call(&CDUIListBox::SetTopIndex)},
    {"list.expand", Call(&CDUIListBox::ExpandItem)},
    {"list.hover_select", Call(&CDUIListBox::SetHoverSelect)},
    {"tree.top", Call(&CDUITreeViewImpl::SetTopRow)},
    {"progress.pos", Call(&CDUIProgressBar::SetPos)},
    {"progress.offset", Call(&CDUIProgressBar::OffsetPos)},
    {"progress.range", Call(&CDUIProgressBar::SetRange)},
    {"track.pos", Call(&CDUITrackBarBase::SetPos)},
    {"picture.icon", Call(&CDUIPictureBox::SetCurrentIconIndex)},
    {"tabs.page", Call(&CDUITabLayout::SetSelectIndex)},
    {"tabbar.select", Call(&TabBar::SetSelectIndex)},
    {"combo.select", Call(&CDUIComboBox::SetCurSel)},
    {"edit.select",
     [](auto& w, auto& n, auto& a) {
         const int first = ReadNumber(a);
         As<CDUIRichEdit>(w, n).SetSel(first, ReadNumber(a));
     }},
    {"edit.do",  // by the name of the operation
     [](auto& w, auto& n, auto& a) {
         static const std::map<std::string, void (*)(CDUIRichEdit&)> deeds{
             {"undo", [](CDUIRichEdit& e) { e.Undo(); }},
             {"redo", [](CDUIRichEdit& e) { e.Redo(); }},
             {"cut", [](CDUIRichEdit& e) { e.Cut(); }},
             {"copy", [](CDUIRichEdit& e) { e.Copy(); }},
             {"paste", [](CDUIRichEdit& e) { e.Paste(); }},
             {"listen", [](CDUIRichEdit& e) { e.SetEventMask(ENM_CHANGE); }}};
         deeds.at(ReadWord(a))(As<CDUIRichEdit>(w, n));
     }},
    // Input to the native window of a text field, as its loop gives it.
    {"field.key",
     [](auto& w, auto& n, auto& a) {
         const auto key = static_cast<WPARAM>(KeyOf(ReadWord(a)));
         FieldMessage(w, As<CDUIEdit>(w, n), WM_KEYDOWN, key, 1);
     }},
    {"field.type",
     [](auto& w, auto& n, auto& a) {
         for (const char byte : ReadRest(a))
             FieldMessage(w, As<CDUIEdit>(w, n), WM_CHAR, static_cast<unsigned char>(byte), 1);
     }},
    {"field.code",
     [](auto& w, auto& n, auto& a) {
         FieldMessage(w, As<CDUIEdit>(w, n), WM_CHAR, static_cast<WPARAM>(ReadNumber(a)), 1);
     }},
    {"field.press",
     [](auto& w, auto& n, auto& a) { FieldPointer(w, As<CDUIEdit>(w, n), WM_LBUTTONDOWN, ReadPoint(a)); }},
    {"field.drag",
     [](auto& w, auto& n, auto& a) { FieldPointer(w, As<CDUIEdit>(w, n), WM_MOUSEMOVE, ReadPoint(a)); }},
    {"field.double",
     [](auto& w, auto& n, auto& a) { FieldPointer(w, As<CDUIEdit>(w, n), WM_LBUTTONDBLCLK, ReadPoint(a)); }},
    {"field.release",
     [](auto& w, auto& n, auto& a) { FieldPointer(w, As<CDUIEdit>(w, n), WM_LBUTTONUP, ReadPoint(a)); }},
    {"tool.open", Call(&ToolBar::OpenOverflow)},
    {"tool.close", Call(&ToolBar::CloseOverflow)},
    {"panel.image", Call(&CDUIFramePanel::SetImageIndex)},
    {"tree.select",
     [](auto& w, auto& n, auto& a) {
         const std::string node = ReadWord(a);
         As<CDUITreeViewImpl>(w, n).SelectNode(node.empty() ? nullptr : &As<CDUITreeNode>(w, node));
     }},
    {"tree.expand",
     [](auto& w, auto& n, auto& a) {
         const std::string node = ReadWord(a);
         As<CDUITreeViewImpl>(w, n).ExpandNode(&As<CDUITreeNode>(w, node), ReadNumber(a));
     }},
    {"tree.expand_all",
     [](auto& w, auto& n, auto& a) { As<CDUITreeViewImpl>(w, n).ExpandAll(nullptr, ReadNumber(a)); }},
    {"tree.ensure",
     [](auto& w, auto& n, auto& a) {
         As<CDUITreeViewImpl>(w, n).EnsureVisible(&As<CDUITreeNode>(w, ReadWord(a)));
     }},
    {"scroll",
     [](auto& w, auto& n, auto& a) {
         auto& control = As<CDUIControlBase>(w, n);
         auto* bar = dynamic_cast<CDUIScrollBarBase*>(&control);
         for (CDUIScrollBarBase* const own : {static_cast<CDUIScrollBarBase*>(control.GetVerticalSB()),
                                              static_cast<CDUIScrollBarBase*>(control.GetHorizontalSB())})
             bar = bar ? bar : own;
         SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, ReadNumber(a), 0};
         bar->SetScrollBarInfo(&info);
         control.UpdateLayout(TRUE, nullptr);
     }},
    {"bar.info",
     [](auto& w, auto& n, auto& a) {
         SCROLLINFO info{sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
         info.nMin = ReadNumber(a);
         info.nMax = ReadNumber(a);
         info.nPage = static_cast<UINT>(ReadNumber(a));
         info.nPos = ReadNumber(a);
         As<CDUIScrollBarBase>(w, n).SetScrollBarInfo(&info);
     }},
    {"tile.show", [](auto& w, auto& n,
                     auto& a) { As<CDUITileLayout>(w, n).MakeSureControlVisible(&Named(w, ReadWord(a))); }},
};

DWORD StatusOf(const std::string& words)
{
    DWORD status = 0;
    for (const auto& [name, bit] : {std::pair("hot", DWORD{DUISTATUS_HOT}),
                                    {"pushed", DWORD{DUISTATUS_PUSHED}},
                                    {"checked", DWORD{DUISTATUS_CHECKED}},
                                    {"focused", DWORD{DUISTATUS_FOCUSED}},
                                    {"off", DWORD{DUISTATUS_DISABLED}}})
        status |= words.find(name) != std::string::npos ? bit : DWORD{0};
    return status;
}

CRefPtr<IDUIControl> Build(const std::string& xml)
{
    return CDUIControlBuilder(nullptr).CreateFromXML(("<window>" + xml + "</window>").c_str());
}

const char* CursorName()
{
    for (const auto& [name, id] : {std::pair("arrow", IDC_ARROW),
                                   {"hand", IDC_HAND},
                                   {"west-east", IDC_SIZEWE},
                                   {"north-south", IDC_SIZENS}})
        if (GetCursor() == LoadCursorA(nullptr, id))
            return name;
    return "?";
}

/// The list that a tool bar has opened: a window of the library's own, which is the active one.
HWND MenuOf(ControlWindow& window)
{
    const HWND active = GetActiveWindow();
    const bool isMenu = active && active != window.Handle() && GetWindow(active, GW_OWNER) == window.Handle();
    return isMenu && IsWindowVisible(active) ? active : nullptr;
}

RECT BoundsOf(const ClientPixels& pixels, std::uint32_t color)
{
    RECT bounds{};
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x)
            if (const RECT pixel{x, y, x + 1, y + 1}; pixels.At(x, y) == color)
                UnionRect(&bounds, &bounds, &pixel);
    return bounds;
}

const std::vector<const char*> kPainting{"background", "foreground", " text", "border"};

char LetterOf(unsigned color)
{
    static const std::map<unsigned, char> letters{{0xFFFFFF, '.'}, {0x000000, 'k'}, {0xFF0000, 'r'},
                                                  {0x00FF00, 'g'}, {0x0000FF, 'b'}, {0x808080, '#'}};
    const auto found = letters.find(color);
    return found == letters.end() ? '?' : found->second;
}

}  // namespace

const std::map<std::string, Scenario::Command>& Scenario::Commands()
{
    using S = Scenario&;
    using A = Arguments&;
    const auto named = [](void (*call)(IDUIControl&)) {
        return [call](S s, A a) { call(Named(*s.m_window, ReadWord(a))); };
    };
    static const std::map<std::string, Command> commands{
        {"skin", [](S, A a) { DUIGetAppInstance()->GetSkinMgr()->SetSkinTyle(ReadWord(a).c_str()); }},
        {"language", [](S, A a) { DUIGetAppInstance()->GetSkinMgr()->SetLanguageType(ReadWord(a).c_str()); }},
        {"resize", [](S s, A a) { s.m_window->Resize(ReadSize(a)); }},
        {"fire",
         [](S s, A a) {
             IDUIControl* const control = &Named(*s.m_window, ReadWord(a));
             s.m_window->Fire(control, static_cast<UINT>(ReadNumber(a)));
         }},
        {"picture", [](S s, A a) { s.WritePicture(ReadRectangle(a)); }},
        {"move", [](S s, A a) { s.m_mouse.MoveTo(ReadPoint(a)); }},
        {"press", [](S s, A a) { s.m_mouse.Press(ReadPoint(a)); }},
        {"click", [](S s, A a) { s.m_mouse.Click(ReadPoint(a)); }},
        {"double", [](S s, A a) { s.m_mouse.DoubleClick(ReadPoint(a)); }},
        {"release", [](S s, A) { s.m_mouse.Release(); }},
        {"right", [](S s, A a) { s.m_mouse.MoveTo(ReadPoint(a)).PressRight().ReleaseRight(); }},
        {"leave", [](S s, A) { s.m_mouse.Leave(); }},
        {"wheel", [](S s, A a) { s.m_mouse.Wheel(ReadNumber(a)); }},
        {"key", [](S s, A a) { s.m_keys.Press(KeyOf(ReadWord(a))); }},
        {"tab", [](S s, A) { s.m_window->Translate(WM_KEYDOWN, VK_TAB); }},
        {"back",
         [](S s, A) {
             s.m_keys.Hold(VK_SHIFT);
             s.m_window->Translate(WM_KEYDOWN, VK_TAB);
             s.m_keys.LetGo(VK_SHIFT);
         }},
        {"nonclient", [](S s, A) { SendMessageA(s.m_window->Handle(), WM_NCMOUSEMOVE, HTCAPTION, 0); }},
        {"uncapture", [](S, A) { ReleaseCapture(); }},
        {"lose", [](S s, A) { SendMessageA(s.m_window->Handle(), WM_KILLFOCUS, 0, 0); }},
        {"cursor",
         [](S s, A) {
             SendMessageA(s.m_window->Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(s.m_window->Handle()),
                          HTCLIENT);
             s.m_text += std::string("    cursor ") + CursorName() + "\n";
         }},
        {"menu",
         [](S s, A a) {
             POINT point = ReadPoint(a);
             ClientToScreen(s.m_window->Handle(), &point);
             SendMessageA(s.m_window->Handle(), WM_CONTEXTMENU, 0, MAKELPARAM(point.x, point.y));
         }},
        {"paint", [](S s, A) { s.m_window->Paint(); }},
        {"lock", [](S s, A a) { s.m_window->LockLayout(ReadNumber(a)); }},
        {"timer",
         [](S s, A a) {
             IDUIControl& control = Named(*s.m_window, ReadWord(a));
             control.SetTimer(static_cast<UINT>(ReadNumber(a)), 1000);
         }},
        {"translate",
         [](S s, A a) { s.m_window->Translate(WM_KEYDOWN, static_cast<WPARAM>(KeyOf(ReadWord(a)))); }},
        {"hold", [](S s, A a) { s.m_keys.Hold(KeyOf(ReadWord(a))); }},
        {"drop", [](S s, A a) { s.m_keys.LetGo(KeyOf(ReadWord(a))); }},
        {"type", [](S s, A a) { s.m_keys.Type(ReadRest(a)); }},
        {"alt", [](S s, A a) { s.m_window->Translate(WM_SYSCHAR, static_cast<WPARAM>(ReadWord(a)[0])); }},
        {"show", named([](IDUIControl& control) { control.SetVisible(TRUE); })},
        {"hide", named([](IDUIControl& control) { control.SetVisible(FALSE); })},
        {"enable", named([](IDUIControl& control) { control.SetEnable(TRUE); })},
        {"disable", named([](IDUIControl& control) { control.SetEnable(FALSE); })},
        {"focus", named([](IDUIControl& control) { control.SetFocus(TRUE); })},
        {"activate", named([](IDUIControl& control) { control.Activate(); })},
        {"remove", named([](IDUIControl& control) { control.GetParent()->RemoveControl(&control); })},
        {"layout", [](S s, A) { s.m_window->LayoutRootControl(); }},
        {"set",
         [](S s, A a) {
             IDUIControl* const control = &Named(*s.m_window, ReadWord(a));
             std::string attribute;
             std::getline(a >> std::ws, attribute, '=');
             std::string value;
             std::getline(a, value);
             control->SetAttribute(attribute.c_str(), value.c_str());
         }},
        {"text",
         [](S s, A a) {
             IDUIControl* const control = &Named(*s.m_window, ReadWord(a));
             control->SetText(ReadRest(a).c_str());
         }},
        {"place",
         [](S s, A a) {
             IDUIControl* const control = &Named(*s.m_window, ReadWord(a));
             control->SetControlRect(ReadRectangle(a));
         }},
        {"add",
         [](S s, A a) {
             IDUIControl* const parent = &Named(*s.m_window, ReadWord(a));
             const int index = ReadNumber(a);
             const CRefPtr<IDUIControl> child = Build(ReadRest(a));
             if (index < 0)
                 parent->AddControl(child);
             else
                 parent->AddControlAt(index, child);
         }},
        {"index",
         [](S s, A a) {
             IDUIControl* const control = &Named(*s.m_window, ReadWord(a));
             control->GetParent()->SetControlIndex(control, ReadNumber(a));
         }},
        {"adopt",  // by another parent
         [](S s, A a) {
             const CRefPtr<IDUIControl> control = &Named(*s.m_window, ReadWord(a));
             Named(*s.m_window, ReadWord(a)).AddControl(control);
         }},
        {"clear", named([](IDUIControl& control) { control.RemoveAllControl(); })},
        {"status",
         [](S s, A a) {
             auto& control = As<CDUIControlBase>(*s.m_window, ReadWord(a));
             control.ModifyStatus(0xFFFFFFFF, StatusOf(ReadWord(a)));
         }},
        {"state",  // as it is in the middle of something
         [](S s, A a) {
             IDUIControl& control = Named(*s.m_window, ReadWord(a));
             s.m_text += "    state " + std::string(control.GetName()) + " " + StateOf(control) + "\n";
         }},
        {"estimate",
         [](S s, A a) {
             IDUIControl& control = Named(*s.m_window, ReadWord(a));
             SIZE size{-1, -1};
             const bool isKnown = control.EstimateSize(ReadSize(a), size) != FALSE;
             s.m_text += "    wants " + (isKnown ? Text(size) : "nothing") + "\n";
         }},
        {"colors", [](S s, A a) { s.WriteColors(ReadWord(a) == "black"); }},
        {"event",
         [](S s, A a) {
             const CRefPtr<IDUIControl> control = &Named(*s.m_window, ReadWord(a));
             tagDUIEvent event;
             event.pSender = control.GetPtr();
             event.Type = Probe::EventType(ReadWord(a));
             event.ptMouse = ReadPoint(a);
             event.wParam = static_cast<WPARAM>(ReadNumber(a));
             event.lParam = ReadNumber(a);
             BOOL bHandled = FALSE;
             control->OnDUIEvent(event, bHandled);
             s.m_text += bHandled ? "    handled\n" : "    not handled\n";
         }},
        {"tick", [](S s, A a) { SendMessageA(s.m_window->Handle(), WM_TIMER, ReadNumber(a), 0); }},
        {"repaint",
         [](S s, A a) {
             s.m_window->Paint();
             s.m_window->Validate();
             s.Do(ReadRest(a));
             s.m_text += "    repaints " + Text(s.m_window->Invalid()) + "\n";
         }},
        {"on",
         [](S s, A a) {
             std::string moment;
             std::getline(a >> std::ws, moment, ':');
             s.m_handlers.emplace_back(moment, ReadRest(a));
         }},
        {"clone",
         [](S s, A) {
             RECT client{};
             GetClientRect(s.m_window->Handle(), &client);
             const CRefPtr<IDUIControl> copy = s.m_window->GetRootControl()->Clone();
             s.Use(std::make_unique<ControlWindow>(SIZE{client.right, client.bottom}, copy));
             s.m_before.clear();
         }},
        {"twin",  // a copy in a window of its own
         [](S s, A) {
             const ClientPixels pixels = s.m_window->Paint();
             ControlWindow twin({pixels.width, pixels.height}, s.m_window->GetRootControl()->Clone());
             s.m_text +=
                 twin.Paint().pixels == pixels.pixels ? "    looks the same\n" : "    looks different\n";
         }},
        {"close", [](S s, A) { s.m_window->Close(); }},
        {"finish", [](S s, A) { s.m_window->FinishWindowMgr(); }},
        {"end", [](S s, A) { s.m_window.reset(); }},
        {"terminate",
         [](S s, A) {
             s.m_window.reset();
             DUIGetAppInstance()->Term();
         }},
        {"detach", [](S s, A) { s.m_window->DetachRootControl(); }},
        {"replace",  // the tree, without finishing the old one
         [](S s, A a) {
             RECT rect{};
             GetClientRect(s.m_window->Handle(), &rect);
             if (s.m_window->CreateFromRootControl(Build(ReadRest(a)), s.m_window->Handle(), rect))
                 s.m_window->InitWindowMgr();
         }},
        {"rebuild",
         [](S s, A a) {
             s.m_window->FinishWindowMgr();
             s.Do("replace " + ReadRest(a));
         }},
        {"ask",  // what an operation of a rich edit answers
         [](S s, A a) {
             CDUIRichEdit& edit = As<CDUIRichEdit>(*s.m_window, ReadWord(a));
             const std::string operation = ReadWord(a);
             CString answer = AskEdit(edit, operation, a);
             answer.Replace("\r", "|");
             s.m_text += "    " + std::string(answer.GetString()) + "\n";
         }},
        {"said",  // the text of a control
         [](S s, A a) {
             CString text = Named(*s.m_window, ReadWord(a)).GetText();
             text.Replace("\r", "|");
             s.m_text += "    says \"" + std::string(text.GetString()) + "\"\n";
         }},
        {"open",  // whether the list of a combo box is
         [](S s, A a) {
             const bool isOpen = As<CDUIComboBox>(*s.m_window, ReadWord(a)).IsDroppedDown();
             s.m_text += isOpen ? "    open\n" : "    closed\n";
         }},
        {"shown",  // whether the native window of a text field is
         [](S s, A a) {
             const HWND field = As<CDUIEdit>(*s.m_window, ReadWord(a)).m_hWnd;
             s.m_text += IsWindowVisible(field) ? "    shown\n" : "    hidden\n";
         }},
        {"told",  // what the native windows of text fields have told the window
         [](S s, A) {
             MSG told{};
             while (PeekMessageA(&told, s.m_window->Handle(), WM_COMMAND, WM_COMMAND, PM_REMOVE)) {
                 char line[48];
                 std::snprintf(line, sizeof line, "    tells %d %#x\n", LOWORD(told.wParam),
                               HIWORD(told.wParam));
                 s.m_text += line;
             }
         }},
        {"forget",  // what is on the clipboard
         [](S, A) {
             OpenClipboard(nullptr);
             EmptyClipboard();
             CloseClipboard();
         }},
        {"find",  // what is hit at a point
         [](S s, A a) {
             POINT point = ReadPoint(a);
             IDUIControl* const control = s.m_window->FindControl(&point);
             s.m_text += "    finds " +
                         (control ? TagOf(*control) + " " + control->GetName().GetString() : "nothing") +
                         "\n";
         }},
        {"known",  // by its name, without a search
         [](S s, A a) {
             const bool isKnown = s.m_window->GetControlByName(ReadWord(a).c_str(), FALSE) != nullptr;
             s.m_text += isKnown ? "    is known\n" : "    is not known\n";
         }},
        {"entry",  // of an open list: the press on entry I of N
         [](S s, A a) {
             RECT client{};
             GetClientRect(MenuOf(*s.m_window), &client);
             const int index = ReadNumber(a);
             const int count = ReadNumber(a);
             // Within the border and the margin of 4 pixels
             MessagePointer(MenuOf(*s.m_window))
                 .Click({client.right / 2, 4 + (client.bottom - 8) * (2 * index + 1) / (2 * count)});
             Pump();
         }},
        {"post",  // a move or a release that arrives while a press is being handled
         [](S s, A a) {
             const UINT message = ReadWord(a) == "move" ? WM_MOUSEMOVE : WM_LBUTTONUP;
             const POINT point = ReadPoint(a);
             PostMessageA(s.m_window->Handle(), message, 0, MAKELPARAM(point.x, point.y));
         }},
        {"menukey",
         [](S s, A a) {
             const HWND menu = MenuOf(*s.m_window);
             const auto key = static_cast<WPARAM>(KeyOf(ReadWord(a)));
             SendMessageA(menu, WM_KEYDOWN, key, 0);
             if (IsWindow(menu))
                 SendMessageA(menu, WM_KEYUP, key, 0);
         }},
        {"raise", [](S s, A) { SetActiveWindow(s.m_window->Handle()); }},
        {"pump", [](S, A) { Pump(); }},
        {"other",
         [](S, A a) {
             ControlWindow({20, 20}, ReadRest(a)).Paint();
         }},  // a window meanwhile
    };
    return commands;
}

std::string Scenario::Run(const std::string& script)
{
    Probe::Register();
    Probe::OnWrite([this](const std::string& line) { Meet(line); });
    std::istringstream lines(script);
    std::string line;
    std::string size;
    std::string content;
    const auto open = [&] {
        if (!size.empty())
            Open(std::exchange(size, ""), std::exchange(content, ""));
    };
    while (std::getline(lines, line)) {
        if (line[0] == ' ')
            continue;
        if (!size.empty() && line[0] != '<')
            open();
        m_text += line + "\n";
        if (line.rfind("window ", 0) == 0)
            size = line.substr(7);
        else if (!size.empty())
            content += line;
        else if (!line.empty() && line[0] != '#')
            Execute(line);
    }
    open();
    m_window.reset();
    Probe::OnWrite(nullptr);
    return m_text;
}

void Scenario::Open(const std::string& size, const std::string& content)
{
    std::istringstream text(size);
    const SIZE client = ReadSize(text);
    m_window.reset();
    m_before.clear();
    m_focus.clear();
    Use(std::make_unique<ControlWindow>(client, content));
    WriteChanges();
}

void Scenario::Use(std::unique_ptr<ControlWindow> window)
{
    m_window = std::move(window);
    m_mouse = m_window->mouse;
    m_keys = m_window->keys;
    m_handlers.clear();
    m_notifications = 0;
    m_noticed.clear();
    m_window->OnNotify([this](const tagDUINotify& notify) {
        const std::string sender = notify.pSender->GetName().GetString();
        // Controls come as pointers.
        const bool isRow = notify.nCode == DUINOTIFY_LISTBOX || notify.nCode == DUINOTIFY_TREEEXPAND ||
                           (notify.nCode == DUINOTIFY_COMBOBOX && notify.wParam != 3);
        // Some text services tell of every painting, and not of a limit that is reached.
        const bool isUpdate = notify.nCode == DUINOTIFY_EDITNOTIFY &&
                              (notify.wParam == EN_UPDATE || notify.wParam == EN_MAXTEXT);
        if (notify.nCode != DUINOTIFY_CREATED && notify.nCode != DUINOTIFY_DESTROYED && !isUpdate)
            m_noticed += "    notify " + std::to_string(notify.nCode) + " " + sender + " " +
                         std::to_string(notify.wParam) + " " +
                         (isRow ? std::string(reinterpret_cast<IDUIControl*>(notify.lParam)->GetName())
                                : std::to_string(notify.lParam)) +
                         "\n";
        g_sender = notify.pSender;
        Meet("#" + std::to_string(++m_notifications));
        Meet(std::to_string(notify.nCode) + " " + sender + " " + std::to_string(notify.wParam));
        g_sender = nullptr;
    });
}

void Scenario::Meet(const std::string& moment)
{
    const auto found = std::find_if(m_handlers.begin(), m_handlers.end(), [&moment](const auto& handler) {
        return (moment + " ").rfind(handler.first + " ", 0) == 0;
    });
    if (found == m_handlers.end())
        return;
    const std::string line = found->second;
    m_handlers.erase(found);
    m_text += "    at " + moment + "\n";
    Do(line);
}

void Scenario::Execute(const std::string& line)
{
    m_isPainting = line == "paint";
    Do(line);
    WriteChanges();
}

void Scenario::Do(const std::string& line)
{
    if (!m_window || !IsWindow(m_window->Handle()))
        return;
    Arguments arguments(line);
    const std::string word = ReadWord(arguments);
    try {
        if (const auto operation = kOperations.find(word); operation != kOperations.end()) {
            const std::string name = ReadWord(arguments);
            operation->second(*m_window, name, arguments);
        } else if (const auto command = Commands().find(word); command != Commands().end()) {
            command->second(*this, arguments);
        } else {
            ADD_FAILURE() << "no such command: " << line;
        }
    } catch (const std::runtime_error& error) {
        m_text += std::string("    ") + error.what() + "\n";
    }
}

void Scenario::Collect(IDUIControl& control, const std::string& indent)
{
    std::string label = indent + TagOf(control);
    if (!control.GetName().IsEmpty())
        label += " " + std::string(control.GetName());
    // Those that are called the same are told apart by their number.
    const auto same = std::count_if(m_now.begin(), m_now.end(), [&label](const auto& known) {
        return known.first == label || known.first.rfind(label + "#", 0) == 0;
    });
    if (same > 0)
        label += "#" + std::to_string(same + 1);
    m_now.emplace_back(label, StateOf(control));
    // What a bar is made of is in its own line.
    if (!dynamic_cast<CDUIScrollBarBase*>(&control) && !dynamic_cast<CDUITrackBarBase*>(&control))
        for (int i = 0; i < control.GetControlCount(); ++i)
            Collect(*control.GetControlByIndex(i), indent + "  ");
}

void Scenario::WriteChanges()
{
    if (const std::string told = Probe::Take(m_isPainting ? std::vector<const char*>{} : kPainting);
        !told.empty())
        m_text += "    told " + told + "\n";
    m_now.clear();
    if (!m_window)
        return;
    if (IsWindow(m_window->Handle()) && m_window->GetRootControl())
        Collect(*m_window->GetRootControl(), "  ");
    for (const auto& [label, state] : m_before)
        if (std::none_of(m_now.begin(), m_now.end(), [&](const auto& other) { return other.first == label; }))
            m_text += " -" + label.substr(1) + "\n";
    for (const auto& [label, state] : m_now)
        if (std::find(m_before.begin(), m_before.end(), std::pair(label, state)) == m_before.end())
            m_text += label + " " + state + "\n";
    m_before = m_now;
    m_text += std::exchange(m_noticed, "");
    IDUIControl* const control = m_window->GetFocusControl();
    const std::string focus = control ? control->GetName().GetString() : "";
    if (focus != m_focus)
        m_text += "    focus " + focus + "\n";
    m_focus = focus;
    const HWND menu = MenuOf(*m_window);
    if (menu != m_menu && menu) {
        RECT place{};
        GetWindowRect(menu, &place);
        ScreenToClient(m_window->Handle(), reinterpret_cast<POINT*>(&place));
        m_text += "    list opens at " + Text(POINT{place.left, place.top}) + "\n";
    } else if (menu != m_menu) {
        m_text += "    list closes\n";
    }
    m_menu = menu;
    const bool holdsMouse = GetCapture() == m_window->Handle() && IsWindow(m_window->Handle());
    if (holdsMouse != m_holdsMouse)
        m_text += holdsMouse ? "    captures\n" : "    releases\n";
    m_holdsMouse = holdsMouse;
}

void Scenario::WriteColors(bool withBlack)
{
    m_window->Invalidate(FALSE);
    const ClientPixels pixels = m_window->Paint();
    std::string text;
    for (const auto& [name, color] : {std::pair("red", 0xFF0000u),
                                      {"green", 0x00FF00u},
                                      {"blue", 0x0000FFu},
                                      {"grey", 0x808080u},
                                      {"white", 0xFFFFFFu},
                                      {"cyan", 0x00FFFFu},
                                      {"yellow", 0xFFFF00u},
                                      {"magenta", 0xFF00FFu},
                                      {"black", 0x000000u}}) {
        const RECT bounds = BoundsOf(pixels, color);
        if (!IsRectEmpty(&bounds) && (color != 0 || withBlack))
            text += std::string(" ") + name + " " + Text(bounds);
    }
    m_text += "   " + (text.empty() ? " none" : text) + "\n";
}

void Scenario::WritePicture(const RECT& part)
{
    m_window->Invalidate(FALSE);
    const ClientPixels pixels = m_window->Paint();
    std::string last;
    int count = 0;
    // Rows that are alike are written once.
    const auto write = [&] {
        if (count > 0)
            m_text += "    " + last + (count > 1 ? " x" + std::to_string(count) : "") + "\n";
        count = 0;
    };
    for (LONG y = part.top; y < part.bottom; ++y) {
        std::string row;
        for (LONG x = part.left; x < part.right; ++x)
            row += LetterOf(pixels.At(x, y));
        if (row != last)
            write();
        last = row;
        ++count;
    }
    write();
}

}  // namespace qvui::test
