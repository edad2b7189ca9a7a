#pragma once

#include <algorithm>
#include <iterator>

#include <qvui/skin/resource_manager.h>
#include <qvui/skin/xml_document.h>

namespace DUI {

/// Reads every entry of every set of the given kinds. The kinds come in their order: a set that stands behind
/// one of a later kind is not seen.
template <std::size_t Count>
void CResMgr::ReadSets(CXmlDocument& xml, const SetKind (&kinds)[Count])
{
    const SetKind* kind = kinds;
    while (xml.FindChildElement()) {
        const CString set = xml.GetChildTagName();
        const SetKind* const found =
            std::find_if(kind, std::end(kinds), [&](const SetKind& later) { return set == later.set; });
        if (found == std::end(kinds))
            continue;
        kind = found;
        xml.IntoElement();
        while (xml.FindChildElement(kind->entry))
            (this->*kind->read)(xml);
        xml.OutOfElement();
    }
}

/// Stores the whole text of the child element under its name.
inline void ReadFragment(CXmlDocument& xml, CNameTable<CString>& table)
{
    const CString name = xml.GetChildAttribute("name");
    xml.IntoElement();
    table[name] = xml.GetSubDocument();
    xml.OutOfElement();
}

inline bool IsTrue(const CString& text)
{
    return EqualNoCase(text.View(), "true");
}

}  // namespace DUI
