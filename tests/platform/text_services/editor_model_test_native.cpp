// The editor against a model that holds one string, and the view against itself, under random edits.

#include <random>

#include "native/text_services/editor.h"
#include "platform/platform_test.h"

using namespace qvui::native;

namespace {

struct Model {
    std::u16string text;           // with the final mark
    std::vector<LONG> heights;     // of each unit
    std::vector<WORD> alignments;  // of each paragraph

    bool operator==(const Model&) const = default;
};

Model ModelOf(Editor& editor)
{
    Model model;
    const Document& document = editor.Text();
    model.text = document.Text(0, document.Length() + 1);
    for (const Document::FormatSpan& span : document.Formats(0, document.Length() + 1))
        model.heights.insert(model.heights.end(), static_cast<std::size_t>(span.last - span.first),
                             editor.CharFormats()[span.format].height);
    for (const Document::FormatSpan& span : document.ParagraphFormats(0, document.Length() + 1))
        model.alignments.push_back(editor.ParaFormats()[span.format].alignment);
    return model;
}

class EditorModelTest : public PlatformTest {
protected:
    int Random(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(std::max(1, limit))); }

    std::u16string RandomText(int longest)
    {
        static const std::u16string alphabet = u"abcdefgh  \r\u05D0\u05D1\u4E2D\u0301\t";
        std::u16string text;
        for (int left = Random(longest); left > 0; --left)
            text += alphabet[static_cast<std::size_t>(Random(static_cast<int>(alphabet.size())))];
        return text;
    }

    std::mt19937 m_random{20260611};
};

TEST_F(EditorModelTest, EditsFormatsAndHistoryAgreeWithOneString)
{
    Editor editor;
    editor.View().Configure({120, true, false, 0});
    std::vector<Model> past;
    std::vector<Model> future;
    editor.SetText(std::u16string(9000, u'x') + u" end");  // several segments of one paragraph
    Model model = ModelOf(editor);
    for (int step = 0; step < 1500; ++step) {
        const int length = static_cast<int>(model.text.size()) - 1;
        const int first = Random(length + 1);
        const int last = std::min(length, first + Random(step % 7 == 0 ? 3000 : 12));
        editor.Select(first, last);
        const Model before = model;
        const int deed = Random(10);
        if (deed < 4) {
            const std::u16string text = RandomText(step % 11 == 0 ? 4000 : 20);
            const LONG height = editor.InsertionFormat().height;
            editor.ReplaceSelection(text);
            model.text.replace(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first), text);
            model.heights.erase(model.heights.begin() + first, model.heights.begin() + last);
            model.heights.insert(model.heights.begin() + first, text.size(), height);
            if (text.empty() && first == last)
                continue;
        } else if (deed < 6) {
            if (first == last)
                continue;
            editor.DeleteSelection();
            model.text.erase(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
            model.heights.erase(model.heights.begin() + first, model.heights.begin() + last);
        } else if (deed == 6) {
            if (first == last)
                continue;
            const LONG height = 200 + 20 * Random(3);
            editor.FormatSelection([&](CharFormat& format) { format.height = height; });
            std::fill(model.heights.begin() + first, model.heights.begin() + last, height);
        } else if (deed == 7) {
            const WORD alignment = static_cast<WORD>(PFA_LEFT + Random(3));
            editor.FormatParagraphs([&](ParaFormat& format) { format.alignment = alignment; });
        } else if (deed == 8) {
            if (past.empty())
                continue;
            ASSERT_TRUE(editor.Undo());
            future.push_back(model);
            model = past.back();
            past.pop_back();
            ASSERT_EQ(ModelOf(editor), model) << "undo, step " << step;
            continue;
        } else {
            if (future.empty())
                continue;
            ASSERT_TRUE(editor.Redo());
            past.push_back(model);
            model = future.back();
            future.pop_back();
            ASSERT_EQ(ModelOf(editor), model) << "redo, step " << step;
            continue;
        }
        const Model now = ModelOf(editor);
        ASSERT_EQ(now.text, model.text) << step;
        ASSERT_EQ(now.heights, model.heights) << step;
        model = now;
        past.push_back(before);
        if (past.size() > static_cast<std::size_t>(UndoHistory::kDefaultLimit))
            past.erase(past.begin());
        future.clear();
    }
}

// Whatever order its parts are laid out in, a text has the lines that laying it out at once gives it.
TEST_F(EditorModelTest, LayoutInPartsAgreesWithLayoutAtOnce)
{
    for (const bool wraps : {true, false}) {
        Editor editor;
        editor.View().Configure({150, wraps, false, 0});
        std::u16string text;
        while (text.size() < 30000)
            text += RandomText(400) + (Random(4) ? u" " : u"");
        std::replace(text.begin(), text.begin() + 14000, u'\r', u' ');
        editor.SetText(text);
        for (int step = 0; step < 200; ++step) {
            const int length = editor.Text().Length();
            const int first = Random(length + 1);
            editor.Select(first, std::min(length, first + Random(5)));
            editor.Type(RandomText(6));
            const Caret caret{Random(editor.Text().Length() + 1), false};
            const TextView::Box box = editor.View().Locate(caret);
            // Between characters of one cluster there is no place of its own.
            if (editor.View().IsCaretPosition(caret.position))
                editor.View().Hit(box.x, box.y + box.height / 2);
            editor.View().SetTop(Random(static_cast<int>(editor.View().Height())));
            editor.View().MeasureView(100);
        }
        Editor again;
        again.View().Configure({150, wraps, false, 0});
        again.SetText(editor.Text().Text(0, editor.Text().Length()));
        ASSERT_EQ(editor.View().LineCount(), again.View().LineCount());
        for (int line = 0; line < again.View().LineCount(); ++line) {
            ASSERT_EQ(editor.View().LineAt(line).first, again.View().LineAt(line).first) << line;
            ASSERT_EQ(editor.View().LineAt(line).last, again.View().LineAt(line).last) << line;
        }
        EXPECT_EQ(editor.View().Height(), again.View().Height());
    }
}

}  // namespace
