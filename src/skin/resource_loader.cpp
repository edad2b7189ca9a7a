#include <qvui/skin/resource_loader.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include <qvui/foundation/trace.h>
#include <qvui/skin/xml/xml_document.h>

#include "skin/resource_id.h"

namespace DUI {
namespace {

constexpr char kSeparator = '\\';

bool BeginsWith(std::string_view text, std::string_view what)
{
    return text.substr(0, what.size()) == what;
}

// Removes the last directory, but not the one directly below a drive.
void CutLastDirectory(CString& path)
{
    constexpr int kDriveRoot = 2;
    const int last = path.ReverseFind(kSeparator);
    if (last != -1 && last != kDriveRoot)
        path = path.Left(last);
}

CString FindExecutableDirectory()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    path[MAX_PATH - 1] = '\0';
    const CString executable(path);
    return executable.Left(std::max(executable.ReverseFind(kSeparator), 0));
}

// Cached, because a skin contains hundreds of names; the text depends only on the code page.
const CString& ExecutableDirectory()
{
    static UINT codePage = 0;
    static CString directory;
    if (codePage != GetACP()) {
        codePage = GetACP();
        directory = FindExecutableDirectory();
    }
    return directory;
}

// Empty: the executable's directory is used.
CString& ChosenDirectory()
{
    static CString directory;
    return directory;
}

CString ResolvePath(const CString& name)
{
    const CString& chosen = ChosenDirectory();
    return ResolveSkinPath(chosen.IsEmpty() ? ExecutableDirectory().View() : chosen.View(), name.View());
}

}  // namespace

CString ResolveSkinPath(std::string_view executableDirectory, std::string_view name)
{
    // "/" is not the trail byte of a character in any code page.
    std::string slashed(name);
    std::replace(slashed.begin(), slashed.end(), '/', kSeparator);
    std::string_view rest = slashed;
    CString base(executableDirectory);
    if (rest.size() > 2 && BeginsWith(rest, ".\\"))
        rest.remove_prefix(2);
    while (rest.size() > 3 && BeginsWith(rest, "..\\")) {
        rest.remove_prefix(3);
        CutLastDirectory(base);
    }
    if (rest.empty())
        return base;
    std::string path;
    path.reserve(base.View().size() + 1 + rest.size());
    path += base.View();
    if (rest.front() != kSeparator)
        path += kSeparator;
    return CString(std::move(path += rest));
}

void CResLoader::SetBaseDirectory(const CString& directory)
{
    CString& chosen = ChosenDirectory();
    chosen = directory;
    chosen.Replace("/", "\\");
    // Searched by characters, because the trail byte of a character may equal the separator.
    while (chosen.GetLength() > 1 && chosen.ReverseFind(kSeparator) == chosen.GetLength() - 1)
        chosen.Delete(chosen.GetLength() - 1);
}

CResLoader::~CResLoader()
{
    FreeResDll();
}

// --- images --------------------------------------------------------------------------------------

CDUIImageListPtr CResLoader::LoadImageFromFile(const CString& path)
{
    auto list = std::make_shared<CDUIImageList>();
    LoadImageFromFile(path, list);
    return list;
}

int CResLoader::LoadImageFromFile(const CString& path, const CDUIImageListPtr& list)
{
    if (!list)
        return 0;
    if (list->CreateFromFile(ResolvePath(path)))
        return 1;
    CTrace::TraceError("CResLoader::LoadImageFromFile: failed to load image(%s)", path.GetString());
    return 0;
}

CDUIImageListPtr CResLoader::LoadImageFromResource(HINSTANCE module, const CString& id, const CString& type)
{
    auto list = std::make_shared<CDUIImageList>();
    if (!list->CreateFromResource(module, UINT{ResourceIdOf(id)}, type))
        CTrace::TraceError("CResLoader::LoadImageFromResource: failed to load image(id-%s, type:%s)",
                           id.GetString(), type.GetString());
    return list;
}

CDUIImageListPtr CResLoader::LoadImageFromDll(const CString& module, const CString& id, const CString& type)
{
    const HINSTANCE instance = UseModule(LoadLibraryA(module));
    return instance ? LoadImageFromResource(instance, id, type) : nullptr;
}

CDUIImageListPtr CResLoader::LoadImageFromExe(const CString& id, const CString& type)
{
    return LoadImageFromResource(GetModuleHandleA(nullptr), id, type);
}

