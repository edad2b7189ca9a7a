#pragma once

#include <initializer_list>

#include <qvui/foundation/color.h>
#include <qvui/render/background.h>
#include <qvui/skin/document_schema.h>
#include <qvui/skin/name_table.h>
#include <qvui/skin/resource_loader.h>
#include <qvui/skin/resource_records.h>
#include <qvui/skin/text_style.h>

namespace DUI {

class CXmlDocument;

/// Whether fonts may use the YaHei face. If not, the string "ids_def_font_txt_name" names the face to use
/// instead. A process-wide flag, initially on, that is read when a font is created. Applications use it as
/// CDUIApp::m_bEanbleYahi.
class QVUI_API CYaHeiFlag {
public:
    static BOOL m_bEanbleYahi;
};

/// All objects loaded by one skin manager, by name: strings, templates, colours, the records of images, fonts
/// and cursors with the objects created from them, and the style sets.
///
/// Objects are created on first use and shared. Loading another document over the tables updates records,
/// image lists and style objects of the same name in place. An image list takes over the new picture but
/// keeps its count, direction, style and corner; fonts and cursors that already exist are not changed. Names
/// match exactly. Operations that return int return 1 for success; a document that cannot be read or is not
/// well-formed returns 0 and changes nothing. Within a document, the kinds of sets must occur in this order:
/// colours, cursors, fonts, images; menus, windows, plug-ins; text, frame and control styles. A set after one
/// of a later kind is ignored.
class QVUI_API CResMgr {
public:
    CResMgr() = default;
    CResMgr(const CResMgr&) = delete;
    CResMgr& operator=(const CResMgr&) = delete;

    int GetXMLByConfigInfo(const CResourceFileInfo& info, CString& xml);
    int LoadAllString(const CResourceFileInfo& info);
    int LoadDUIResource(const CResourceFileInfo& info);
    int LoadTemplateStyle(const CResourceFileInfo& info);
    int LoadStyleResource(const CResourceFileInfo& info);
    int ParseAllString(const CString& xml);
    int ParseDUIResource(const CString& xml);
    int ParseTemplateStyle(const CString& xml);
    int ParseStyleResource(const CString& xml);

    void ClearAllString();
    /// Clears colours, cursors, fonts and images, and the default font.
    void ClearDUIResource();
    /// Clears templates, plug-ins and all three kinds of styles.
    void ClearTemplate();
    /// Clears only the text styles.
    void ClearStyleResource();
    void SetPackageFile(const CString& file);

    /// Gets a string of the language, or the text after a leading "#". Returns 0, with `text` unchanged, if
    /// there is none.
    int GetString(const CString& id, CString& text) const;
    /// Returns a literal colour or a named one, or the empty colour for an unknown name.
    CARGB GetColor(const CString& name) const;
    /// Returns 0, with `color` unchanged, for an unknown name.
    int GetColor(const CString& name, CARGB& color) const;
    int GetColorFromString(const CString& text, CARGB& color) const;

    /// `share` 1 returns the shared object of the record, created on first use; 0 returns a new object on
    /// each call. Null for an unknown name.
    CDUIImageListPtr GetImage(const CString& name, int share);
    CRefPtr<CCursorObject> GetCursor(const CString& name, int share);
    /// Returns the default font for an empty or unknown name.
    CRefPtr<CFontObject> GetFont(const CString& name, int share);
    /// Returns the font marked as default; otherwise that of the first record, or null until it has been
    /// created; without any record, the system's.
    CRefPtr<CFontObject> GetDefaultFont();

    /// Gets the entry's XML text. Returns 0, with `xml` unchanged, for an unknown name.
    int GetWindowTemplate(const CString& name, CString& xml) const;
    int GetMenuTemplate(const CString& name, CString& xml) const;
    int GetPlugin(const CString& name, CString& xml) const;
    int GetControlStyle(const CString& name, CString& xml) const;
    /// Returns the default style for an empty or unknown name; never null.
    CRefPtr<CTextStyle> GetTextStyle(const CString& name);
    CRefPtr<CTextStyle> GetDefaultTextStyle();
    /// Returns null for an unknown name.
    CRefPtr<CDUIFrameBK> GetFrameBK(const CString& name) const;

    /// Returns the DrawText flags whose names occur in the text, ignoring case, with any separators.
    static DWORD ParseTextFormat(const CString& format);
    /// Reads one to three colours separated by ",": start, end, middle; a third "," ends the third colour.
    /// Nothing is changed if the first is not a colour.
    void ParseFrameBKAttriColors(const CString& colors, const CRefPtr<CDUIFrameBK>& frame) const;
    void ParseFrameBKImagePos(const CString& position, const CRefPtr<CDUIFrameBK>& frame) const;

protected:
    CDUIImageListPtr CreateImage(const CRefPtr<CResourceImageData>& record);
    CRefPtr<CFontObject> CreateFontA(const CRefPtr<CResourceFontData>& record);
    CRefPtr<CCursorObject> CreateCursor(const CRefPtr<CResourceCursorData>& record);

private:
    /// Reads the entry that is the document's current child.
    using ReadEntry = void (CResMgr::*)(CXmlDocument& xml);
    using ReadDocument = void (CResMgr::*)(CXmlDocument& xml);
    int Load(const CResourceFileInfo& info, ReadDocument read);
    int Parse(const CString& xml, ReadDocument read);
    /// Reads every entry of every set of the document. `readers` has one reader for each kind of set, in the
    /// order of the schema.
    void ReadSets(CXmlDocument& xml, DocumentKind document, std::initializer_list<ReadEntry> readers);

    void ReadStrings(CXmlDocument& xml);
    void ReadResources(CXmlDocument& xml);
    void ReadTemplates(CXmlDocument& xml);
    void ReadStyles(CXmlDocument& xml);

    void ReadColor(CXmlDocument& xml);
    void ReadCursor(CXmlDocument& xml);
    void ReadFont(CXmlDocument& xml);
    void ReadImage(CXmlDocument& xml);
    void ReadMenuTemplate(CXmlDocument& xml);
    void ReadWindowTemplate(CXmlDocument& xml);
    void ReadPlugin(CXmlDocument& xml);
    void ReadTextStyle(CXmlDocument& xml);
    void ReadFrameStyle(CXmlDocument& xml);
    void ReadControlStyle(CXmlDocument& xml);

    CResLoader m_loader;
    CNameTable<CString> m_strings;
    CNameTable<CString> m_controlStyles;
    CNameTable<CString> m_windowTemplates;
    CNameTable<CString> m_menuTemplates;
    CNameTable<CString> m_plugins;
    CNameTable<CRefPtr<CTextStyle>> m_textStyles;
    CNameTable<CARGB> m_colors;
    CNameTable<CRefPtr<CResourceCursorData>> m_cursors;
    CNameTable<CRefPtr<CResourceFontData>> m_fonts;
    CNameTable<CRefPtr<CResourceImageData>> m_images;
    CNameTable<CRefPtr<CDUIFrameBK>> m_frames;
    CRefPtr<CFontObject> m_pDefaultFont;
    CRefPtr<CTextStyle> m_pDefaultTextStyle;
};

}  // namespace DUI
