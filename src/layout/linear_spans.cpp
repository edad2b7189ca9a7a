#include "layout/linear_spans.h"

#include "controls/geometry.h"

namespace DUI::layout {
namespace {

using geometry::Narrow;

LONGLONG FlexibleShare(const Line& line, std::size_t children, const AskChild& ask)
{
    LONGLONG rest = line.length;
    LONGLONG flexible = 0;
    for (std::size_t i = 0; i < children; ++i) {
        if (i > 0)
            rest -= line.gap;
        const LONG wanted = ask(i, Narrow(rest));
        rest -= wanted;
        flexible += wanted == 0;
    }
    return rest > 0 && flexible > 0 ? rest / flexible : 0;
}

}  // namespace

LinearSpans DivideLine(const Line& line, std::size_t children, const AskChild& ask)
{
    const LONGLONG share = FlexibleShare(line, children, ask);
    LinearSpans result;
    result.spans.reserve(children);
    LONGLONG used = 0;
    for (std::size_t i = 0; i < children; ++i) {
        const LONG wanted = ask(i, Narrow(line.length - used));
        result.spans.push_back({line.start + used, wanted != 0 ? wanted : share});
        used += result.spans.back().length + line.gap;
    }
    result.content = children > 0 ? used - line.gap : 0;
    return result;
}

void FillLine(const Line& line, LinearSpans& spans)
{
    if (!spans.spans.empty() && spans.content < line.length)
        spans.spans.back().length += line.length - spans.content;
}

}  // namespace DUI::layout