CImage* CResLoader::LoadRawImage(const CString& path)
{
    auto image = std::make_unique<CImage>();
    if (SUCCEEDED(image->Load(ResolvePath(path))))
        return image.release();
    CTrace::TraceError("CResLoader::LoadImageFromFile: failed to load image(%s)", path.GetString());
    return nullptr;
}

// --- cursors -------------------------------------------------------------------------------------

CRefPtr<CCursorObject> CResLoader::LoadCursorFromFile(const CString& path)
{
    CRefPtr<CCursorObject> cursor(new CCursorObject);
    if (!cursor->CreateFromFile(ResolvePath(path)))
        CTrace::TraceError("CResLoader::LoadCursorFromFile: failed to load cursor(%s)", path.GetString());
    return cursor;
}

CRefPtr<CCursorObject> CResLoader::LoadCursorFromResource(HINSTANCE module, const CString& id,
                                                          const CString& type)
{
    CRefPtr<CCursorObject> cursor(new CCursorObject);
    if (!cursor->CreateFromResource(module, id))
        CTrace::TraceError("CResLoader::LoadCursorFromResource: failed to load cursor(id-%s, type:%s)",
                           id.GetString(), type.GetString());
    return cursor;
}

CRefPtr<CCursorObject> CResLoader::LoadCursorFromDll(const CString& module, const CString& id,
                                                     const CString& type)
{
    const HINSTANCE instance = UseModule(LoadLibraryA(module));
    return instance ? LoadCursorFromResource(instance, id, type) : CRefPtr<CCursorObject>();
}

CRefPtr<CCursorObject> CResLoader::LoadCursorFromExe(const CString& id, const CString& type)
{
    return LoadCursorFromResource(GetModuleHandleA(nullptr), id, type);
}

// --- documents -----------------------------------------------------------------------------------

int CResLoader::LoadXMLFromFile(const CString& path, CString& xml)
{
    CXmlDocument document;
    if (!LoadDocumentFromFile(path, document))
        return 0;
    xml = document.GetDocument();
    return 1;
}

int CResLoader::LoadDocumentFromFile(const CString& path, CXmlDocument& document)
{
    const CString resolved = ResolvePath(path);
    CString text;
    CString log;
    int flags = 0;
    if (CXmlDocument::ReadTextFile(resolved, text, log, flags) && document.SetDocument(std::move(text)))
        return 1;
    CTrace::TraceError("CResLoader::LoadXMLFromFile: can not open file(%s)", resolved.GetString());
    return 0;
}

int CResLoader::LoadXMLFromDll(const CString& module, const CString& id, const CString& type, CString& xml)
{
    const HINSTANCE instance = UseModule(LoadLibraryA(module));
    return instance ? LoadStringFromResource(instance, id, type, xml) : 0;
}

int CResLoader::LoadXMLFromExe(const CString& id, const CString& type, CString& xml)
{
    return LoadStringFromResource(GetModuleHandleA(nullptr), id, type, xml);
}

int CResLoader::LoadStringFromResource(HINSTANCE module, const CString& id, const CString& type,
                                       CString& text)
{
    const HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(ResourceIdOf(id)), type);
    const HGLOBAL loaded = resource ? LoadResource(module, resource) : nullptr;
    if (!loaded)
        return 0;
    const auto* bytes = static_cast<const char*>(LockResource(loaded));
    text = CString::FromUtf8({bytes, bytes ? SizeofResource(module, resource) : 0});
    return 1;
}

// --- modules -------------------------------------------------------------------------------------

HINSTANCE CResLoader::LoadLibraryA(const CString& module)
{
    return ::LoadLibraryA(ResolvePath(module));
}

HINSTANCE CResLoader::GetResInstance(const CString& module)
{
    return UseModule(::LoadLibraryA(module));
}

HINSTANCE CResLoader::UseModule(HINSTANCE module)
{
    if (!module)
        return nullptr;
    // Loading the same module again only added a reference, which is released here; another module replaces
    // the first.
    if (m_hResModule)
        FreeLibrary(m_hResModule);
    m_hResModule = module;
    return module;
}

void CResLoader::FreeResDll()
{
    if (m_hResModule)
        FreeLibrary(m_hResModule);
    m_hResModule = nullptr;
}

}  // namespace DUI
