#pragma once

#include <map>

#include <qvui/framework/control.h>

namespace DUI {

class ControlClass;

/// Makes a new control, with `new` and count 0; null is allowed and makes the builder ask its callback.
using ControlCreator = IDUIControl* (*)();

/// Turns tag names of window templates into controls.
class QVUI_API IDUIControlFactory {
public:
    virtual ~IDUIControlFactory() = default;
    virtual BOOL InitializeFactory() = 0;
    virtual void UninitializeFactory() = 0;
    virtual BOOL RegisterControl(const CString& tag, ControlCreator creator) = 0;
    virtual BOOL UnregisterControl(const CString& tag) = 0;
    virtual CRefPtr<IDUIControl> NewControl(const CString& tag) = 0;
};

/// The factory of the application; tags match exactly.
class QVUI_API CDUIControlFactory : public IDUIControlFactory {
public:
    CDUIControlFactory() = default;
    CDUIControlFactory(const CDUIControlFactory&) = delete;
    CDUIControlFactory& operator=(const CDUIControlFactory&) = delete;
    ~CDUIControlFactory() override;

    /// Registers the built-in controls with the application's factory; FALSE when there is none yet.
    BOOL InitializeFactory() override;
    void UninitializeFactory() override;
    /// A tag that is taken keeps its first creator, and the result is TRUE all the same. FALSE for an empty
    /// tag or a null creator.
    BOOL RegisterControl(const CString& tag, ControlCreator creator) override;
    BOOL UnregisterControl(const CString& tag) override;
    /// Null for a tag that nobody registered.
    CRefPtr<IDUIControl> NewControl(const CString& tag) override;

protected:
    /// What the skin says of a plug-in. FALSE when it knows none of that name.
    BOOL GetPlugin(const CString& name, CString& fileName, CString& entryFunction);
    /// Null: no control of the library comes from a plug-in.
    CRefPtr<IDUIControl> CreateFromPlugin(const CString& name);

private:
    void FreeTextServices();

    std::map<CString, ControlCreator, CStrLessCmp> m_creators;
    HMODULE m_hTextServices = nullptr;
};

/// One built-in tag: its creator and what tools know of its class.
struct BuiltinControl {
    const char* tag;
    ControlCreator create;
    const ControlClass& (*describe)();
};

}  // namespace DUI
