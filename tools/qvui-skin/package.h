#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "document.h"
#include "report.h"
#include "values.h"

namespace qvui::skin_tool {

/// While it lives, the library's loader takes names as relative to the package's root.
class RootScope {
public:
    explicit RootScope(const std::string& root);
    RootScope(const RootScope&) = delete;
    RootScope& operator=(const RootScope&) = delete;
    ~RootScope();
};

/// One document that the entry lists.
struct PackageDocument {
    std::string name;  // of its entry: the language, the skin, ...
    DocumentKind kind = DocumentKind::Entry;
    const Document* document = nullptr;  // null when it could not be looked for (resources of a program)
    bool IsUsable() const { return document && document->IsWellFormed(); }
};

/// A package as its files say, loaded without the application. Documents that several entries name are read
/// once.
class Package {
public:
    /// `root` is the directory that file names are relative to; when empty it is found from the entry's path
    /// and the names in it. What does not load is reported.
    Package(const std::string& entryPath, const std::string& root, Report& report);
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    /// False when the entry document itself cannot be opened.
    bool IsFound() const { return m_entry.IsReadable(); }
    const Document& Entry() const { return m_entry; }
    const std::string& Root() const { return m_root; }
    /// Languages, skins, styles and templates that the library sees, in the entry's order.
    const std::vector<PackageDocument>& Documents() const { return m_documents; }
    std::vector<const PackageDocument*> OfKind(DocumentKind kind) const;
    /// The attribute "default" of the set; empty without one.
    const std::string& DefaultLanguage() const { return m_defaultLanguage; }
    const std::string& DefaultSkin() const { return m_defaultSkin; }

    /// The path of a file that the package names.
    std::string PathOf(const std::string& fileName) const;

private:
    void ReadEntry(Report& report);
    void ReadSource(DocumentKind kind, int element, Report& report);
    const Document* Load(int element, Report& report);
    static std::unique_ptr<Document> ReadModule(const std::string& path, const Element& source);
    void CheckEntry(Report& report) const;

    Document m_entry;
    std::string m_root;
    std::string m_defaultLanguage;
    std::string m_defaultSkin;
    std::vector<PackageDocument> m_documents;
    std::map<std::string, std::unique_ptr<Document>> m_files;  // by path
};

/// What is said of an entry that does not say where it comes from.
inline constexpr const char* kNoSourceText = "without a config_type nothing is loaded";
/// What is said of one that names a resource of the program itself.
inline constexpr const char* kOwnResourceText = "a resource of the program: not looked at";
/// What is said of a module, or of what an entry names in it, that is not there.
std::string NoResourceText(const Element& source);

/// An element of a set that the library sees, or a set without entries.
struct SeenEntry {
    const SetSchema* set;
    int setElement;    // -1 when entries stand right under the root
    int entryElement;  // -1 for the set itself
};
/// What the library sees of a document, in its order. What it does not see is reported: unknown elements,
/// sets out of order, sets beyond the first.
std::vector<SeenEntry> SeenEntries(const Document& document, DocumentKind kind, Report& report);

/// The directory that the file names of an entry document are relative to: the one above the entry's when
/// they begin with the entry's directory name, else the entry's own.
std::string FindRoot(const std::string& entryPath, const std::vector<std::string>& fileNames);

}  // namespace qvui::skin_tool
