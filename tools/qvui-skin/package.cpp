#include "package.h"

#include <algorithm>
#include <filesystem>

#include <qvui/skin/document_words.h>
#include <qvui/skin/resource_loader.h>

namespace qvui::skin_tool {
namespace {

namespace fs = std::filesystem;

std::string Slashed(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

}  // namespace

std::string FindRoot(const std::string& entryPath, const std::vector<std::string>& fileNames)
{
    const fs::path directory = fs::path(Slashed(entryPath)).parent_path();
    const std::string name = fs::absolute(entryPath).lexically_normal().parent_path().filename().string();
    const bool isInName = std::any_of(fileNames.begin(), fileNames.end(), [&](const std::string& file) {
        std::string slashed = Slashed(file);
        if (slashed.rfind("./", 0) == 0)
            slashed.erase(0, 2);
        return EqualNoCase(slashed.substr(0, name.size() + 1), name + "/");
    });
    return (isInName ? directory / ".." : directory / ".").lexically_normal().string();
}

RootScope::RootScope(const std::string& root)
{
    DUI::CResLoader::SetBaseDirectory(fs::absolute(root).lexically_normal().string().c_str());
}

RootScope::~RootScope()
{
    DUI::CResLoader::SetBaseDirectory("");
}

Package::Package(const std::string& entryPath, const std::string& root, Report& report)
    : m_entry(Document::FromFile(Slashed(entryPath))),
      m_root(root)
{
    if (!m_entry.IsReadable())
        return;
    for (const DocumentProblem& problem : m_entry.Problems())
        report.Add(Severity::Error, m_entry, problem.offset, problem.text);
    if (m_root.empty()) {
        std::vector<std::string> names;
        for (const Element& element : m_entry.Elements())
            names.push_back(element.Value("file_name"));
        m_root = FindRoot(entryPath, names);
    }
    if (!m_entry.IsWellFormed())
        return;
    const RootScope scope(m_root);
    ReadEntry(report);
}

std::string Package::PathOf(const std::string& fileName) const
{
    // The library's rule, with slashes, and without the root's own steps upwards that it would cut.
    const CString resolved = DUI::ResolveSkinPath("", fileName);
    std::string rest = Slashed(std::string(resolved.View()));
    rest.erase(0, rest.find_first_not_of('/'));
    fs::path base(m_root.empty() ? "." : m_root);
    if (fileName.find("..") != std::string::npos) {
        std::string root = fs::absolute(base).lexically_normal().string();
        while (root.size() > 1 && (root.back() == '/' || root.back() == '\\'))
            root.pop_back();
        std::replace(root.begin(), root.end(), '/', '\\');
        return Slashed(std::string(DUI::ResolveSkinPath(root, fileName).View()));
    }
    return Slashed((base / rest).lexically_normal().string());
}

std::vector<const PackageDocument*> Package::OfKind(DocumentKind kind) const
{
    std::vector<const PackageDocument*> found;
    for (const PackageDocument& document : m_documents)
        if (document.kind == kind)
            found.push_back(&document);
    return found;
}

void Package::ReadEntry(Report& report)
{
    for (const SeenEntry& seen : SeenEntries(m_entry, DocumentKind::Entry, report)) {
        if (!seen.set->documents)
            continue;
        if (seen.entryElement >= 0)
            ReadSource(*seen.set->documents, seen.entryElement, report);
        else if (seen.set->documents == DocumentKind::Strings)
            m_defaultLanguage = m_entry.At(seen.setElement).Value("default");
        else if (seen.set->documents == DocumentKind::Resources)
            m_defaultSkin = m_entry.At(seen.setElement).Value("default");
    }
    CheckEntry(report);
}

// Of two languages of one name the library takes the first, of two skins or styles the last. Templates are
// all loaded, whatever their names.
void Package::ReadSource(DocumentKind kind, int element, Report& report)
{
    const Element& source = m_entry.At(element);
    const std::string name = source.Value("name");
    const bool isLanguage = kind == DocumentKind::Strings;
    const auto isEarlier = [&](const PackageDocument& other) {
        return other.kind == kind && (isLanguage ? EqualNoCase(other.name, name) : other.name == name);
    };
    if (kind != DocumentKind::Templates && name.empty()) {
        report.Add(Severity::Warning, m_entry, source.offset,
                   "without \"name\" nothing can refer to this " + source.tag);
    } else if (const auto earlier = std::find_if(m_documents.begin(), m_documents.end(), isEarlier);
               kind != DocumentKind::Templates && earlier != m_documents.end()) {
        report.Add(Severity::Warning, m_entry, source.offset,
                   "a second " + source.tag + " \"" + name + "\": " +
                       (isLanguage ? "the first one counts" : "it takes the place of the first one"));
        if (isLanguage)
            return;
        m_documents.erase(earlier);
    }
    m_documents.push_back({name, kind, Load(element, report)});
}

const Document* Package::Load(int element, Report& report)
{
    const Element& source = m_entry.At(element);
    const std::string type = source.Value("config_type");
    const std::string file = source.Value("file_name");
    const Attribute* const place = source.Find(type.empty() ? "name" : "file_name");
    const int offset = place ? place->valueOffset : source.offset;
    const DUI::DocumentSource from = DUI::SourceOf(type);
    if (from == DUI::DocumentSource::Exe) {
        report.Add(Severity::Note, m_entry, source.offset, kOwnResourceText);
        return nullptr;
    }
    if (from == DUI::DocumentSource::None) {
        if (type.empty())
            report.Add(Severity::Error, m_entry, offset, kNoSourceText);
        return nullptr;
    }
    const bool isModule = from == DUI::DocumentSource::Dll;
    const std::string path = isModule ? PathOf(file) + "(" + source.Value("resource_id") + ")" : PathOf(file);
    std::unique_ptr<Document>& stored = m_files[path];
    if (!stored) {
        stored = isModule ? ReadModule(path, source) : std::make_unique<Document>(Document::FromFile(path));
        for (const DocumentProblem& problem : stored->Problems())
            report.Add(Severity::Error, *stored, problem.offset, problem.text);
    }
    if (!stored->IsReadable())
        report.Add(Severity::Error, m_entry, offset,
                   isModule ? NoResourceText(source) : "the file \"" + file + "\" cannot be opened");
    return stored.get();
}

// A resource's text, under the name of the module and its id.
std::unique_ptr<Document> Package::ReadModule(const std::string& path, const Element& source)
{
    DUI::CResLoader loader;
    CString text;
    if (!loader.LoadXMLFromDll(source.Value("file_name").c_str(), source.Value("resource_id").c_str(),
                               source.Value("resource_type").c_str(), text))
        return std::make_unique<Document>(Document::Unreadable(path));
    return std::make_unique<Document>(Document::FromText(path, std::string(text.View())));
}

std::string NoResourceText(const Element& source)
{
    return "the module \"" + source.Value("file_name") + "\" cannot be opened, or has no resource \"" +
           source.Value("resource_id") + "\" of the type \"" + source.Value("resource_type") + "\"";
}

void Package::CheckEntry(Report& report) const
{
    const auto has = [this](DocumentKind kind, const std::string& name, bool ignoresCase) {
        return std::any_of(m_documents.begin(), m_documents.end(), [&](const PackageDocument& document) {
            return document.kind == kind &&
                   (ignoresCase ? EqualNoCase(document.name, name) : document.name == name);
        });
    };
    const int root = m_entry.At(0).offset;
    if (OfKind(DocumentKind::Strings).empty())
        report.Add(Severity::Error, m_entry, root, "the package has no language, so it does not load");
    else if (!m_defaultLanguage.empty() && !has(DocumentKind::Strings, m_defaultLanguage, true))
        report.Add(Severity::Error, m_entry, root,
                   "the default language \"" + m_defaultLanguage +
                       "\" does not exist, so the package does not load");
    if (m_defaultSkin.empty() || !has(DocumentKind::Resources, m_defaultSkin, false))
        report.Add(Severity::Error, m_entry, root,
                   "the default skin \"" + m_defaultSkin + "\" does not exist, so the package does not load");
    for (const PackageDocument* skin : OfKind(DocumentKind::Resources))
        if (!skin->name.empty() && !has(DocumentKind::Styles, skin->name, false))
            report.Add(Severity::Error, m_entry, root,
                       "the skin \"" + skin->name + "\" has no style document");
    for (const PackageDocument* style : OfKind(DocumentKind::Styles))
        if (!style->name.empty() && !has(DocumentKind::Resources, style->name, false))
            report.Add(Severity::Warning, m_entry, root,
                       "the style document \"" + style->name + "\" belongs to no skin and is never loaded");
}

}  // namespace qvui::skin_tool
