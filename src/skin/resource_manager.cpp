#include <qvui/skin/resource_manager.h>

#include <qvui/skin/document_words.h>
#include <qvui/skin/text_values.h>

#include "skin/document_sets.h"
#include "skin/entry_fields.h"

namespace DUI {
namespace {

using Source = DocumentSource;

// Reads two integers separated by a comma directly after the first; otherwise leaves the pair unchanged.
void ReadPair(LPCSTR text, SIZE& pair)
{
    LPCSTR end = nullptr;
    const int first = ReadInteger(text, &end);
    if (end == text || *end != ',')
        return;
    const LPCSTR next = end + 1;
    const int second = ReadInteger(next, &end);
    if (end != next)
        pair = {first, second};
}

// Applies the attributes that describe how the picture is divided and drawn. An invalid corner is read as
// 0,0.
void ApplyImageAttributes(CResourceImageData& record, CDUIImageList& list)
{
    if (const int count = ReadInteger(record.m_strCount); kIconCounts.Holds(count))
        list.SetItemCount(static_cast<DWORD>(count));
    list.SetDrawStyle(static_cast<IMAGE_DRAW_STYLE>(
        DrawStyleWords().Find(record.m_strDrawStyle.View(), list.GetDrawStyle())));
    if (!record.m_strCorner.IsEmpty()) {
        record.m_strCorner.Trim();
        SIZE corner{};
        ReadPair(record.m_strCorner, corner);
        list.SetCornerSize(corner.cx, corner.cy);
    }
    if (DirectionWords().Find(record.m_strDirection.View(), 0))
        list.SetImageDirection(1);
}

// The Chinese name of the face, in the system code page or in code page 936, which such skins use.
bool IsYaHei(const CString& face)
{
    constexpr std::string_view kInCodePage936 = "\xCE\xA2\xC8\xED\xD1\xC5\xBA\xDA";
    constexpr WCHAR kName[] = {0x5FAE, 0x8F6F, 0x96C5, 0x9ED1};
    return face.View() == kInCodePage936 ||
           face.ToWide() == std::basic_string<WCHAR>(kName, std::size(kName));
}

int Find(const CNameTable<CString>& table, const CString& name, CString& text)
{
    const CString* found = table.Find(name);
    if (found)
        text = *found;
    return found != nullptr;
}

}  // namespace

BOOL CYaHeiFlag::m_bEanbleYahi = TRUE;

// --- loading and clearing ------------------------------------------------------------------------

int CResMgr::GetXMLByConfigInfo(const CResourceFileInfo& info, CString& xml)
{
    switch (SourceOf(info.m_strConfigType.View())) {
        case Source::File:
            return m_loader.LoadXMLFromFile(info.m_strFileName, xml);
        case Source::Dll:
            return m_loader.LoadXMLFromDll(info.m_strFileName, info.m_strResourceId, info.m_strResourceType,
                                           xml);
        case Source::Exe:
            return m_loader.LoadXMLFromExe(info.m_strResourceId, info.m_strResourceType, xml);
        case Source::None:
            break;
    }
    return 0;
}

int CResMgr::Load(const CResourceFileInfo& info, ReadDocument read)
{
    CXmlDocument document;
    CString xml;
    // A file is parsed while it is loaded, so it is not parsed a second time.
    const bool isLoaded = SourceOf(info.m_strConfigType.View()) == Source::File
                              ? m_loader.LoadDocumentFromFile(info.m_strFileName, document) != 0
                              : GetXMLByConfigInfo(info, xml) && document.SetDocument(std::move(xml));
    if (isLoaded)
        (this->*read)(document);
    return isLoaded;
}

int CResMgr::LoadAllString(const CResourceFileInfo& info)
{
    return Load(info, &CResMgr::ReadStrings);
}

int CResMgr::LoadDUIResource(const CResourceFileInfo& info)
{
    return Load(info, &CResMgr::ReadResources);
}

int CResMgr::LoadTemplateStyle(const CResourceFileInfo& info)
{
    return Load(info, &CResMgr::ReadTemplates);
}

int CResMgr::LoadStyleResource(const CResourceFileInfo& info)
{
    return Load(info, &CResMgr::ReadStyles);
}

void CResMgr::ClearAllString()
{
    m_strings.Clear();
}

void CResMgr::ClearDUIResource()
{
    m_colors.Clear();
    m_cursors.Clear();
    m_fonts.Clear();
    m_images.Clear();
    m_pDefaultFont = {};
}

void CResMgr::ClearTemplate()
{
    m_controlStyles.Clear();
    m_windowTemplates.Clear();
    m_menuTemplates.Clear();
    m_plugins.Clear();
    m_textStyles.Clear();
    m_frames.Clear();
}

void CResMgr::ClearStyleResource()
{
    m_textStyles.Clear();
}

void CResMgr::SetPackageFile(const CString& file)
{
    m_loader.SetPackageFileName(file);
}

// --- texts and colours ---------------------------------------------------------------------------

int CResMgr::GetString(const CString& id, CString& text) const
{
    if (id[0] != '#')
        return Find(m_strings, id, text);
    text = id.Mid(1);
    return 1;
}

int CResMgr::GetWindowTemplate(const CString& name, CString& xml) const
{
    return Find(m_windowTemplates, name, xml);
}

int CResMgr::GetMenuTemplate(const CString& name, CString& xml) const
{
    return Find(m_menuTemplates, name, xml);
}

int CResMgr::GetPlugin(const CString& name, CString& xml) const
{
    return Find(m_plugins, name, xml);
}

int CResMgr::GetControlStyle(const CString& name, CString& xml) const
{
    return Find(m_controlStyles, name, xml);
}

CARGB CResMgr::GetColor(const CString& name) const
{
    CARGB color;
    GetColor(name, color);
    return color;
}

int CResMgr::GetColor(const CString& name, CARGB& color) const
{
    if (GetColorFromString(name, color))
        return 1;
    const CARGB* found = m_colors.Find(name);
    if (found)
        color = *found;
    return found != nullptr;
}

int CResMgr::GetColorFromString(const CString& text, CARGB& color) const
{
    return ParseColorLiteral(text, color);
}

// --- images --------------------------------------------------------------------------------------

CDUIImageListPtr CResMgr::GetImage(const CString& name, int share)
{
    const CRefPtr<CResourceImageData>* record = m_images.Find(name);
    if (!record)
        return nullptr;
    if (!share)
        return CreateImage(*record);
    const CDUIImageListPtr& shared = (*record)->m_pImageList;
    if (shared && !shared->IsNull())
        return shared;
    CDUIImageListPtr made = CreateImage(*record);
    if (made && !made->IsNull())
        (*record)->m_pImageList = made;
    return made;
}

CDUIImageListPtr CResMgr::CreateImage(const CRefPtr<CResourceImageData>& record)
{
    CDUIImageListPtr list;
    switch (SourceOf(record->m_strConfigType.View())) {
        case Source::File:
            list = m_loader.LoadImageFromFile(record->m_strFileName);
            break;
        case Source::Dll:
            list = m_loader.LoadImageFromDll(record->m_strFileName, record->m_strResourceId,
                                             record->m_strResourceType);
            break;
        case Source::Exe:
            list = m_loader.LoadImageFromExe(record->m_strResourceId, record->m_strResourceType);
            break;
        case Source::None:
            break;
    }
    if (list && !list->IsNull())
        ApplyImageAttributes(*record.GetPtr(), *list);
    return list;
}

// --- cursors -------------------------------------------------------------------------------------

CRefPtr<CCursorObject> CResMgr::GetCursor(const CString& name, int share)
{
    const CRefPtr<CResourceCursorData>* record = m_cursors.Find(name);
    if (!record)
        return {};
    if (!share)
        return CreateCursor(*record);
    if ((*record)->m_pCursor.IsNull())
        (*record)->m_pCursor = CreateCursor(*record);
    return (*record)->m_pCursor;
}

CRefPtr<CCursorObject> CResMgr::CreateCursor(const CRefPtr<CResourceCursorData>& record)
{
    switch (SourceOf(record->m_strConfigType.View())) {
        case Source::File:
            return m_loader.LoadCursorFromFile(record->m_strFileName);
        case Source::Dll:
            return m_loader.LoadCursorFromDll(record->m_strFileName, record->m_strResourceId,
                                              record->m_strResourceType);
        case Source::Exe:
            return m_loader.LoadCursorFromExe(record->m_strResourceId, record->m_strResourceType);
        case Source::None:
            break;
    }
    return {};
}

// --- fonts ---------------------------------------------------------------------------------------

CRefPtr<CFontObject> CResMgr::GetFont(const CString& name, int share)
{
    const CRefPtr<CResourceFontData>* record = name.IsEmpty() ? nullptr : m_fonts.Find(name);
    if (!record)
        return GetDefaultFont();
    if (!share)
        return CreateFontA(*record);
    if ((*record)->m_pFont.IsNull())
        (*record)->m_pFont = CreateFontA(*record);
    return (*record)->m_pFont;
}

CRefPtr<CFontObject> CResMgr::GetDefaultFont()
{
    if (!m_pDefaultFont.IsNull())
        return m_pDefaultFont;
    if (const CRefPtr<CResourceFontData>* first = m_fonts.First()) {
        m_pDefaultFont = (*first)->m_pFont;
        return m_pDefaultFont;
    }
    m_pDefaultFont = CRefPtr<CFontObject>(new CFontObject);
    m_pDefaultFont->CreateFontA();
    return m_pDefaultFont;
}

CRefPtr<CFontObject> CResMgr::CreateFontA(const CRefPtr<CResourceFontData>& record)
{
    CRefPtr<CFontObject> font(new CFontObject);
    if (!record->m_strHeight.IsEmpty())
        font->SetHeight(ReadInteger(record->m_strHeight));
    if (!record->m_strWeight.IsEmpty())
        if (const int weight = ReadInteger(record->m_strWeight); kFontWeights.Holds(weight))
            font->SetWeight(weight);
    if (!record->m_strItalic.IsEmpty())
        font->SetItalic(IsTrue(record->m_strItalic));
    if (!record->m_strUnderline.IsEmpty())
        font->SetUnderline(IsTrue(record->m_strUnderline));
    if (!record->m_strStrikeout.IsEmpty())
        font->SetStrikeout(IsTrue(record->m_strStrikeout));
    CString face;
    if (!record->m_strFaceName.IsEmpty() && GetString(record->m_strFaceName, face)) {
        if (!CYaHeiFlag::m_bEanbleYahi && IsYaHei(face)) {
            face.Empty();
            GetString("ids_def_font_txt_name", face);
        }
        font->SetFaceName(face);
    }
    font->CreateFontA();
    return font;
}

}  // namespace DUI
