#include "skin/xml/scan.h"

namespace DUI {

// Skips stray punctuation between attributes; quotations are skipped as a whole.
std::size_t SkipXmlStrays(std::string_view tag, std::size_t at)
{
    while (at < tag.size() && IsXml(tag[at], kXmlNameEnd))
        at = IsXmlQuote(tag[at]) ? XmlQuotationEnd(tag, at) : at + 1;
    return at;
}

std::string_view FindXmlAttribute(std::string_view tag, std::string_view name)
{
    XmlAttribute attribute;
    std::size_t position = SkipXmlName(tag, 1);
    while (ReadXmlAttribute(tag, position, attribute)) {
        if (attribute.name == name)
            return attribute.value;
        position = attribute.end;
    }
    return {};
}

}  // namespace DUI
