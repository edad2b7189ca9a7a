#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "native/text_services/document.h"

namespace qvui::native {

/// Builds a fragment piece by piece, in segments of a size that a document works well with.
class FragmentBuilder {
public:
    void Add(std::u16string_view text, FormatId format, FormatId paragraph);
    /// Ends the paragraph; the break has a format too.
    void Break(FormatId format, FormatId paragraph);
    int Units() const { return m_units; }
    Fragment Finish();

private:
    void Flush(bool endsParagraph);

    Fragment m_fragment;
    std::u16string m_text;
    FormatRuns m_formats;
    int m_formatted = 0;  // units that have a run
    FormatId m_paragraph = kDefaultFormat;
    int m_units = 0;
};

}  // namespace qvui::native
