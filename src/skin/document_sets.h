#pragma once

#include <qvui/skin/resource_manager.h>
#include <qvui/skin/xml/xml_document.h>

namespace DUI {

/// Stores the text of the current child element under its "name".
inline void ReadFragment(CXmlDocument& xml, CNameTable<CString>& table)
{
    const CString name = xml.GetChildAttribute("name");
    xml.IntoElement();
    table[name] = xml.GetSubDocument();
    xml.OutOfElement();
}

}  // namespace DUI
