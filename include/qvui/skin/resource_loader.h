#pragma once

#include <string_view>

#include <qvui/render/image_list.h>
#include <qvui/skin/cursor_object.h>

namespace DUI {

class CXmlDocument;

/// The full path of a file that a skin names, relative to the executable's directory (back-slashes, no slash
/// at the end). "/" counts as "\"; a leading ".\" goes; each leading "..\" takes one directory off, but never
/// the last one under a drive ("C:\App" stays). An absolute path is not recognised. No file is touched.
QVUI_API CString ResolveSkinPath(std::string_view executableDirectory, std::string_view name);

/// Turns what a skin package names (files, resources of a module, resources of the executable) into
/// documents, images and cursors. File names are relative to the executable's directory (ResolveSkinPath). At
/// most one resource module is loaded at a time; it stays loaded until another one is named.
///
/// Failures are results (null, 0, a list without a picture, an object without a cursor) and one trace line.
class QVUI_API CResLoader {
public:
    CResLoader() = default;
    CResLoader(const CResLoader&) = delete;
    CResLoader& operator=(const CResLoader&) = delete;
    ~CResLoader();

    /// For tools that look at packages elsewhere: the directory, with either separator, that names are
    /// relative to instead of the executable's, for the whole process. An empty text goes back to that one.
    static void SetBaseDirectory(const CString& directory);

    /// A new image list, returned also when the file cannot be decoded; it then holds no picture.
    CDUIImageListPtr LoadImageFromFile(const CString& path);
    /// Loads another picture into the list, for all who hold it; 0 for a null list or a failure, which
    /// empties it.
    int LoadImageFromFile(const CString& path, const CDUIImageListPtr& list);
    /// Null when the module cannot be loaded.
    CDUIImageListPtr LoadImageFromDll(const CString& module, const CString& id, const CString& type);
    CDUIImageListPtr LoadImageFromExe(const CString& id, const CString& type);

    CRefPtr<CCursorObject> LoadCursorFromFile(const CString& path);
    CRefPtr<CCursorObject> LoadCursorFromDll(const CString& module, const CString& id, const CString& type);
    CRefPtr<CCursorObject> LoadCursorFromExe(const CString& id, const CString& type);

    /// The text of a well-formed document in the system code page; 0 leaves `xml` as it was.
    int LoadXMLFromFile(const CString& path, CString& xml);
    /// The same, parsed.
    int LoadDocumentFromFile(const CString& path, CXmlDocument& document);
    /// A UTF-8 resource in the system code page, whether well-formed or not. A byte-order mark stays in the
    /// text.
    int LoadXMLFromDll(const CString& module, const CString& id, const CString& type, CString& xml);
    int LoadXMLFromExe(const CString& id, const CString& type, CString& xml);

    /// The decoded file, the caller's to delete; null on failure.
    CImage* LoadRawImage(const CString& path);
    /// Loads a module by its path relative to the executable; the caller owns the handle.
    HINSTANCE LoadLibraryA(const CString& module);
    /// Accepted for packages that name one; nothing is loaded from it.
    void SetPackageFileName(const CString&) {}

protected:
    CDUIImageListPtr LoadImageFromResource(HINSTANCE module, const CString& id, const CString& type);
    CRefPtr<CCursorObject> LoadCursorFromResource(HINSTANCE module, const CString& id, const CString& type);
    int LoadStringFromResource(HINSTANCE module, const CString& id, const CString& type, CString& text);
    /// Loads a module by the name as given and makes it the resource module; null on failure, which changes
    /// nothing.
    HINSTANCE GetResInstance(const CString& module);
    void FreeResDll();

private:
    /// Makes a freshly loaded module the resource module; the handle to read from.
    HINSTANCE UseModule(HINSTANCE module);

    HINSTANCE m_hResModule = nullptr;
};

}  // namespace DUI
