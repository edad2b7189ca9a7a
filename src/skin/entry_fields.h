#pragma once

#include <vector>

#include <qvui/skin/document_schema.h>
#include <qvui/skin/xml/xml_document.h>

namespace DUI {

/// An attribute of an entry and the target that stores its value. Both the readers and the document schema
/// are generated from tables of these.
template <class Target>
struct EntryField : EntryAttribute {
    constexpr EntryField(const char* fieldName, AttributeKind fieldKind, const char* fieldDescription,
                         Target fieldTarget, DocumentWords (*fieldWords)() = nullptr,
                         AttributeRules fieldRules = {})
        : EntryAttribute{fieldName, fieldKind, fieldDescription, fieldWords, {}, fieldRules},
          target(fieldTarget)
    {
    }
    /// For an integer attribute.
    constexpr EntryField(const char* fieldName, IntegerRange fieldRange, const char* fieldDescription,
                         Target fieldTarget)
        : EntryAttribute{fieldName, AttributeKind::Integer, fieldDescription, nullptr, fieldRange},
          target(fieldTarget)
    {
    }

    Target target;
};
/// A field whose text is stored unchanged in a record.
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

/// Updates a record from an entry; attributes that the entry lacks become empty texts.
template <class Record, class Base, std::size_t Count>
void ReadFields(const CXmlDocument& xml, const TextField<Base> (&fields)[Count], Record& record)
{
    for (const auto& field : fields)
        record.*field.target = xml.GetChildAttribute(field.name);
}

// Attribute tables, each defined in the source that reads the entries.
EntryAttributes StringAttributes();
EntryAttributes ColorAttributes();
EntryAttributes CursorAttributes();
EntryAttributes FontAttributes();
EntryAttributes ImageAttributes();
EntryAttributes TextStyleAttributes();
EntryAttributes FrameStyleAttributes();

}  // namespace DUI
