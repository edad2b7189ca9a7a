#pragma once

#include <qvui/skin/resource_records.h>

#include "skin/entry_fields.h"

namespace DUI {

/// Fields that describe the source of a document, picture or cursor.
inline constexpr TextField<CResourceFileInfo> kSourceFields[] = {
    {"name", AttributeKind::Text, "", &CResourceFileInfo::m_strName},
    {"config_type", AttributeKind::ChoiceAny, "Where it comes from.", &CResourceFileInfo::m_strConfigType,
     SourceWords},
    {"file_name", AttributeKind::FileName,
     "For file: the file, relative to the program's directory; for dll: the module that holds it.",
     &CResourceFileInfo::m_strFileName},
    {"resource_id", kResourceIds, "For dll and exe: the resource's id.", &CResourceFileInfo::m_strResourceId},
    {"resource_type", AttributeKind::Text, "For dll and exe: the resource's type.",
     &CResourceFileInfo::m_strResourceType},
};

/// The source attributes, followed by further ones. `nameDescription` describes "name" for this kind of
/// entry.
inline EntryAttributes SourceAttributes(const char* nameDescription, const EntryAttributes& more = {})
{
    EntryAttributes attributes = AttributesOf(kSourceFields);
    attributes.front().description = nameDescription;
    attributes.insert(attributes.end(), more.begin(), more.end());
    return attributes;
}

}  // namespace DUI
