#include "controls.h"

namespace qvui::skin_tool {

using DUI::AttributeInfo;
using DUI::AttributeList;
using DUI::BuiltinControl;
using DUI::BuiltinControls;
using DUI::ControlClass;

const ControlClass* ClassOf(const std::string& tag)
{
    for (const BuiltinControl& control : BuiltinControls())
        if (tag == control.tag)
            return &control.describe();
    return nullptr;
}

std::vector<std::string> BuiltinTags()
{
    std::vector<std::string> tags;
    for (const BuiltinControl& control : BuiltinControls())
        tags.emplace_back(control.tag);
    return tags;
}

const AttributeInfo* FindAttribute(const AttributeList& list, const std::string& name)
{
    const int index = list.Find(name.c_str());
    return index < 0 ? nullptr : &list.Infos()[static_cast<std::size_t>(index)];
}

const AttributeInfo* FindAttribute(const ControlClass& control, const std::string& name)
{
    for (const ControlClass* known = &control; known; known = known->Base())
        if (known->Attributes())
            if (const AttributeInfo* const found = FindAttribute(*known->Attributes(), name))
                return found;
    return nullptr;
}

const AttributeInfo* FindAttributeAnywhere(const std::string& name)
{
    for (const BuiltinControl& control : BuiltinControls())
        if (const AttributeInfo* const found = FindAttribute(control.describe(), name))
            return found;
    return nullptr;
}

std::vector<std::string> AttributeNames(const AttributeList& list)
{
    std::vector<std::string> names;
    for (const AttributeInfo& info : list.Infos())
        names.emplace_back(info.name);
    return names;
}

std::vector<std::string> AttributeNames(const ControlClass& control)
{
    std::vector<std::string> names;
    for (const ControlClass* known = &control; known; known = known->Base())
        if (known->Attributes())
            for (std::string& name : AttributeNames(*known->Attributes()))
                names.push_back(std::move(name));
    return names;
}

std::vector<std::string> AllAttributeNames()
{
    std::vector<std::string> names;
    for (const BuiltinControl& control : BuiltinControls())
        for (std::string& name : AttributeNames(control.describe()))
            names.push_back(std::move(name));
    return names;
}

}  // namespace qvui::skin_tool
