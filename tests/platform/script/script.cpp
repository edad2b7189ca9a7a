#include "platform/script/script.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <set>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "support/message_log.h"
#include "support/test_files.h"
#include "support/transcript.h"

namespace qvui::test {
namespace {

// What these make is deleted at the end of the case.
const std::set<std::string> kMakers{"CreateBitmap",       "CreateCompatibleDC", "CreatePatternBrush",
                                    "CreatePen",          "CreateRectRgn",      "CreateRegion",
                                    "CreateRoundRectRgn", "CreateSolidBrush"};

// Words are divided by spaces; those in quotes may hold some.
Script::Words WordsOf(const std::string& line)
{
    Script::Words words;
    bool isQuoted = false, isInside = false;
    for (const char c : line) {
        isQuoted = isQuoted != (c == '"');
        if (c == ' ' && !isQuoted) {
            isInside = false;
            continue;
        }
        if (!isInside)
            words.emplace_back();
        isInside = true;
        words.back() += c;
    }
    return words;
}

template <class T>
long long ValueOf(T constant)
{
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<INT_PTR>(constant);
    else
        return static_cast<long long>(constant);
}

// The COLORREF of 0xRRGGBB.
COLORREF ColourOf(long pixel)
{
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

}  // namespace

Script::Words Script::Divided(const std::string& text, const char* dividers)
{
    Words parts;
    for (std::size_t at = 0; (at = text.find_first_not_of(dividers, at)) != std::string::npos;) {
        const std::size_t end = std::min(text.size(), text.find_first_of(dividers, at));
        parts.push_back(text.substr(at, end - at));
        at = end;
    }
    return parts;
}

Script::Script()
{
    const auto add = [this](const std::string& names, auto... constants) {
        Words words = Divided(names, ", ");
        (Constant(Take(words), ValueOf(constants)), ...);
    };
#define QVUI_CONSTANTS(...) add(#__VA_ARGS__, __VA_ARGS__)
    QVUI_CONSTANTS(
        BLACKNESS, BLACKONWHITE, BLACK_PEN, CLR_INVALID, COLORONCOLOR, COMPLEXREGION, CREATE_ALWAYS,
        CS_DBLCLKS, CS_HREDRAW, CS_VREDRAW, DEFAULT_GUI_FONT, DSTINVERT, DT_BOTTOM, DT_CALCRECT, DT_CENTER,
        DT_EDITCONTROL, DT_END_ELLIPSIS, DT_EXPANDTABS, DT_HIDEPREFIX, DT_NOCLIP, DT_NOPREFIX,
        DT_PATH_ELLIPSIS, DT_RIGHT, DT_SINGLELINE, DT_TABSTOP, DT_VCENTER, DT_WORDBREAK, ERROR,
        ERROR_FILE_NOT_FOUND, ERROR_INSUFFICIENT_BUFFER, ERROR_INVALID_PARAMETER, ERROR_INVALID_WINDOW_HANDLE,
        ETO_CLIPPED, ETO_OPAQUE, FILE_ATTRIBUTE_NORMAL, FILE_SHARE_READ, GA_PARENT, GA_ROOT, GA_ROOTOWNER,
        GENERIC_READ, GENERIC_WRITE, GHND, GMEM_MOVEABLE, GWLP_ID, GWLP_USERDATA, GW_OWNER, HALFTONE,
        HTBOTTOM, HTBOTTOMLEFT, HTBOTTOMRIGHT, HTCAPTION, HTLEFT, HTMINBUTTON, HTRIGHT, HTTOP, HTTOPLEFT,
        HTTOPRIGHT, HTTRANSPARENT, HWND_BOTTOM, HWND_NOTOPMOST, HWND_TOP, HWND_TOPMOST, IDC_ARROW, IDC_HAND,
        IDC_IBEAM, LOGPIXELSY, MA_ACTIVATE, MA_ACTIVATEANDEAT, MA_NOACTIVATE, MA_NOACTIVATEANDEAT, NULLREGION,
        NULL_PEN, OPAQUE, OPEN_EXISTING, PATCOPY, PATINVERT, PM_NOREMOVE, PM_REMOVE, PS_DASH, PS_DASHDOT,
        PS_DASHDOTDOT, PS_DOT, PS_INSIDEFRAME, PS_NULL, PS_SOLID, RDW_ALLCHILDREN, RDW_ERASE, RDW_FRAME,
        RDW_INVALIDATE, RDW_UPDATENOW, RDW_VALIDATE, RGN_AND, RGN_COPY, RGN_DIFF, RGN_OR, RGN_XOR, RT_RCDATA,
        SIMPLEREGION, SRCAND, SRCCOPY, SRCINVERT, SRCPAINT, STREAM_SEEK_CUR, STREAM_SEEK_END, STREAM_SEEK_SET,
        SWP_HIDEWINDOW, SWP_NOACTIVATE, SWP_NOMOVE, SWP_NOSIZE, SWP_NOZORDER, SWP_SHOWWINDOW, SW_HIDE,
        SW_MAXIMIZE, SW_MINIMIZE, SW_RESTORE, SW_SHOW, SW_SHOWNA, SW_SHOWNOACTIVATE, SW_SHOWNORMAL,
        TME_CANCEL, TME_HOVER, TME_LEAVE, TRANSPARENT, ULW_ALPHA, ULW_COLORKEY, ULW_OPAQUE, VK_BACK,
        VK_CONTROL, VK_DELETE, VK_DOWN, VK_ESCAPE, VK_F4, VK_LBUTTON, VK_LEFT, VK_LSHIFT, VK_MENU, VK_RBUTTON,
        VK_RETURN, VK_RMENU, VK_RSHIFT, VK_SHIFT, VK_SPACE, VK_TAB, WHITENESS, WHITEONBLACK, WHITE_BRUSH,
        WS_CAPTION, WS_CHILD, WS_CLIPCHILDREN, WS_DISABLED, WS_EX_LAYERED, WS_EX_NOACTIVATE, WS_EX_TOOLWINDOW,
        WS_EX_TOPMOST, WS_OVERLAPPED, WS_OVERLAPPEDWINDOW, WS_POPUP, WS_TABSTOP, WS_THICKFRAME, WS_VISIBLE);
#undef QVUI_CONSTANTS
}

std::string Script::Take(Words& words)
{
    if (words.empty())
        throw std::runtime_error("an argument is missing");
    std::string word = words.front();
    words.pop_front();
    return word;
}

std::string Script::TextOf(const std::string& word) const
{
    const std::string kEscaped = "nrt0", kMeant("\n\r\t\0", 4);
    std::string text;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '"')
            continue;
        if (word[i] != '\\') {
            text += word[i];
        } else if (word[++i] == 'x') {
            text += static_cast<char>(std::stoi(word.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            const std::size_t known = kEscaped.find(word[i]);
            text += known == std::string::npos ? word[i] : kMeant[known];
        }
    }
    return text;
}

std::optional<long long> Script::Parsed(const std::string& word) const
{
    long long sum = 0;
    for (const std::string& part : Divided(word, "|")) {
        char* end = nullptr;
        if (const auto known = m_constants.find(part); known != m_constants.end())
            sum |= known->second;
        else if (part.size() == 3 && part[0] == '\'')
            sum |= part[1];
        else if (part.rfind("rgb:", 0) == 0)
            sum |= ColourOf(std::strtol(part.c_str() + 4, nullptr, 16));
        else if (part.rfind("WM_", 0) == 0)
            sum |= MessageNumber(part.substr(3)).value();
        else if (sum |= std::strtoll(part.c_str(), &end, 0); *end)
            return std::nullopt;
    }
    return word.empty() ? std::nullopt : std::optional(sum);
}

long long Script::Number(const std::string& word) const
{
    const auto number = Parsed(word);
    return number ? *number : throw std::runtime_error("no number: " + word);
}

std::vector<int> Script::Numbers(const std::string& word) const
{
    std::vector<int> numbers;
    for (const std::string& part : Divided(word, ","))
        numbers.push_back(static_cast<int>(Number(part)));
    return numbers;
}

POINT Script::PointOf(const std::string& word) const
{
    const std::vector<int> at = Numbers(word);
    return {at.at(0), at.at(1)};
}

void* Script::Handle(const std::string& name) const
{
    if (const auto known = m_handles.find(name); known != m_handles.end())
        return known->second;
    return name == "-" ? nullptr : reinterpret_cast<void*>(static_cast<INT_PTR>(Number(name)));
}

std::string Script::NameOf(const void* handle) const
{
    for (const auto& [name, known] : m_handles)
        if (known == handle && handle)
            return name;
    return handle ? "?" : "-";
}

// Whether words mean the same numbers.
bool Script::AreSame(const std::string& expected, const std::string& answer) const
{
    const Words wanted = Divided(expected, ","), is = Divided(answer, ",");
    return std::equal(wanted.begin(), wanted.end(), is.begin(), is.end(),
                      [this](const std::string& one, const std::string& other) {
                          const auto number = Parsed(one);
                          return number && number == Parsed(other);
                      });
}

// An answer in the words of the expected one where they mean the same.
std::string Script::Echo(const std::string& expected, const std::string& answer) const
{
    const Words wanted = WordsOf(expected);
    Words words = WordsOf(answer);
    for (std::size_t i = 0; i < words.size() && i < wanted.size(); ++i)
        if (AreSame(wanted[i], words[i]))
            words[i] = wanted[i];
    return std::accumulate(
        words.begin(), words.end(), std::string(),
        [](const std::string& line, const std::string& word) { return line + " " + word; });
}

std::string Script::Perform(const std::string& line, std::string* answer)
{
    const std::size_t end = (line + " ").find(" = ");
    Words words = WordsOf(line.substr(0, end));
    std::string name;
    if (words.size() > 1 && words[1] == ":=") {
        name = words[0];
        words.erase(words.begin(), words.begin() + 2);
    }
    const std::string verb = Take(words);
    const auto known = m_verbs.find(verb);
    if (known == m_verbs.end())
        throw std::runtime_error("no such function: " + verb);
    if (verb == "DeleteObject" || verb == "DeleteDC")
        std::erase(m_made, Handle(words.front()));
    const Answer result = known->second(words);
    if (!words.empty())
        throw std::runtime_error("not an argument: " + words.front());
    if (!name.empty()) {
        m_handles[name] = result.handle;
        if (kMakers.count(verb))
            m_made.push_back(result.handle);
    }
    if (end == std::string::npos || end >= line.size())
        return line;
    const std::string told = Echo(line.substr(std::min(line.size(), end + 3)), result.text);
    if (answer)
        *answer = told;
    return line.substr(0, end) + " =" + told;
}

Argument<const char*>::Argument(Script& script, Script::Words& words)
{
    const std::string word = script.Take(words);
    if (const auto number = script.Parsed(word))
        resource = MAKEINTRESOURCEA(*number);
    else if (word != "-")
        text = script.TextOf(word);
}

Argument<const RECT*>::Argument(Script& script, Script::Words& words)
{
    if (words.empty() || words.front() != "-")
        Read(script, words, rect.emplace());
    else
        words.pop_front();
}

void Read(Script& script, Script::Words& words, std::string& text)
{
    text = script.TextOf(script.Take(words));
}

void Read(Script& script, Script::Words& words, POINT& point)
{
    point = script.PointOf(script.Take(words));
}

void Read(Script& script, Script::Words& words, RECT& rect)
{
    const std::vector<int> at = script.Numbers(script.Take(words));
    rect = {at.at(0), at.at(1), at.at(2), at.at(3)};
}

void Read(Script&, Script::Words& words, Script::Words& all)
{
    all.swap(words);
}

void Script::EndCase()
{
    for (; !m_made.empty(); m_made.pop_back())
        if (!DeleteDC(static_cast<HDC>(m_made.back())))
            DeleteObject(m_made.back());
    m_handles.clear();
}

std::string Script::Run(const std::string& text)
{
    m_output.clear();
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("  ", 0) == 0)
            continue;
        const std::size_t at = m_output.size();
        const bool isCall = !line.empty() && line[0] != '#';
        std::string told = line;
        try {
            if (isCall)
                told = Perform(line);
        } catch (const std::exception& error) {
            ADD_FAILURE() << line << ": " << error.what();
        }
        m_output.insert(at, told + '\n');
        if (isCall)
            AfterLine();
        if (line.empty())
            EndCase();
    }
    EndCase();
    return m_output;
}

void Script::Check(const std::string& file)
{
    ExpectTranscript("platform/" + file, [this](const std::string& script) { return Run(script); });
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned char>(c));
        const bool isPlain = c >= ' ' && c <= '~' && c != '\\' && c != '"';
        quoted += isPlain ? std::string(1, c) : c == '\n' ? "\\n" : escape;
    }
    return quoted + '"';
}

std::vector<std::string> ScriptsOf(const std::string& folder)
{
    std::vector<std::string> files;
    for (const auto& file : std::filesystem::directory_iterator(TestFile("platform/" + folder)))
        files.push_back(folder + '/' + file.path().filename().string());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace qvui::test
