#pragma once

#include <string>
#include <vector>

#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/attribute_table.h>

namespace qvui::skin_tool {

/// The class of a built-in tag; null for any other.
const DUI::ControlClass* ClassOf(const std::string& tag);
std::vector<std::string> BuiltinTags();

/// An attribute of a class or one of its bases, in any letter case; null when it has none of that name.
const DUI::AttributeInfo* FindAttribute(const DUI::ControlClass& control, const std::string& name);
const DUI::AttributeInfo* FindAttribute(const DUI::AttributeList& list, const std::string& name);
/// The same among all built-in controls.
const DUI::AttributeInfo* FindAttributeAnywhere(const std::string& name);

std::vector<std::string> AttributeNames(const DUI::ControlClass& control);
std::vector<std::string> AttributeNames(const DUI::AttributeList& list);
std::vector<std::string> AllAttributeNames();

}  // namespace qvui::skin_tool
