#include <qvui/framework/control_builder.h>

#include <vector>

#include <qvui/foundation/trace.h>
#include <qvui/skin/xml/xml_document.h>

#include "framework/app_access.h"

namespace DUI {
namespace {

// Layout, paint and search walk the tree by recursion, so its depth is bounded. No skin that a person writes
// comes near.
constexpr std::size_t kDeepestNesting = 1000;

void AddChild(CRefPtr<IDUIControl> parent, CRefPtr<IDUIControl> child)
{
    if (auto* const items = static_cast<IDUIItemOwner*>(parent->GetInterface("item_owner")))
        items->AddItem(child);
    else
        parent->AddControl(child);
}

template <class Receive>
void ForEachAttribute(const CXmlDocument& document, Receive receive)
{
    for (int i = 0;; ++i) {
        const CString name = document.GetAttributeName(i);
        if (name.IsEmpty())
            return;
        receive(name, document.GetAttribute(name));
    }
}

}  // namespace

BOOL IDUIControlBuilderCallback::OnAddChildControl(CRefPtr<IDUIControl> parent, CRefPtr<IDUIControl> child)
{
    AddChild(parent, child);
    return TRUE;
}

CRefPtr<IDUIControl> CDUIControlBuilder::CreateFromResource(const CString& name)
{
    IDUISkinMgr* const manager = App().GetSkinMgr();
    CString xml;
    return manager && manager->GetWindowTemplate(name, xml) ? CreateFromXML(xml) : nullptr;
}

CRefPtr<IDUIControl> CDUIControlBuilder::CreateFromXML(const CString& xml)
{
    CXmlDocument document;
    IDUIControlFactory* const factory = App().GetControlFactory();
    if (!document.SetDocument(xml) || !factory || !document.FindElement("window"))
        return nullptr;
    if (m_pCallback)
        ForEachAttribute(document, [this](const CString& name, const CString& value) {
            m_pCallback->OnBuilderWindowAttribute(name, value);
        });
    if (!document.FindChildElement())
        return nullptr;
    document.IntoElement();
    CRefPtr<IDUIControl> root = BuildElement(*factory, document);
    if (root.IsNull())
        return nullptr;
    BuildChildren(*factory, document, root);
    if (m_pCallback)
        m_pCallback->OnBuilderControlCreated(root);
    return root;
}

CRefPtr<IDUIControl> CDUIControlBuilder::BuildElement(IDUIControlFactory& factory,
                                                      const CXmlDocument& document) const
{
    const CString tag = document.GetTagName();
    CRefPtr<IDUIControl> control = factory.NewControl(tag);
    if (control.IsNull() && m_pCallback)
        control = m_pCallback->OnBuilderNewControl(tag);
    if (!control.IsNull())
        ForEachAttribute(document, [&control](const CString& name, const CString& value) {
            control->SetAttribute(name, value);
        });
    return control;
}

void CDUIControlBuilder::BuildChildren(IDUIControlFactory& factory, CXmlDocument& document,
                                       CRefPtr<IDUIControl> root) const
{
    // The document's cursor stands on the element of the innermost parent.
    std::vector<CRefPtr<IDUIControl>> parents{root};
    bool isCut = false;
    while (!parents.empty()) {
        if (!document.FindChildElement()) {
            document.OutOfElement();
            parents.pop_back();
            continue;
        }
        document.IntoElement();
        CRefPtr<IDUIControl> control;
        if (parents.size() < kDeepestNesting)
            control = BuildElement(factory, document);
        else
            isCut = true;
        if (control.IsNull()) {
            document.OutOfElement();
            continue;
        }
        Link(parents.back(), control);
        parents.push_back(control);
    }
    if (isCut)
        CTrace::TraceWarning("CDUIControlBuilder::CreateFromXML, elements nested deeper than %u are left out",
                             static_cast<unsigned>(kDeepestNesting));
}

void CDUIControlBuilder::Link(CRefPtr<IDUIControl> parent, CRefPtr<IDUIControl> child) const
{
    if (m_pCallback)
        m_pCallback->OnAddChildControl(parent, child);
    else
        AddChild(parent, child);
}

}  // namespace DUI
