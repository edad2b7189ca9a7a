#pragma once

#include <type_traits>

#include <qvui/framework/control_base.h>

namespace DUI {

/// What every control class overrides in the same way, from what its Class() declares:
///
///     class Gauge : public ControlOf<Gauge, CDUIControlBase> {
///         friend ControlOf;  // copies it
///     public:
///         static const ControlClass& Class();
///
/// GetInterface answers the names of the class, Clone makes a copy with the copy constructor, and
/// SetAttribute sets the attributes of the class and leaves others to `Base`. The attributes in Class() are
/// an AttributeTable<Control>. A class that wants one of these differently overrides it.
template <class Control, class Base>
class ControlOf : public Base {
public:
    void* GetInterface(const CString& name) override
    {
        return Control::Class().Answers(name) ? static_cast<Control*>(this) : nullptr;
    }

    /// Null for an abstract class.
    CRefPtr<IDUIControl> Clone() override
    {
        if constexpr (std::is_abstract_v<Control>)
            return nullptr;
        else
            return new Control(static_cast<const Control&>(*this));
    }

    void SetAttribute(const CString& name, const CString& value) override
    {
        const auto* const table = static_cast<const AttributeTable<Control>*>(Control::Class().Attributes());
        if (!table || !table->Apply(static_cast<Control&>(*this), name, value))
            Base::SetAttribute(name, value);
    }

protected:
    ControlOf() = default;
    ControlOf(const ControlOf& other) = default;
};

}  // namespace DUI
