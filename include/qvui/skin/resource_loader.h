#pragma once

#include <string_view>

#include <qvui/render/image_list.h>
#include <qvui/skin/cursor_object.h>

namespace DUI {

class CXmlDocument;

/// Returns the full path of a file named by a skin, relative to the executable's directory (with backslashes,
/// without a trailing one). "/" is treated as "\"; a leading ".\" is removed; each leading "..\" removes
/// one directory, but never the last one below a drive ("C:\App" stays). Absolute paths are not supported.
/// Does not access the file system.
QVUI_API CString ResolveSkinPath(std::string_view executableDirectory, std::string_view name);

/// Loads what a skin package names (files, resources of a module, resources of the executable) as documents,
/// images and cursors. File names are relative to the executable's directory (ResolveSkinPath). At most one
/// resource module is loaded at a time; it stays loaded until another one is used.
///
/// Failures are reported by the results (null, 0, a list without a picture, an object without a cursor) and
/// one trace line.
class QVUI_API CResLoader {
public:
    CResLoader() = default;
    CResLoader(const CResLoader&) = delete;
    CResLoader& operator=(const CResLoader&) = delete;
    ~CResLoader();

    /// For tools: replaces the executable's directory, to which names are relative, for the whole process.
    /// Either separator is accepted. An empty text restores the executable's directory.
    static void SetBaseDirectory(const CString& directory);

    /// Returns a new image list, which has no picture if the file cannot be decoded.
    CDUIImageListPtr LoadImageFromFile(const CString& path);
    /// Replaces the picture of a list, which affects all users of the list. Returns 0 for a null list or on
    /// failure, which empties the list.
    int LoadImageFromFile(const CString& path, const CDUIImageListPtr& list);
    /// Returns null if the module cannot be loaded.
    CDUIImageListPtr LoadImageFromDll(const CString& module, const CString& id, const CString& type);
    CDUIImageListPtr LoadImageFromExe(const CString& id, const CString& type);

    CRefPtr<CCursorObject> LoadCursorFromFile(const CString& path);
    CRefPtr<CCursorObject> LoadCursorFromDll(const CString& module, const CString& id, const CString& type);
    CRefPtr<CCursorObject> LoadCursorFromExe(const CString& id, const CString& type);

    /// Reads a well-formed document and converts it to the system code page. Returns 0, with `xml` unchanged,
    /// on failure.
    int LoadXMLFromFile(const CString& path, CString& xml);
    /// The same, parsed.
    int LoadDocumentFromFile(const CString& path, CXmlDocument& document);
    /// Reads a UTF-8 resource and converts it to the system code page, whether it is well-formed or not. A
    /// byte-order mark is kept.
    int LoadXMLFromDll(const CString& module, const CString& id, const CString& type, CString& xml);
    int LoadXMLFromExe(const CString& id, const CString& type, CString& xml);

    /// Returns the decoded file, which the caller deletes, or null on failure.
    CImage* LoadRawImage(const CString& path);
    /// Loads a module by its path relative to the executable. The caller owns the handle.
    HINSTANCE LoadLibraryA(const CString& module);
    /// Accepted for compatibility with packages that name a file; has no effect.
    void SetPackageFileName(const CString&) {}

protected:
    CDUIImageListPtr LoadImageFromResource(HINSTANCE module, const CString& id, const CString& type);
    CRefPtr<CCursorObject> LoadCursorFromResource(HINSTANCE module, const CString& id, const CString& type);
    int LoadStringFromResource(HINSTANCE module, const CString& id, const CString& type, CString& text);
    /// Loads a module by the given name and makes it the resource module. Returns null on failure, with
    /// nothing changed.
    HINSTANCE GetResInstance(const CString& module);
    void FreeResDll();

private:
    /// Makes a newly loaded module the resource module and returns the handle to read from.
    HINSTANCE UseModule(HINSTANCE module);

    HINSTANCE m_hResModule = nullptr;
};

}  // namespace DUI
