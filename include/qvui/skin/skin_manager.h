#pragma once

#include <map>
#include <memory>
#include <vector>

#include <qvui/skin/resource_manager.h>

namespace DUI {

/// Notified of every skin switch, after all resources have been replaced.
class QVUI_API IDUISkinObserver {
public:
    virtual void OnSkinUIDataChanged() {}

protected:
    /// Also removes the observer from a notification in progress.
    ~IDUISkinObserver();
};

/// Notified of every language switch, after all strings have been replaced.
class QVUI_API IDUILanguageObserver {
public:
    virtual void OnLanguageTypeChanged(const CString& oldType, const CString& newType) = 0;

protected:
    /// Also removes the observer from a notification in progress.
    ~IDUILanguageObserver();
};

/// The skin package: loads what its entry document lists, looks up objects by name, and switches skin and
/// language at run time. Results of type int are 1 for success. Raw pointers are not owned; observers are not
/// owned either and must unregister before they are destroyed.
///
/// A switch calls the observers that are registered when the notification begins, in the order in which they
/// were added. During a call, observers may be added (they are notified from the next switch on), removed or
/// destroyed, and the skin manager may be destroyed. An observer that is removed is still called for this
/// switch, one that is destroyed is not; if the skin manager is destroyed, no further observer is called.
class QVUI_API IDUISkinMgr {
public:
    virtual ~IDUISkinMgr() = default;

    /// Adds another skin package, which is searched for what this one lacks. It follows every switch of skin
    /// and language. Returns 0 if a package with the same entry document exists already.
    virtual int AddNewSkin(const CString& entryXml) = 0;
    virtual void RemoveSkin(const CString& entryXml) = 0;
    /// Takes the text of the entry document, not a path, and loads everything that it selects.
    virtual int InitializeSkin(const CString& entryXml) = 0;
    /// Releases strings, skin resources and templates. The selected language and skin are kept.
    virtual void UninitializeSkin() = 0;
    /// Language names are compared ignoring case. Returns 0, with nothing changed, for the current or an
    /// unknown language.
    virtual int SetLanguageType(const CString& type) = 0;
    virtual CString GetLanguageType() = 0;
    /// Loads a skin over the current one. An unknown name reloads the current skin; the current name has no
    /// effect.
    virtual void SetSkinTyle(const CString& skin) = 0;
    virtual CString GetSkinTyle() = 0;
    virtual int AddSkinObserver(IDUISkinObserver* observer) = 0;
    virtual int RemoveSkinObserver(IDUISkinObserver* observer) = 0;
    virtual int AddLanguageObserver(IDUILanguageObserver* observer) = 0;
    virtual int RemoveLanguageObserver(IDUILanguageObserver* observer) = 0;

    /// `share` 1 returns the object shared by all users of the name; 0 returns a new object on each call.
    /// Null if there is none.
    virtual CDUIImageListPtr GetImage(const CString& name, int share) = 0;
    virtual CRefPtr<CCursorObject> GetCursor(const CString& name, int share) = 0;
    /// Returns the default font for an unknown name.
    virtual CRefPtr<CFontObject> GetFont(const CString& name, int share) = 0;
    /// Returns a literal or named colour, or the empty colour for an unknown name.
    virtual CARGB GetColor(const CString& name) = 0;
    /// The same as a COLORREF.
    virtual DWORD GetRawColor(const CString& name) = 0;
    virtual CRefPtr<CDUIFrameBK> GetFrameBK(const CString& name) = 0;
    /// Returns the default style for an unknown name.
    virtual CRefPtr<CTextStyle> GetTextStyle(const CString& name) = 0;
    /// Gets the entry's XML text. Returns 0, with `xml` unchanged, for an unknown name.
    virtual int GetWindowTemplate(const CString& name, CString& xml) = 0;
    virtual int GetMenuTemplate(const CString& name, CString& xml) = 0;
    virtual int GetControlStyle(const CString& name, CString& xml) = 0;
    /// Gets a string of the language, or the text after a leading "#". Returns 0, with `text` unchanged, if
    /// there is none.
    virtual int GetStringText(const CString& id, CString& text) = 0;
    virtual int GetPlugin(const CString& name, CString& xml) = 0;
};

/// The implementation of IDUISkinMgr. Added skins are searched in the byte order of their entry documents'
/// texts. Since unknown fonts and text styles resolve to the defaults, they are never taken from an added
/// skin.
class QVUI_API CDUISkinMgr : public IDUISkinMgr {
public:
    CDUISkinMgr() = default;
    CDUISkinMgr(const CDUISkinMgr&) = delete;
    CDUISkinMgr& operator=(const CDUISkinMgr&) = delete;
    ~CDUISkinMgr() override;

    int AddNewSkin(const CString& entryXml) override;
    void RemoveSkin(const CString& entryXml) override;
    int InitializeSkin(const CString& entryXml) override;
    void UninitializeSkin() override;
    int SetLanguageType(const CString& type) override;
    CString GetLanguageType() override { return m_strLanguageType; }
    void SetSkinTyle(const CString& skin) override;
    CString GetSkinTyle() override { return m_currentSkin.m_strName; }
    int AddSkinObserver(IDUISkinObserver* observer) override;
    int RemoveSkinObserver(IDUISkinObserver* observer) override;
    int AddLanguageObserver(IDUILanguageObserver* observer) override;
    int RemoveLanguageObserver(IDUILanguageObserver* observer) override;
    CDUIImageListPtr GetImage(const CString& name, int share) override;
    CRefPtr<CCursorObject> GetCursor(const CString& name, int share) override;
    CRefPtr<CFontObject> GetFont(const CString& name, int share) override;
    CARGB GetColor(const CString& name) override;
    DWORD GetRawColor(const CString& name) override;
    CRefPtr<CDUIFrameBK> GetFrameBK(const CString& name) override;
    CRefPtr<CTextStyle> GetTextStyle(const CString& name) override;
    int GetWindowTemplate(const CString& name, CString& xml) override;
    int GetMenuTemplate(const CString& name, CString& xml) override;
    int GetControlStyle(const CString& name, CString& xml) override;
    int GetStringText(const CString& id, CString& text) override;
    int GetPlugin(const CString& name, CString& xml) override;

    // Steps of InitializeSkin and of the switches.
    int ParseEntryXML(const CString& entryXml);
    int LoadLanguage();
    int LoadDUIResource();
    /// Loads every template document, skipping those that fail. Always returns 1.
    int LoadTemplateStyle();
    int LoadStyleResource();
    void NotifySkinChange();

private:
    CResMgr m_resMgr;
    CString m_strLanguageType;
    CResourceFileInfo m_currentSkin;
    CResourceFileInfo m_currentStyle;
    std::vector<CResourceFileInfo> m_languages;
    std::vector<CResourceFileInfo> m_templates;
    std::vector<CResourceFileInfo> m_skins;
    std::vector<CResourceFileInfo> m_styles;
    std::map<CString, std::unique_ptr<IDUISkinMgr>> m_addedSkins;  // keyed by the entry document's text
    std::vector<IDUISkinObserver*> m_skinObservers;
    std::vector<IDUILanguageObserver*> m_languageObservers;
};

}  // namespace DUI
