#pragma once

#include <qvui/framework/control.h>

namespace DUI {

class CXmlDocument;
class IDUIControlFactory;

/// Follows a build. The window manager is one.
class QVUI_API IDUIControlBuilderCallback {
public:
    /// A control for a tag that the factory does not know, or null.
    virtual CRefPtr<IDUIControl> OnBuilderNewControl(const CString& tag) = 0;
    /// Once, after the whole tree is built.
    virtual void OnBuilderControlCreated(CRefPtr<IDUIControl> root) = 0;
    /// Each attribute of the "window" element, before any control exists.
    virtual void OnBuilderWindowAttribute(const CString& name, const CString& value) = 0;
    /// Links a child to its parent; the default makes it an item of a combo box and a child of everything
    /// else.
    virtual BOOL OnAddChildControl(CRefPtr<IDUIControl> parent, CRefPtr<IDUIControl> child);

protected:
    ~IDUIControlBuilderCallback() = default;
};

/// What a control gives for the name "item_owner", as a combo box does: a place for items that are none of
/// its children.
class QVUI_API IDUIItemOwner {
public:
    virtual BOOL AddItem(CRefPtr<IDUIControl> item) = 0;

protected:
    ~IDUIItemOwner() = default;
};

/// Builds a control tree from a window template: a "window" element whose first child element is the root.
/// Attributes reach a control before it has a parent; an element whose tag nobody knows is left out with all
/// that is under it, and so is one nested more than 1000 levels deep (a trace line says so), which keeps
/// every walk of the tree within the stack. Every failure gives null.
class QVUI_API CDUIControlBuilder {
public:
    /// The callback, which may be null, outlives the builder.
    explicit CDUIControlBuilder(IDUIControlBuilderCallback* pCallback) : m_pCallback(pCallback) {}

    IDUIControlBuilderCallback* GetCallBack() const { return m_pCallback; }
    /// From the skin's window template of that name.
    CRefPtr<IDUIControl> CreateFromResource(const CString& name);
    CRefPtr<IDUIControl> CreateFromXML(const CString& xml);

private:
    CRefPtr<IDUIControl> BuildElement(IDUIControlFactory& factory, const CXmlDocument& document) const;
    void BuildChildren(IDUIControlFactory& factory, CXmlDocument& document, CRefPtr<IDUIControl> root) const;
    void Link(CRefPtr<IDUIControl> parent, CRefPtr<IDUIControl> child) const;

    IDUIControlBuilderCallback* m_pCallback;
};

}  // namespace DUI
