#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/skin/document_schema.h>

namespace qvui::skin_tool {

using ValueKind = DUI::AttributeKind;
using DUI::DocumentKind;
using DUI::DocumentSchema;
using DUI::EntryAttribute;
using DUI::EntryContent;
using DUI::IntegerRange;
using DUI::kDocumentKinds;
using DUI::kNameKinds;
using DUI::NameKind;
using DUI::SchemaOf;
using DUI::SetSchema;

/// "image", "text style" and so on.
const char* NameOf(NameKind kind);
/// "integer", "image name" and so on, for readers.
const char* Describe(ValueKind kind);

struct ValueProblem {
    std::string text;
    std::string suggestion;
};

/// What is wrong with the form of a value; nothing for one that reads as its kind says. Whether names exist
/// is not asked here. `keywords` are separated by "|"; `range` is that of an integer.
std::optional<ValueProblem> CheckForm(ValueKind kind, const std::string& value, std::string_view keywords,
                                      IntegerRange range = {});

/// The names that a value of the kind refers to.
struct Reference {
    NameKind kind;
    std::string name;
};
std::vector<Reference> ReferencesOf(ValueKind kind, const std::string& value);

std::vector<std::string> Split(std::string_view text, char separator);
/// The words that an attribute of an entry takes, with "|" between.
std::string KeywordsOf(const EntryAttribute& attribute);
/// "from 0 to 999" or "from 1"; empty for a range that leaves nothing out.
std::string RangeText(IntegerRange range);

}  // namespace qvui::skin_tool
