#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include <qvui/skin/xml/xml_document.h>

#include "skin/xml/log.h"

namespace DUI {

/// Builds the index of a document in one pass over its text. Takes linear time and memory for any input;
/// nothing is recursive.
class CXmlDocument::Parser {
public:
    explicit Parser(CXmlDocument& document);
    void Run();

private:
    /// An open element and its last child so far.
    struct Level {
        std::uint32_t element;
        std::uint32_t lastChild;
    };

    void ParseConstruct();
    void ParseExclamation();
    void SkipTo(std::string_view end, std::size_t openerLength, const char* word);
    void SkipDocumentType();
    void ParseStartTag();
    void AddElement(std::size_t tagLength, bool isEmpty);
    void ParseEndTag();
    bool IsOpen(std::string_view name);
    void CloseUnended(std::size_t end);
    void Leave();
    void CheckRoot();
    /// Logs a problem at the current position and marks the document as ill-formed.
    void Report(const char* word);
    void Report(const char* word, std::string_view tag, std::size_t offset);

    CXmlDocument& m_document;
    std::vector<Element>& m_elements;
    std::string_view m_text;
    XmlLog m_log;
    std::size_t m_at = 0;
    std::vector<Level> m_levels;  // the document first, the innermost open element last
    // The number of open elements of each name. Maintained only after an end tag has failed to match the
    // innermost element.
    std::unordered_map<std::string_view, std::size_t> m_openNames;
    bool m_countsNames = false;
};

}  // namespace DUI
