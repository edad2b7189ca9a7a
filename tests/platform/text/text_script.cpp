#include "platform/text/text_script.h"

using qvui::test::Quoted;

namespace {

const RECT kAll{0, 0, 400, 200};

}  // namespace

TextScript::TextScript()
{
    TextScript::EndCase();
    QVUI_CALLS(ExtTextOutA, IntersectClipRect, SetViewportOrgEx);
    Call("calc", [this](std::string text, RECT rect, UINT format) {
        int result = 0;
        const RECT calculated = m_canvas->Calculated(text, rect, format, &result);
        return RectText(calculated) + ' ' + std::to_string(result);
    });
    // How many bytes fit, and the width up to each byte
    Call("fits", [this](std::string text, int width) {
        int fit = -1;
        std::vector<int> widths(text.size());
        SIZE size{};
        GetTextExtentExPointA(*m_canvas, text.data(), static_cast<int>(text.size()), width, &fit,
                              widths.data(), &size);
        std::string answer = std::to_string(fit);
        for (const int each : widths)
            answer += ' ' + std::to_string(each);
        return answer;
    });
    Call("draw", [this](LPCSTR text, RECT rect, UINT format, std::optional<int> length) {
        m_canvas->Fill(0);
        return DrawTextA(*m_canvas, text, length.value_or(-1), &rect, format);
    });
    Call("looks", [this](Words words) {
        TextCanvas expected;
        while (!words.empty()) {
            const POINT at = PointOf(Take(words));
            expected.Out(at.x, at.y, TextOf(Take(words)));
        }
        return Shows(expected, kAll);
    });
    Call("looks-in", [this](RECT part, POINT at, std::string text) {
        TextCanvas expected;
        expected.Out(at.x, at.y, text);
        expected.Paint([&](int x, int y) { return Holds(part, x, y) ? expected.At(x, y) : 0; });
        return Shows(expected, kAll);
    });
    Call("underlined", [this](std::string text, int first, int last) {
        TextCanvas expected;
        expected.Out(0, 0, text);
        const int row = expected.Metrics().tmAscent + 1;
        for (int x = first; x < last - 1; ++x)
            expected.Set(x, row, 0x00010101);
        expected.Set(last - 1, row, m_canvas->At(last - 1, row));  // the targets differ in the last pixel
        return Shows(expected, kAll);
    });
    Call("column", [this](int x, std::string text) {
        TextCanvas expected;
        expected.Out(x, 0, text);
        return Shows(expected, {x, 0, kAll.right, kAll.bottom});
    });
    Call("modified", [this](std::string text, int width, UINT format, std::optional<int> height) {
        return Quoted(m_canvas->Modified(text, width, format, height.value_or(1000)));
    });
}

void TextScript::EndCase()
{
    Script::EndCase();
    m_canvas = std::make_unique<TextCanvas>();
    Name("canvas", static_cast<HDC>(*m_canvas));
}

bool TextScript::Shows(const Canvas& expected, const RECT& part) const
{
    for (int y = part.top; y < part.bottom; ++y)
        for (int x = part.left; x < part.right; ++x)
            if (m_canvas->At(x, y) != expected.At(x, y))
                return false;
    return true;
}

std::optional<long long> TextScript::Parsed(const std::string& word) const
{
    const std::map<char, int> units{{'L', m_canvas->LineHeight()},
                                    {'H', m_canvas->LineHeight() / 2},
                                    {'A', m_canvas->Metrics().tmAveCharWidth}};
    long long sum = 0;
    for (std::size_t at = 0; at < word.size();) {
        const int sign = word[at] == '-' ? -1 : 1;
        at += word[at] == '-' || word[at] == '+' ? 1 : 0;
        const bool isWidth = word.compare(at, 3, "w(\"") == 0;
        const std::size_t end =
            isWidth ? word.find(')', at) + 1 : std::min(word.size(), word.find_first_of("+-", at));
        const std::string term = word.substr(at, end - at);
        at = end;
        if (isWidth) {
            sum += sign * m_canvas->Width(TextOf(term.substr(2, term.size() - 3)));
            continue;
        }
        const std::size_t digits = std::min(term.size(), term.find_first_not_of("0123456789"));
        const auto unit = digits + 1 == term.size() ? units.find(term.back()) : units.end();
        const bool isUnit = unit != units.end();
        const auto number =
            isUnit && digits == 0 ? 1 : Script::Parsed(isUnit ? term.substr(0, digits) : term);
        if (!number)
            return std::nullopt;
        sum += sign * *number * (isUnit ? unit->second : 1);
    }
    return word.empty() ? std::nullopt : std::optional(sum);
}
