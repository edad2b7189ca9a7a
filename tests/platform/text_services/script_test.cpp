// Scripts of operations on text services, each with the output that it makes, on both targets. With
// QVUI_UPDATE_SCENARIOS=1 in the environment the files are written anew, to be read in review.

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>

#include "platform/platform_test.h"
#include "platform/text_services/text_host.h"
#include "support/test_files.h"
#include "support/transcript.h"

namespace qvui::test {
namespace {

using WideText = std::basic_string<WCHAR>;

// Characters of scripts: \r, \n, \t, \\ and \uXXXX; all others are themselves.
WideText Unescaped(const std::string& text)
{
    WideText wide;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 >= text.size()) {
            wide += static_cast<WCHAR>(text[i]);
            continue;
        }
        switch (text[++i]) {
            case 'r':
                wide += '\r';
                break;
            case 'n':
                wide += '\n';
                break;
            case 't':
                wide += '\t';
                break;
            case 'u':
                wide += static_cast<WCHAR>(std::stoi(text.substr(i + 1, 4), nullptr, 16));
                i += 4;
                break;
            default:
                wide += static_cast<WCHAR>(text[i]);
        }
    }
    return wide;
}

std::string Escaped(const WideText& text)
{
    std::string out;
    for (const WCHAR unit : text) {
        char code[8];
        if (unit == '\r' || unit == '\n' || unit == '\t')
            out += unit == '\r' ? "\\r" : unit == '\n' ? "\\n" : "\\t";
        else if (unit < ' ' || unit > '~')
            out += (std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(unit)), code);
        else
            out += static_cast<char>(unit);
    }
    return out;
}

struct StreamedBytes {
    std::string bytes;
    std::size_t at = 0;
    std::size_t chunk = 4096;
};

DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* moved)
{
    auto& stream = *reinterpret_cast<StreamedBytes*>(cookie);
    const std::size_t count =
        std::min({static_cast<std::size_t>(size), stream.chunk, stream.bytes.size() - stream.at});
    std::copy_n(stream.bytes.begin() + static_cast<std::ptrdiff_t>(stream.at), count, buffer);
    stream.at += count;
    *moved = static_cast<LONG>(count);
    return 0;
}

DWORD CALLBACK WriteBytes(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* moved)
{
    reinterpret_cast<StreamedBytes*>(cookie)->bytes.append(reinterpret_cast<char*>(buffer),
                                                           static_cast<std::size_t>(size));
    *moved = size;
    return 0;
}

class Script {
public:
    ~Script()
    {
        Close();
        OpenClipboard(nullptr);
        EmptyClipboard();
        CloseClipboard();
    }

    /// What a line of a script answers.
    std::string Run(const std::string& line)
    {
        m_out.clear();
        std::istringstream words(line);
        const std::string verb = ReadWord(words);
        std::string rest;
        std::getline(words >> std::ws, rest);
        const auto deed = Verbs().find(verb);
        if (deed == Verbs().end())
            Print("unknown verb");
        else
            deed->second(*this, rest);
        return m_out;
    }

private:
    using Verb = std::function<void(Script&, const std::string&)>;

