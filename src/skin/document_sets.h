#pragma once

#include <algorithm>
#include <iterator>

#include <qvui/skin/resource_manager.h>
#include <qvui/skin/xml_document.h>

namespace DUI {

/// Reads every entry of every set of the given kinds. The kinds come in their order: a set that stands behind
/// one of a later kind is not seen. 0 for an ill-formed document.
template <std::size_t Count>
int CResMgr::ReadSets(const CString& xml, const SetKind (&kinds)[Count])
{
    CXmlDocument document;
    if (!document.SetDocument(xml))
        return 0;
    const SetKind* kind = kinds;
    while (document.FindChildElement()) {
        const CString set = document.GetChildTagName();
        const SetKind* const found =
            std::find_if(kind, std::end(kinds), [&](const SetKind& later) { return set == later.set; });
        if (found == std::end(kinds))
            continue;
        kind = found;
        document.IntoElement();
        while (document.FindChildElement(kind->entry))
            (this->*kind->read)(document);
        document.OutOfElement();
    }
    return 1;
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
