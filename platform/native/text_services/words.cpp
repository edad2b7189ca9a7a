#include "native/text_services/words.h"

#include <glib.h>

namespace qvui::native {
namespace {

// From here on there are scripts that put no spaces between words.
constexpr char16_t kFirstWithoutSpaces = 0x0E00;

}  // namespace

Words::Kind Words::KindAt(Position position) const
{
    if (position >= m_document.Length())
        return Kind::Break;
    const char16_t unit = m_document.At(position);
    if (unit == u'\r' || unit == u'\v')
        return Kind::Break;
    if (unit == u' ' || unit == u'\t' || unit == 0x00A0 || unit == 0x3000)
        return Kind::Space;
    if ((unit & 0xF800) == 0xD800 || unit == u'_' || unit == 0x200D)
        return Kind::Letter;
    return g_unichar_isalnum(unit) || g_unichar_ismark(unit) ? Kind::Letter : Kind::Punctuation;
}

// Whether a word starts at a position, which has a character before it.
bool Words::IsBorder(Position position) const
{
    const Kind before = KindAt(position - 1);
    const Kind after = KindAt(position);
    if (before == Kind::Break || after == Kind::Break)
        return true;
    if (after == Kind::Space)
        return false;
    if (before != after)
        return true;
    return after == Kind::Letter && m_document.At(position) >= kFirstWithoutSpaces &&
           m_view.IsWordBoundary(position);
}

Words::Position Words::Next(Position position) const
{
    if (position >= m_document.Length())
        return m_document.Length();
    do
        ++position;
    while (position < m_document.Length() && !IsBorder(position));
    return position;
}

Words::Position Words::Previous(Position position) const
{
    if (position <= 0)
        return 0;
    do
        --position;
    while (position > 0 && !IsBorder(position));
    return position;
}

Words::Span Words::Around(Position position) const
{
    Position first = position;
    while (first > 0 && !IsBorder(first))
        --first;
    return {first, Next(position)};
}

Words::Span Words::Bare(Position position) const
{
    Span span = Around(position);
    while (span.last > span.first && KindAt(span.last - 1) == Kind::Space)
        --span.last;
    if (KindAt(span.first) == Kind::Break)
        span.last = span.first;
    return span;
}

}  // namespace qvui::native
