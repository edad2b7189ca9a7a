#pragma once

#include <memory>

#include <qvui/framework/control_factory.h>
#include <qvui/framework/message_loop.h>
#include <qvui/skin/skin_manager.h>

namespace DUI {

/// An object that the application attaches and reads back; the library never looks at it.
class Package;

/// The library's application object: one per process, from DUIGetAppInstance.
class QVUI_API IDUIApp {
public:
    virtual ~IDUIApp() = default;
    virtual BOOL Init(const CString& strSkinEntry, BOOL bEnableYahei) = 0;
    virtual void Term() = 0;
    virtual IDUISkinMgr* GetSkinMgr() const = 0;
    virtual IDUIControlFactory* GetControlFactory() const = 0;
    virtual CDUIMessageLoop* GetMessageLoop() = 0;
    virtual Package* GetPackagePtr() = 0;
    virtual void SetPackagePtr(Package* pPackage) = 0;
};

/// Its m_bEanbleYahi says whether the YaHei font face may be used; Init sets it to its argument, and it may
/// be set at any time.
class QVUI_API CDUIApp : public IDUIApp, public CYaHeiFlag {
public:
    CDUIApp();
    CDUIApp(const CDUIApp&) = delete;
    CDUIApp& operator=(const CDUIApp&) = delete;
    ~CDUIApp() override;

    /// Loads the skin package whose entry document's text this is, then registers the built-in controls.
    /// FALSE when either fails; what was made so far stays until Term.
    BOOL Init(const CString& strSkinEntry, BOOL bEnableYahei) override;
    /// Releases skin and factory. Windows and their controls must be gone.
    void Term() override;
    /// Null before Init and after Term; borrowed.
    IDUISkinMgr* GetSkinMgr() const override { return m_pSkinMgr.get(); }
    IDUIControlFactory* GetControlFactory() const override { return m_pFactory.get(); }
    CDUIMessageLoop* GetMessageLoop() override { return &m_messageLoop; }
    Package* GetPackagePtr() override { return m_pPackage; }
    void SetPackagePtr(Package* pPackage) override { m_pPackage = pPackage; }

private:
    std::unique_ptr<IDUISkinMgr> m_pSkinMgr;
    std::unique_ptr<IDUIControlFactory> m_pFactory;
    CDUIMessageLoop m_messageLoop;
    Package* m_pPackage = nullptr;
};

}  // namespace DUI

/// The process's application object; never null. It knows the controls of all rooms, so the last one defines
/// this.
extern "C" QVUI_API DUI::IDUIApp* WINAPI DUIGetAppInstance();
