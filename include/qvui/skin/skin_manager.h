#pragma once

#include <map>
#include <memory>
#include <vector>

#include <qvui/skin/resource_manager.h>

namespace DUI {

/// Hears of every switch of the skin; by then all resources are the new skin's.
class QVUI_API IDUISkinObserver {
public:
    virtual void OnSkinUIDataChanged() {}

protected:
    /// Ends the observer's part in a notification that is under way.
    ~IDUISkinObserver();
};

/// Hears of every switch of the language; by then all strings are the new language's.
class QVUI_API IDUILanguageObserver {
public:
    virtual void OnLanguageTypeChanged(const CString& oldType, const CString& newType) = 0;

protected:
    /// Ends the observer's part in a notification that is under way.
    ~IDUILanguageObserver();
};

/// The skin package: loads what its entry document lists, answers every look-up by name, and switches skin
/// and language at run time. Results of type int are 1 for success. Raw pointers are borrowed; observers are
/// not owned and must unregister before they are destroyed.
///
/// A switch calls the observers that are registered when the calls begin, in the order in which they were
/// added. During a call observers may be added (they hear of the next switch), removed or destroyed, and the
/// skin manager may be destroyed. One that is removed is still called for this switch; one that is destroyed
/// is not, and after the end of the skin manager no further one is.
class QVUI_API IDUISkinMgr {
public:
    virtual ~IDUISkinMgr() = default;

    /// Adds a further skin package that is asked for what this one lacks. It follows every switch of skin and
    /// language. 0 when a package with the same entry document is there already.
    virtual int AddNewSkin(const CString& entryXml) = 0;
    virtual void RemoveSkin(const CString& entryXml) = 0;
    /// Takes the text of the entry document, not a path, and loads everything that it selects.
    virtual int InitializeSkin(const CString& entryXml) = 0;
    /// Drops strings, skin resources and templates; language and skin stay chosen.
    virtual void UninitializeSkin() = 0;
    /// Language names match in any letter case. 0, with nothing changed, for the current or an unknown
    /// language.
    virtual int SetLanguageType(const CString& type) = 0;
    virtual CString GetLanguageType() = 0;
    /// Loads a skin over the present one; a name that no skin has reloads the current one. Nothing happens
    /// for the current name.
    virtual void SetSkinTyle(const CString& skin) = 0;
    virtual CString GetSkinTyle() = 0;
    virtual int AddSkinObserver(IDUISkinObserver* observer) = 0;
    virtual int RemoveSkinObserver(IDUISkinObserver* observer) = 0;
    virtual int AddLanguageObserver(IDUILanguageObserver* observer) = 0;
    virtual int RemoveLanguageObserver(IDUILanguageObserver* observer) = 0;

    /// `share` 1: the object that all users of the name share; 0: a new one on each call. Null when it is
    /// missing.
    virtual CDUIImageListPtr GetImage(const CString& name, int share) = 0;
    virtual CRefPtr<CCursorObject> GetCursor(const CString& name, int share) = 0;
    /// An unknown name gives the default font.
    virtual CRefPtr<CFontObject> GetFont(const CString& name, int share) = 0;
    /// A literal or a named colour; the empty colour for an unknown name.
    virtual CARGB GetColor(const CString& name) = 0;
    /// The same as a COLORREF.
    virtual DWORD GetRawColor(const CString& name) = 0;
    virtual CRefPtr<CDUIFrameBK> GetFrameBK(const CString& name) = 0;
    /// An unknown name gives the default style.
    virtual CRefPtr<CTextStyle> GetTextStyle(const CString& name) = 0;
    /// The entry's XML text; 0 leaves `xml` as it was.
    virtual int GetWindowTemplate(const CString& name, CString& xml) = 0;
    virtual int GetMenuTemplate(const CString& name, CString& xml) = 0;
    virtual int GetControlStyle(const CString& name, CString& xml) = 0;
    /// A string of the language, or the text after a leading "#"; 0 leaves `text` as it was.
    virtual int GetStringText(const CString& id, CString& text) = 0;
    virtual int GetPlugin(const CString& name, CString& xml) = 0;
};

/// The skin manager. Added skins are asked in the byte order of their entry documents' texts. Since unknown
/// fonts and text styles fall back to the defaults, those never come from an added skin.
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

    // The steps of InitializeSkin and of the switches.
    int ParseEntryXML(const CString& entryXml);
    int LoadLanguage();
    int LoadDUIResource();
    /// Loads every template document; those that fail are left out. Always 1.
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
    std::map<CString, std::unique_ptr<IDUISkinMgr>> m_addedSkins;  // by the entry document's text
    std::vector<IDUISkinObserver*> m_skinObservers;
    std::vector<IDUILanguageObserver*> m_languageObservers;
};

}  // namespace DUI
