#include "framework/control_styles.h"

#include <string>
#include <unordered_map>

#include <qvui/skin/xml/xml_document.h>

namespace DUI {
namespace {

// More styles than any skin has; a program that makes them up without end must not grow without end.
constexpr std::size_t kMostStyles = 4096;

using Cache = std::unordered_map<std::string, std::shared_ptr<const StyleAttributes>>;

Cache& TheCache()
{
    static Cache cache;
    return cache;
}

std::shared_ptr<const StyleAttributes> Parse(const CString& xml)
{
    CXmlDocument document;
    if (!document.SetDocument(xml) || !document.FindElement("control_style"))
        return nullptr;
    auto attributes = std::make_shared<StyleAttributes>();
    for (int i = 0;; ++i) {
        const CString name = document.GetAttributeName(i);
        if (name.IsEmpty())
            return attributes;
        if (!EqualNoCase(name.View(), "name") && !EqualNoCase(name.View(), "control_style"))
            attributes->push_back({name, document.GetAttribute(name)});
    }
}

}  // namespace

std::shared_ptr<const StyleAttributes> ReadControlStyle(const CString& xml)
{
    Cache& cache = TheCache();
    const auto found = cache.find(std::string(xml.View()));
    if (found != cache.end())
        return found->second;
    if (cache.size() >= kMostStyles)
        cache.clear();
    return cache[std::string(xml.View())] = Parse(xml);
}

void ForgetControlStyles()
{
    TheCache().clear();
}

}  // namespace DUI
