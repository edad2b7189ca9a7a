#include "platform/user/user_script.h"

#include <sstream>

#include "support/input_source.h"
#include "support/pointer_and_keys.h"

namespace qvui::test {
namespace {

constexpr POINT kOutOfTheWay{900, 700};

std::string Hexadecimal(ULONG_PTR number)
{
    std::ostringstream text;
    text << std::hex << std::uppercase << number;
    return text.str();
}

}  // namespace

UserScript::UserScript()
{
    AddWindows();
    AddHandlers();
    AddInput();
    AddQueue();
    AddPainting();
    UserScript::EndCase();
}

UserScript::~UserScript()
{
    UserScript::EndCase();
    DeleteBrushes();
}

void UserScript::DeleteBrushes()
{
    for (const HBRUSH brush : m_brushes)
        DeleteObject(brush);
}

void UserScript::EndCase()
{
    m_answers.clear();
    m_lines.clear();
    ReleaseCapture();
    for (; !m_windows.empty(); m_windows.pop_back())
        m_windows.back().reset();
    input.reset();
    SetCursorPos(kOutOfTheWay.x, kOutOfTheWay.y);
    Pump();
    m_told.clear();
    Script::EndCase();
    input = std::make_unique<SyntheticInput>();
    // Windows deletes the brushes of a class with the class.
    DeleteBrushes();
    Name("red", m_brushes[0] = CreateSolidBrush(RGB(255, 0, 0)));
    Name("blue", m_brushes[1] = CreateSolidBrush(RGB(0, 0, 255)));
    Name("bogus", reinterpret_cast<void*>(INT_PTR{0x1234568}));
}

void UserScript::AfterLine()
{
    if (!m_told.empty())
        Print(m_told);
    m_told.clear();
    m_teller.clear();
}

POINT UserScript::PointOf(const std::string& word) const
{
    const std::size_t colon = word.find(':');
    if (colon == std::string::npos)
        return Script::PointOf(word);
    return SyntheticInput::At(static_cast<HWND>(Handle(word.substr(0, colon))),
                              Script::PointOf(word.substr(colon + 1)).x,
                              Script::PointOf(word.substr(colon + 1)).y);
}

HWND UserScript::Create(const std::string& name, RECT place, Words words)
{
    PlatformWindowOptions options;
    options.name = m_names.insert(name).first->c_str();
    options.place = place;
    options.handler = [this](const LoggedMessage& message) { return Receive(message); };
    const std::map<std::string, std::function<void()>> known{
        {"in",
         [&] {
             options.style = WS_CHILD | WS_VISIBLE;
             options.isShown = false;
             Read(*this, words, options.parent);
         }},
        {"hidden", [&] { options.isShown = false; }},
        {"style", [&] { Read(*this, words, options.style); }},
        {"ex", [&] { Read(*this, words, options.exStyle); }},
        {"class", [&] { Read(*this, words, options.classStyle); }},
        {"owner", [&] { Read(*this, words, options.parent); }},
        {"fill", [&] { Read(*this, words, options.background); }},
        {"cursor", [&] { Read(*this, words, options.cursor); }},
    };
    while (!words.empty())
        known.at(Take(words))();
    m_windows.push_back(std::make_unique<PlatformWindow>(options));
    return m_windows.back()->Handle();
}

std::string UserScript::Told(const LoggedMessage& message, const std::string& format) const
{
    std::string text;
    LPARAM parameter = static_cast<LPARAM>(message.wParam);
    for (const char how : format) {
        const std::string space = text.empty() ? "" : " ";
        if (how == 'w')
            text += space + NameOf(reinterpret_cast<const void*>(parameter));
        else if (how == 'p')
            text += space + Text(POINT{GET_X_LPARAM(parameter), GET_Y_LPARAM(parameter)});
        else if (how == 'd')
            text += space + std::to_string(static_cast<long long>(parameter));
        else if (how == 'h')
            text += space + std::to_string(static_cast<SHORT>(HIWORD(parameter)));
        else if (how == 'l')
            text += space + std::to_string(LOWORD(parameter));
        else if (how == 'x')
            text += space + Hexadecimal(static_cast<ULONG_PTR>(parameter & 0xFFFFFFFF));
        parameter = message.lParam;
    }
    return text.empty() ? text : '(' + text + ')';
}

std::optional<LRESULT> UserScript::Receive(const LoggedMessage& message)
{
    Name(message.window, message.handle);
    if (const auto watched = m_watched.find(message.message); watched != m_watched.end()) {
        if (m_teller != message.window)
            m_told += (m_told.empty() ? "" : ", ") + message.window;
        m_teller = message.window;
        m_told += ' ' + MessageName(message.message) + Told(message, watched->second);
    }
    const std::pair key{message.window, message.message};
    const LoggedMessage* const outer = std::exchange(m_message, &message);
    const auto [first, last] = m_lines.equal_range(key);
    for (const auto& [_, line] : std::vector(first, last)) {
        std::string answer;
        Perform(line[0] == '?' ? line.substr(1) + " =" : line, &answer);
        if (line[0] == '?')
            m_told += " {" + answer.substr(std::min<std::size_t>(answer.size(), 1)) + '}';
    }
    m_message = outer;
    const auto answer = m_answers.find(key);
    return answer == m_answers.end() ? std::nullopt : std::optional(answer->second);
}

void UserScript::Watch(const Words& messages)
{
    m_watched.clear();
    for (const std::string& message : messages) {
        const std::size_t colon = std::min(message.size(), message.find(':'));
        m_watched[MessageNumber(message.substr(0, colon)).value()] =
            message.substr(std::min(message.size(), colon + 1));
    }
}

void UserScript::AddWindows()
{
    Call("create", [this](std::string name, RECT place, Words words) { return Create(name, place, words); });
    Call("window", [this](std::string name, RECT place, Words words) {
        Create(name, place, words);
        m_told.clear();
    });
    Call("children", [this](HWND parent) {
        std::string names;
        for (HWND at = GetWindow(parent, GW_CHILD); at; at = GetWindow(at, GW_HWNDNEXT))
            names += NameOf(at) + ' ';
        return names;
    });
    Call("title", [](HWND window, int capacity) {
        char text[100] = "";
        const int length = GetWindowTextA(window, text, capacity);
        return std::to_string(length) + ' ' + text;
    });
    Call("procedure", [](HWND window, LPCSTR which) {
        static LONG_PTR own = 0;
        const bool isOwn = std::string(which) == "own";
        own =
            SetWindowLongPtrA(window, GWLP_WNDPROC, isOwn ? own : reinterpret_cast<LONG_PTR>(DefWindowProcA));
    });
    Call("shape", [](HWND window, const RECT* rect) {
        SetWindowRgn(window, rect ? CreateRectRgnIndirect(rect) : nullptr, TRUE);
    });
    QVUI_CALLS(CreateRectRgn, DeleteObject, DestroyWindow, EnableWindow, GetActiveWindow, GetAncestor,
               GetCapture, GetClientRect, GetCursor, GetCursorPos, GetDC, GetDlgCtrlID, GetFocus,
               GetForegroundWindow, GetLastError, GetNextDlgTabItem, GetParent, GetUpdateRect, GetWindow,
               GetWindowLongPtrA, GetWindowRect, GetWindowRgn, GetWindowTextLengthA, InvalidateRect,
               InvalidateRgn, IsChild, IsIconic, IsWindow, IsWindowEnabled, IsWindowVisible, IsZoomed,
               KillTimer, LoadCursorA, MoveWindow, PostMessageA, PostQuitMessage, PtInRegion, RedrawWindow,
               ReleaseCapture, SendMessageA, SetActiveWindow, SetCapture, SetCursor, SetFocus,
               SetForegroundWindow, SetLastError, SetTimer, SetWindowLongPtrA, SetWindowPos, SetWindowTextA,
               ShowWindow, UpdateWindow, ValidateRect, WindowFromPoint);
}

void UserScript::AddHandlers()
{
    Call("watch", [this](Words messages) { Watch(messages); });
    Call("answer", [this](std::string window, std::string message, LRESULT answer) {
        m_answers[{window, MessageNumber(message).value()}] = answer;
    });
    Call("on", [this](std::string window, std::string message, Words words) {
        std::string line;
        for (const std::string& word : words)
            line += (line.empty() ? "" : " ") + word;
        m_lines.insert({{window, MessageNumber(message).value()}, line});
    });
    Call("off", [this] { m_lines.clear(), m_answers.clear(); });
    Call("limits", [this](RECT track, RECT maximised) {
        auto& limits = *reinterpret_cast<MINMAXINFO*>(m_message->lParam);
        limits.ptMinTrackSize = {track.left, track.top};
        limits.ptMaxTrackSize = {track.right, track.bottom};
        limits.ptMaxPosition = {maximised.left, maximised.top};
        limits.ptMaxSize = {maximised.right - maximised.left, maximised.bottom - maximised.top};
    });
    Call("width", [this](int width) { reinterpret_cast<WINDOWPOS*>(m_message->lParam)->cx = width; });
    Call("created", [this] {
        const auto& given = *reinterpret_cast<const CREATESTRUCTA*>(m_message->lParam);
        return Text(RECT{given.x, given.y, given.cx, given.cy}) + ' ' + given.lpszName + ' ' +
               std::to_string(given.dwExStyle);
    });
}

void UserScript::AddInput()
{
    Call("move", [this](POINT screen) { input->MoveTo(screen); });
    Call("press", [this](std::optional<int> button) { input->Press(button.value_or(VK_LBUTTON)); });
    Call("release", [this](std::optional<int> button) { input->Release(button.value_or(VK_LBUTTON)); });
    Call("click", [this](POINT screen) { input->Click(screen); });
    Call("wheel", [this](int notches) { input->Wheel(notches); });
    Call("down", [this](int key) { input->KeyDown(key); });
    Call("up", [this](int key) { input->KeyUp(key); });
    Call("key", [this](int key) { input->PressKey(key); });
    Call("hold", [](HWND window, int key) { MessageKeys(window).Hold(key); });
    Call("let-go", [](HWND window, int key) { MessageKeys(window).LetGo(key); });
    Call("inject-move", InjectMove);
    Call("inject-press", [] { InjectButton(VK_LBUTTON, true); });
    Call("inject-release", [] { InjectButton(VK_LBUTTON, false); });
    Call("inject-down", [](int key) { InjectKey(key, true); });
    Call("inject-up", [](int key) { InjectKey(key, false); });
    Call("drag", [this](POINT from, POINT to) {
        input->MoveTo(from);
        InjectButton(VK_LBUTTON, true);
        InjectMove(to);
        InjectButton(VK_LBUTTON, false);
        Pump();
    });
}

std::string UserScript::TextOfMessage(const MSG& message) const
{
    return NameOf(message.hwnd) + ' ' + MessageName(message.message) + ' ' + std::to_string(message.wParam) +
           ' ' + std::to_string(message.lParam);
}

void UserScript::AddQueue()
{
    Call("pump", [] { Pump(); });
    Call("settle", [this] {
        Pump();
        m_told.clear();
    });
    Call("peek", [this](HWND window, UINT first, UINT last, UINT flags) {
        MSG message{};
        return PeekMessageA(&message, window, first, last, flags) ? TextOfMessage(message) : "none";
    });
    Call("get", [this](HWND window, UINT first, UINT last) {
        MSG message{};
        GetMessageA(&message, window, first, last);
        return TextOfMessage(message);
    });
    Call("GetKeyState", [](int key) -> std::string { return GetKeyState(key) < 0 ? "down" : "up"; });
    Call("toggled", [](int key) { return (GetKeyState(key) & 1) != 0; });
    Call("TranslateMessage", [](HWND window, WPARAM key) {
        const MSG message{window, WM_KEYDOWN, key, 1, 0, {}};
        return TranslateMessage(&message);
    });
}

void UserScript::AddPainting()
{
    Call("paint", [this](std::optional<HBRUSH> brush, std::optional<RECT> filled) {
        PAINTSTRUCT paint{};
        BeginPaint(m_message->handle, &paint);
        RECT clip{};
        const int kind = GetClipBox(paint.hdc, &clip);
        if (filled)
            FillRect(paint.hdc, &*filled, *brush);
        EndPaint(m_message->handle, &paint);
        const bool isCut = Text(clip) == Text(paint.rcPaint);
        return Text(paint.rcPaint) + (kind == COMPLEXREGION ? " complex" : "") +
               (paint.fErase ? " to be erased" : "") + (isCut ? "" : " clipped to " + Text(clip));
    });
    Call("clip", [this] {
        RECT clip{};
        GetClipBox(reinterpret_cast<HDC>(m_message->wParam), &clip);
        return Text(clip);
    });
    Call("fill", [](HWND window, HBRUSH brush, RECT rect) {
        const HDC dc = GetDC(window);
        FillRect(dc, &rect, brush);
        ReleaseDC(window, dc);
    });
    Call("pixel", [](HWND window, POINT at) { return ReadClient(window).At(at.x, at.y); });
    Constant("red", 0xFF0000);
    Constant("blue", 0x0000FF);
}

}  // namespace qvui::test