    void Print(const std::string& text) { m_out += "    " + text + "\n"; }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        LRESULT result = 0;
        m_services->TxSendMessage(message, wParam, lParam, &result);
        return result;
    }
    void PrintSent(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        Print(std::to_string(Send(message, wParam, lParam)));
    }

    void Open(const std::string& kind)
    {
        Close();
        m_host = TextHost();
        if (kind.find("plain") != std::string::npos)
            m_host.properties = TXTBIT_MULTILINE;
        if (kind.find("single") != std::string::npos)
            m_host.properties = 0;
        if (kind.find("readonly") != std::string::npos)
            m_host.properties |= TXTBIT_READONLY;
        if (kind.find("password") != std::string::npos)
            m_host.properties |= TXTBIT_USEPASSWORD;
        IUnknown* unknown = nullptr;
        using Create = HRESULT(WINAPI*)(IUnknown*, ITextHost*, IUnknown**);
        static const HMODULE module = LoadLibraryA("riched20.dll");
        const auto create =
            reinterpret_cast<Create>(reinterpret_cast<void*>(GetProcAddress(module, "CreateTextServices")));
        const IID iid{0x8D33F740, 0xCF58, 0x11CE, {0xA8, 0x9D, 0x00, 0xAA, 0x00, 0x6C, 0xAD, 0xC5}};
        create(nullptr, &m_host, &unknown);
        void* services = nullptr;
        unknown->QueryInterface(iid, &services);
        unknown->Release();
        m_services = static_cast<ITextServices*>(services);
        m_services->OnTxInPlaceActivate(nullptr);
    }

    void Close()
    {
        if (!m_services)
            return;
        m_services->OnTxInPlaceDeactivate();
        m_services->Release();
        m_services = nullptr;
    }

    std::string Text()
    {
        BSTR text = nullptr;
        m_services->TxGetText(&text);
        const std::string shown = text ? Escaped(WideText(text, SysStringLen(text))) : "";
        SysFreeString(text);
        return shown;
    }

    void Stream(DWORD flags, const std::string& bytes, std::size_t chunk)
    {
        StreamedBytes stream{bytes, 0, chunk};
        EDITSTREAM edit{reinterpret_cast<DWORD_PTR>(&stream), 0, ReadBytes};
        Send(EM_STREAMIN, flags, reinterpret_cast<LPARAM>(&edit));
        Print("error " + std::to_string(static_cast<int>(edit.dwError)) + " " + Text());
    }

    // "+b -i size 400 color 255": what is set.
    CHARFORMAT2W FormatOf(const std::string& rest)
    {
        static const std::map<char, DWORD> effects{
            {'b', CFM_BOLD}, {'i', CFM_ITALIC}, {'u', CFM_UNDERLINE}, {'s', CFM_STRIKEOUT}};
        CHARFORMAT2W format{};
        format.cbSize = sizeof format;
        std::istringstream words(rest);
        for (std::string word; words >> word;) {
            if (word == "size") {
                format.dwMask |= CFM_SIZE;
                words >> format.yHeight;
            } else if (word == "color") {
                format.dwMask |= CFM_COLOR;
                words >> format.crTextColor;
            } else {
                format.dwMask |= effects.at(word[1]);
                format.dwEffects |= word[0] == '+' ? effects.at(word[1]) : 0;
            }
        }
        return format;
    }

    static const std::map<std::string, Verb>& Verbs()
    {
        static const std::map<std::string, UINT> messages{{"canundo", EM_CANUNDO},
                                                          {"canredo", EM_CANREDO},
                                                          {"undo", EM_UNDO},
                                                          {"redo", EM_REDO},
                                                          {"emptyundo", EM_EMPTYUNDOBUFFER},
                                                          {"stopgroup", EM_STOPGROUPTYPING},
                                                          {"lines", EM_GETLINECOUNT},
                                                          {"lineindex", EM_LINEINDEX},
                                                          {"linelength", EM_LINELENGTH},
                                                          {"linefrom", EM_LINEFROMCHAR},
                                                          {"seltype", EM_SELECTIONTYPE},
                                                          {"copy", WM_COPY},
                                                          {"cut", WM_CUT},
                                                          {"paste", WM_PASTE},
                                                          {"clear", WM_CLEAR},
                                                          {"textlength", WM_GETTEXTLENGTH},
                                                          {"canpaste", EM_CANPASTE},
                                                          {"limit", EM_GETLIMITTEXT},
                                                          {"textmode", EM_GETTEXTMODE},
                                                          {"vscroll", WM_VSCROLL}};
        static const std::map<std::string, Verb> verbs = [] {
            std::map<std::string, Verb> all;
            for (const auto& [name, message] : messages)
                all[name] = [message = message](Script& s, const std::string& rest) {
                    s.PrintSent(message, static_cast<WPARAM>(rest.empty() ? 0 : std::stol(rest)));
                };
            all["open"] = [](Script& s, const std::string& rest) { s.Open(rest); };
            all["set"] = [](Script& s, const std::string& rest) {
                s.m_services->TxSetText(Unescaped(rest).c_str());
            };
            all["text"] = [](Script& s, const std::string&) { s.Print(s.Text()); };
            all["client"] = [](Script& s, const std::string& rest) {
                std::istringstream(rest) >> s.m_host.client.left >> s.m_host.client.top >>
                    s.m_host.client.right >> s.m_host.client.bottom;
                s.m_services->OnTxPropertyBitsChange(TXTBIT_CLIENTRECTCHANGE, TXTBIT_CLIENTRECTCHANGE);
            };
            all["type"] = [](Script& s, const std::string& rest) {
                for (const WCHAR unit : Unescaped(rest))
                    s.Send(WM_CHAR, unit);
            };
            all["key"] = [](Script& s, const std::string& rest) {
                static const std::map<std::string, int> keys{
                    {"left", VK_LEFT}, {"right", VK_RIGHT},   {"up", VK_UP},
                    {"down", VK_DOWN}, {"home", VK_HOME},     {"end", VK_END},
                    {"back", VK_BACK}, {"delete", VK_DELETE}, {"return", VK_RETURN}};
                std::istringstream words(rest);
                BYTE state[256]{};
                for (std::string word; words >> word;) {
                    if (word == "shift" || word == "ctrl") {
                        state[word == "shift" ? VK_SHIFT : VK_CONTROL] = 0x80;
                        continue;
                    }
                    SetKeyboardState(state);
                    s.Send(WM_KEYDOWN, static_cast<WPARAM>(word.size() == 1 ? word[0] : keys.at(word)));
                }
                BYTE up[256]{};
                SetKeyboardState(up);
            };
            all["select"] = [](Script& s, const std::string& rest) {
                CHARRANGE range{};
                std::istringstream(rest) >> range.cpMin >> range.cpMax;
                s.PrintSent(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
            };
            all["selection"] = [](Script& s, const std::string&) {
                CHARRANGE range{};
                s.Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
                s.Print(std::to_string(range.cpMin) + " " + std::to_string(range.cpMax));
            };
            all["replace"] = [](Script& s, const std::string& rest) {
                s.PrintSent(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Unescaped(rest).c_str()));
            };
            all["replacefinally"] = [](Script& s, const std::string& rest) {
                s.PrintSent(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Unescaped(rest).c_str()));
            };
            all["modified"] = [](Script& s, const std::string&) {
                s.Print(s.Send(EM_GETMODIFY) ? "yes" : "no");
            };
            all["position"] = [](Script& s, const std::string& rest) {
                POINTL point{};
                s.Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), std::stol(rest));
                s.Print(std::to_string(point.x) + " " + std::to_string(point.y));
            };
            all["hit"] = [](Script& s, const std::string& rest) {
                POINTL point{};
                std::istringstream(rest) >> point.x >> point.y;
                s.PrintSent(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point));
            };
            all["pointer"] = [](Script& s, const std::string& rest) {
                static const std::map<std::string, UINT> kinds{{"press", WM_LBUTTONDOWN},
                                                               {"move", WM_MOUSEMOVE},
                                                               {"release", WM_LBUTTONUP},
                                                               {"double", WM_LBUTTONDBLCLK}};
                std::string kind;
                int x = 0;
                int y = 0;
                std::istringstream(rest) >> kind >> x >> y;
                s.Send(kinds.at(kind), kind == "release" ? 0 : MK_LBUTTON, MAKELPARAM(x, y));
            };
            all["textrange"] = [](Script& s, const std::string& rest) {
                std::vector<WCHAR> buffer(1000);
                TEXTRANGEW range{{}, buffer.data()};
                std::istringstream(rest) >> range.chrg.cpMin >> range.chrg.cpMax;
                const LRESULT count = s.Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
                s.Print(std::to_string(count) + " " + Escaped(buffer.data()));
            };
            all["gettext"] = [](Script& s, const std::string& rest) {
                std::vector<WCHAR> buffer(1000);
                const LRESULT count = s.Send(WM_GETTEXT, static_cast<WPARAM>(std::stol(rest)),
                                             reinterpret_cast<LPARAM>(buffer.data()));
                s.Print(std::to_string(count) + " " + Escaped(buffer.data()));
            };
            all["find"] = [](Script& s, const std::string& rest) {
                FINDTEXTEXW find{};
                DWORD flags = 0;
                std::string wanted;
                std::istringstream(rest) >> flags >> find.chrg.cpMin >> find.chrg.cpMax >> wanted;
                const WideText wide = Unescaped(wanted);
                find.lpstrText = wide.c_str();
                s.PrintSent(EM_FINDTEXTEXW, flags, reinterpret_cast<LPARAM>(&find));
            };
            all["format"] = [](Script& s, const std::string& rest) {
                const CHARFORMAT2W format = s.FormatOf(rest);
                s.PrintSent(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
            };
            all["defaultformat"] = [](Script& s, const std::string& rest) {
                const CHARFORMAT2W format = s.FormatOf(rest);
                s.PrintSent(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
            };
            all["formatis"] = [](Script& s, const std::string&) {
                CHARFORMAT2W format{};
                format.cbSize = sizeof format;
                s.Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
                std::string shown;
                for (const auto& [letter, bit] : std::map<char, DWORD>{
                         {'b', CFM_BOLD}, {'i', CFM_ITALIC}, {'u', CFM_UNDERLINE}, {'s', CFM_STRIKEOUT}})
                    shown += !(format.dwMask & bit) ? '?' : format.dwEffects & bit ? letter : '-';
                s.Print(shown + " " + (format.dwMask & CFM_SIZE ? std::to_string(format.yHeight) : "?"));
            };
            all["paragraph"] = [](Script& s, const std::string& rest) {
                PARAFORMAT2 format{};
                format.cbSize = sizeof format;
                std::istringstream words(rest);
                std::string name;
                for (LONG value = 0; words >> name >> value;) {
                    if (name == "align") {
                        format.dwMask |= PFM_ALIGNMENT;
                        format.wAlignment = static_cast<WORD>(value);
                    } else if (name == "indent") {
                        format.dwMask |= PFM_STARTINDENT;
                        format.dxStartIndent = value;
                    } else if (name == "before") {
                        format.dwMask |= PFM_SPACEBEFORE;
                        format.dySpaceBefore = value;
                    }
                }
                s.PrintSent(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
            };
            all["paragraphis"] = [](Script& s, const std::string&) {
                PARAFORMAT2 format{};
                format.cbSize = sizeof format;
                s.Send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
                s.Print((format.dwMask & PFM_ALIGNMENT ? std::to_string(format.wAlignment) : "?") + " " +
                        std::to_string(format.dxStartIndent));
            };
            all["stream"] = [](Script& s, const std::string& rest) { s.Stream(SF_TEXT, rest, 4096); };
            all["rtf"] = [](Script& s, const std::string& rest) { s.Stream(SF_RTF, rest, 4096); };
            all["rtfselection"] = [](Script& s, const std::string& rest) {
                s.Stream(SF_RTF | SFF_SELECTION, rest, 4096);
            };
            all["roundtrip"] = [](Script& s, const std::string&) {
                StreamedBytes out;
                EDITSTREAM edit{reinterpret_cast<DWORD_PTR>(&out), 0, WriteBytes};
                s.Send(EM_STREAMOUT, SF_RTF, reinterpret_cast<LPARAM>(&edit));
                s.Stream(SF_RTF, out.bytes, 4096);
            };
            all["writetext"] = [](Script& s, const std::string&) {
                StreamedBytes out;
                EDITSTREAM edit{reinterpret_cast<DWORD_PTR>(&out), 0, WriteBytes};
                const LRESULT count = s.Send(EM_STREAMOUT, SF_TEXT, reinterpret_cast<LPARAM>(&edit));
                s.Print(std::to_string(count) + " " + Escaped(WideText(out.bytes.begin(), out.bytes.end())));
            };
            all["listen"] = [](Script& s, const std::string&) {
                s.Send(EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_SELCHANGE);
                s.m_host.notes.clear();
            };
            all["notes"] = [](Script& s, const std::string&) {
                for (const std::string& note : s.m_host.notes)
                    if (note.starts_with("change") || note.starts_with("selection"))
                        s.Print(note);
                s.m_host.notes.clear();
            };
            all["setlimit"] = [](Script& s, const std::string& rest) {
                s.PrintSent(EM_EXLIMITTEXT, 0, std::stol(rest));
            };
            all["vertical"] = [](Script& s, const std::string&) {
                LONG least = 0, most = 0, position = 0, page = 0;
                BOOL isEnabled = FALSE;
                s.m_services->TxGetVScroll(&least, &most, &position, &page, &isEnabled);
                s.Print(std::to_string(most) + " " + std::to_string(position) + " " + std::to_string(page));
            };
            all["focus"] = [](Script& s, const std::string&) { s.Send(WM_SETFOCUS); };
            all["wheel"] = [](Script& s, const std::string& rest) {
                s.PrintSent(WM_MOUSEWHEEL,
                            static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(0, std::stoi(rest)))));
            };
            return all;
        }();
        return verbs;
    }

    TextHost m_host;
    ITextServices* m_services = nullptr;
    std::string m_out;
};

std::vector<std::string> ScriptNames()
{
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(TestFile("platform/text_services/scripts")))
        names.push_back(file.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class TextServicesScriptTest : public PlatformTest, public testing::WithParamInterface<std::string> {};

TEST_P(TextServicesScriptTest, GoesAsItIsWritten)
{
    Script script;
    ExpectTranscript("platform/text_services/scripts/" + GetParam() + ".txt",
                     LineByLine([&script](const std::string& line) { return script.Run(line); }));
}

INSTANTIATE_TEST_SUITE_P(All, TextServicesScriptTest, testing::ValuesIn(ScriptNames()),
                         [](const auto& script) { return script.param; });

}  // namespace
}  // namespace qvui::test
