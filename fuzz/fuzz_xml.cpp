// The XML reader: a file's bytes are decoded, parsed and walked, and every value is read.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include <qvui/skin/xml/xml_document.h>

#include "skin/xml/text_file.h"

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

// Names to ask for: those of the format, and those that the document's elements have or begin with.
std::set<std::string> g_names;

void AddNames(std::string_view tag)
{
    constexpr std::size_t kMostNames = 16;
    for (const std::size_t length : {tag.size(), tag.size() / 2})
        if (g_names.size() < kMostNames)
            g_names.emplace(tag.substr(0, length));
}

// Each name ends where its memory ends.
void AskForNames(DUI::CXmlDocument& xml)
{
    for (const int flags : {0, int{DUI::CXmlDocument::kIgnoreCase}})
        for (const std::string& name : g_names) {
            const std::vector<char> exact(name.c_str(), name.c_str() + std::strlen(name.c_str()) + 1);
            xml.SetFlags(flags);
            xml.ResetPosition();
            xml.FindElement(exact.data());
            xml.ResetPosition();
            while (xml.FindChildElement(exact.data()))
                xml.GetChildAttribute(exact.data());
            xml.GetAttribute(exact.data());
        }
}

void Walk(DUI::CXmlDocument& xml)
{
    int depth = 0;
    ReadValues(xml);
    while (true) {
        if (xml.FindChildElement()) {
            AddNames(xml.GetChildTagName().View());
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
    // As from a file, and as from a module, where zero bytes stay.
    for (const CString& text : {DUI::DecodeXmlText(bytes, log, flags), CString::FromUtf8(bytes)}) {
        g_names = {"color_set", "window", "string", "a/b"};
        xml.SetDocument(text);
        while (xml.FindElement())
            Walk(xml);
        AskForNames(xml);
        // The log is a document itself.
        DUI::CXmlDocument logDocument;
        if (!logDocument.SetDocument("<log>" + log + xml.GetResult() + "</log>"))
            __builtin_trap();
    }
    DUI::UnescapeXml(bytes);
    return 0;
}
