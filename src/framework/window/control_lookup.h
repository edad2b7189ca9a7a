#pragma once

#include <map>
#include <unordered_map>

#include "framework/window/host_window.h"

namespace DUI {

/// Finds controls of the tree: by name from a cache, which holds the first control in tree order of each name
/// as it was at the last refresh; by shortcut and by interface with a walk.
class ControlLookup {
public:
    explicit ControlLookup(const HostWindow& host) : m_host(host) {}

    /// Refreshes the cache first where that is asked for or it is empty. Null for none.
    IDUIControl* ByName(const CString& name, bool refresh);
    /// The first control in tab order that can be reached and whose shortcut is `ch` in upper case; null for
    /// none.
    IDUIControl* ByShortcut(char ch) const;
    static char UpperCase(char character);
    /// The first control in tab order that can be reached and has the interface; null for none.
    IDUIControl* ByInterface(const char* name) const;

    void Forget(const IDUIControl* control);
    void Clear();

private:
    void Refresh();

    using Names = std::map<CString, CWeakPtr<IDUIControl>, CStrLessCmp>;
    const HostWindow& m_host;
    Names m_names;
    std::unordered_map<const IDUIControl*, Names::iterator> m_places;  // for Forget
};

}  // namespace DUI
