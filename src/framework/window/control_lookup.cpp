#include "framework/window/control_lookup.h"

#include <cctype>

namespace DUI {
namespace {

constexpr UINT kInTabOrder = DUIFIND_VISIBLE | DUIFIND_ENABLED | DUIFIND_ME_FIRST;

}  // namespace

IDUIControl* ControlLookup::ByName(const CString& name, bool refresh)
{
    if (name.IsEmpty())
        return nullptr;
    if (refresh || m_names.empty())
        Refresh();
    const auto found = m_names.find(name);
    return found == m_names.end() ? nullptr : found->second;
}

void ControlLookup::Refresh()
{
    Clear();
    const auto add = [](IDUIControl* control, void* data) -> IDUIControl* {
        auto& lookup = *static_cast<ControlLookup*>(data);
        if (!control->GetName().IsEmpty()) {
            const auto inserted = lookup.m_names.emplace(control->GetName(), control);
            if (inserted.second)
                lookup.m_places.emplace(control, inserted.first);
        }
        return nullptr;
    };
    m_host.Find(add, this, 0);
}

char ControlLookup::UpperCase(char character)
{
    return static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
}

IDUIControl* ControlLookup::ByShortcut(char ch) const
{
    const auto matches = [](IDUIControl* control, void* data) {
        const char shortcut = control->GetShortcut();
        return shortcut && UpperCase(shortcut) == *static_cast<const char*>(data) ? control : nullptr;
    };
    return m_host.Find(matches, &ch, kInTabOrder);
}

IDUIControl* ControlLookup::ByInterface(const char* name) const
{
    if (!name)
        return nullptr;
    const auto matches = [](IDUIControl* control, void* data) {
        return control->GetInterface(*static_cast<const CString*>(data)) ? control : nullptr;
    };
    CString wanted(name);
    return m_host.Find(matches, &wanted, kInTabOrder);
}

void ControlLookup::Forget(const IDUIControl* control)
{
    const auto place = m_places.find(control);
    if (place == m_places.end())
        return;
    m_names.erase(place->second);
    m_places.erase(place);
}

void ControlLookup::Clear()
{
    m_names.clear();
    m_places.clear();
}

}  // namespace DUI
