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

/// Whether fonts may use the YaHei face; where not, the string "ids_def_font_txt_name" names the face
/// instead. One flag for the process, on at the start, read whenever a font is made. Applications know it as
/// CDUIApp::m_bEanbleYahi.
class QVUI_API CYaHeiFlag {
public:
    static BOOL m_bEanbleYahi;
};

/// Everything that one skin manager has loaded, by name: strings, templates, colours, the records of images,
/// fonts and cursors with the objects made from them, and the style sets.
///
/// Objects are made on first use and shared. Loading another document over the tables updates records, image
/// lists and style objects of the same name in place; an image list takes over the new picture and keeps the
/// count, direction, style and corner that it was made with, and fonts and cursors that were made stay. Names
/// match exactly. Operations that return int give 1 for success; a document that cannot be read or is not
/// well formed gives 0 and changes nothing. Within a document the sets of one kind must stand before those of
/// the next: colours, cursors, fonts, images; menus, windows, plug-ins; text, frame and control styles. A set
/// behind one of a later kind is not seen.
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
    /// Colours, cursors, fonts and images, and the default font.
    void ClearDUIResource();
    /// Templates, plug-ins and all three kinds of styles.
    void ClearTemplate();
    /// The text styles alone.
    void ClearStyleResource();
    void SetPackageFile(const CString& file);

    /// A string of the language, or the text after a leading "#". 0 leaves `text` as it was.
    int GetString(const CString& id, CString& text) const;
    /// A literal colour or one of the colour set; the empty colour for an unknown name.
    CARGB GetColor(const CString& name) const;
    /// 0 leaves `color` as it was.
    int GetColor(const CString& name, CARGB& color) const;
    int GetColorFromString(const CString& text, CARGB& color) const;

    /// Share 1: the object of the record, made on first use; 0: a new one on each call. Null for an unknown
    /// name.
    CDUIImageListPtr GetImage(const CString& name, int share);
    CRefPtr<CCursorObject> GetCursor(const CString& name, int share);
    /// An empty or unknown name gives the default font.
    CRefPtr<CFontObject> GetFont(const CString& name, int share);
    /// The font marked as default; else the first record's, null while that one is not made; without any
    /// record the system's.
    CRefPtr<CFontObject> GetDefaultFont();

    /// The entry's XML text. 0 leaves `xml` as it was.
    int GetWindowTemplate(const CString& name, CString& xml) const;
    int GetMenuTemplate(const CString& name, CString& xml) const;
    int GetPlugin(const CString& name, CString& xml) const;
    int GetControlStyle(const CString& name, CString& xml) const;
    /// An empty or unknown name gives the default style, which is never null.
    CRefPtr<CTextStyle> GetTextStyle(const CString& name);
    CRefPtr<CTextStyle> GetDefaultTextStyle();
    /// Null for an unknown name.
    CRefPtr<CDUIFrameBK> GetFrameBK(const CString& name) const;

    /// The DrawText flags whose names occur in the text, in any letter case and with any separators.
    static DWORD ParseTextFormat(const CString& format);
    /// One to three colours separated by ",": start, end, middle; a third "," ends the third. Nothing changes
    /// when the first has no value.
    void ParseFrameBKAttriColors(const CString& colors, const CRefPtr<CDUIFrameBK>& frame) const;
    void ParseFrameBKImagePos(const CString& position, const CRefPtr<CDUIFrameBK>& frame) const;

protected:
    CDUIImageListPtr CreateImage(const CRefPtr<CResourceImageData>& record);
    CRefPtr<CFontObject> CreateFontA(const CRefPtr<CResourceFontData>& record);
    CRefPtr<CCursorObject> CreateCursor(const CRefPtr<CResourceCursorData>& record);

private:
    /// Reads one entry, the cursor's child.
    using ReadEntry = void (CResMgr::*)(CXmlDocument& xml);
    using ReadDocument = void (CResMgr::*)(CXmlDocument& xml);
    int Load(const CResourceFileInfo& info, ReadDocument read);
    int Parse(const CString& xml, ReadDocument read);
    /// Reads every entry of every set of the document, each kind of set with its reader; these stand in the
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
