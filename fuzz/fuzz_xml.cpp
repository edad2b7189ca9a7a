// The XML reader: a file's bytes are decoded, parsed and walked, and every value is read.

#include <cstddef>
#include <cstdint>
#include <string>

#include <qvui/skin/xml_document.h>

#include "skin/xml_text_file.h"

namespace {

void ReadValues(DUI::CXmlDocument& xml)
{
    for (int i = 0;; ++i) {
        const CString name = xml.GetAttributeName(i);
        if (name.IsEmpty())
            break;
        xml.GetAttribute(name);
        xml.GetAttributeOffset(name);
    }
    xml.GetTagName();
    xml.GetElementOffset();
    xml.GetChildOffset();
}

// Data and sub-documents hold everything below them, so they are read near the root alone.
constexpr int kDeep = 3;

void Walk(DUI::CXmlDocument& xml)
{
    int depth = 0;
    ReadValues(xml);
    while (true) {
        if (xml.FindChildElement()) {
            xml.GetChildTagName();
            xml.GetChildAttribute("name");
            if (depth < kDeep)
                xml.GetChildData();
            xml.IntoElement();
            ++depth;
            ReadValues(xml);
            if (depth < kDeep)
                xml.GetSubDocument();
        } else if (depth-- == 0 || !xml.OutOfElement()) {
            break;
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CString log;
    int flags = 0;
    DUI::CXmlDocument xml;
    xml.SetFlags(size % 2 ? DUI::CXmlDocument::kIgnoreCase : 0);
    xml.SetDocument(DUI::DecodeXmlText(bytes, log, flags));
    while (xml.FindElement())
        Walk(xml);
    xml.ResetPosition();
    xml.FindChildElement("color_set");
    // The log is a document itself.
    DUI::CXmlDocument logDocument;
    if (!logDocument.SetDocument("<log>" + log + xml.GetResult() + "</log>"))
        __builtin_trap();
    DUI::UnescapeXml(bytes);
    return 0;
}
