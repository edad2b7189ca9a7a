#pragma once

#include <vector>

#include <qvui/skin/document_schema.h>
#include <qvui/skin/xml/xml_document.h>

namespace DUI {

/// An attribute of an entry with what takes its value. The readers go through tables of these, and the schema
/// of the documents is made of the same tables.
template <class Target>
struct EntryField : EntryAttribute {
    constexpr EntryField(const char* fieldName, AttributeKind fieldKind, const char* fieldDescription,
                         Target fieldTarget, DocumentWords (*fieldWords)() = nullptr,
                         AttributeRules fieldRules = {})
        : EntryAttribute{fieldName, fieldKind, fieldDescription, fieldWords, {}, fieldRules},
          target(fieldTarget)
    {
    }
    /// An integer.
    constexpr EntryField(const char* fieldName, IntegerRange fieldRange, const char* fieldDescription,
                         Target fieldTarget)
        : EntryAttribute{fieldName, AttributeKind::Integer, fieldDescription, nullptr, fieldRange},
          target(fieldTarget)
    {
    }

    Target target;
};
/// One whose text a record keeps as it stands.
template <class Record>
using TextField = EntryField<CString Record::*>;

inline constexpr IntegerRange kFontWeights{0, 999};
inline constexpr IntegerRange kIconCounts{1};
inline constexpr IntegerRange kResourceIds{0, 0xFFFF};

using EntryAttributes = std::vector<EntryAttribute>;

template <class Field, std::size_t Count>
EntryAttributes AttributesOf(const Field (&fields)[Count])
{
    return {std::begin(fields), std::end(fields)};
}

/// A record that is there already takes over what the entry says, missing attributes as empty texts.
template <class Record, class Base, std::size_t Count>
void ReadFields(const CXmlDocument& xml, const TextField<Base> (&fields)[Count], Record& record)
{
    for (const auto& field : fields)
        record.*field.target = xml.GetChildAttribute(field.name);
}

// The tables, each from the file that reads the entries.
EntryAttributes StringAttributes();
EntryAttributes ColorAttributes();
EntryAttributes CursorAttributes();
EntryAttributes FontAttributes();
EntryAttributes ImageAttributes();
EntryAttributes TextStyleAttributes();
EntryAttributes FrameStyleAttributes();

}  // namespace DUI
