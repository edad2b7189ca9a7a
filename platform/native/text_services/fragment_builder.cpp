#include "native/text_services/fragment_builder.h"

#include <algorithm>

namespace qvui::native {
namespace {

constexpr std::size_t kUsualUnits = 4096;

}  // namespace

void FragmentBuilder::Add(std::u16string_view text, FormatId format, FormatId paragraph)
{
    m_paragraph = paragraph;
    while (!text.empty()) {
        const std::u16string_view part = text.substr(0, kUsualUnits);
        m_text += part;
        m_formats.Append(FormatRuns(format), m_formatted, static_cast<int>(part.size()));
        m_formatted += static_cast<int>(part.size());
        text.remove_prefix(part.size());
        if (m_text.size() > kUsualUnits)
            Flush(false);
    }
}

void FragmentBuilder::Break(FormatId format, FormatId paragraph)
{
    m_paragraph = paragraph;
    m_formats.Append(FormatRuns(format), m_formatted, 1);
    ++m_formatted;
    Flush(true);
}

// Moves what has been added to the fragment. Without the paragraph's end its last part stays, to be divided
// well.
void FragmentBuilder::Flush(bool endsParagraph)
{
    std::u16string rest;
    FormatRuns restFormats;
    if (!endsParagraph && m_text.size() > kUsualUnits) {
        const int cut = BestCut(m_text, static_cast<int>(kUsualUnits));
        rest = m_text.substr(static_cast<std::size_t>(cut));
        m_text.resize(static_cast<std::size_t>(cut));
        restFormats = m_formats.Cut(cut, m_formatted);
    }
    Segment segment;
    segment.text = SegmentText::CopyOf(m_text);
    segment.formats = std::move(m_formats);
    segment.paragraph = m_paragraph;
    segment.endsParagraph = endsParagraph;
    m_units += segment.Units();
    m_fragment.segments.push_back(std::move(segment));
    m_text = std::move(rest);
    m_formats = std::move(restFormats);
    m_formatted = static_cast<int>(m_text.size());
}

Fragment FragmentBuilder::Finish()
{
    if (!m_text.empty())
        Flush(false);
    return std::move(m_fragment);
}

}  // namespace qvui::native
