// Which elements of a document the library sees.

#include <algorithm>

#include "package.h"

namespace qvui::skin_tool {
namespace {

class Walk {
public:
    Walk(const Document& document, DocumentKind kind, Report& report)
        : m_document(document),
          m_schema(SchemaOf(kind)),
          m_report(report)
    {
    }

    std::vector<SeenEntry> Run()
    {
        if (m_document.Elements().empty())
            return {};
        if (!m_schema.sets.front().set)
            AddEntries(m_schema.sets.front(), 0, -1);
        else if (m_schema.isFirstOfEachKind)
            ReadFirstOfEach();
        else
            ReadInOrder();
        return std::move(m_seen);
    }

private:
    // The library searches for one kind of set after the other, each from where the last one was found.
    void ReadFirstOfEach()
    {
        std::vector<int> seen;
        int from = m_document.At(0).firstChild;
        for (const SetSchema& set : m_schema.sets)
            for (int child = from; child >= 0; child = m_document.At(child).next)
                if (m_document.At(child).tag == set.set) {
                    seen.push_back(child);
                    AddSet(set, child);
                    from = m_document.At(child).next;
                    break;
                }
        for (int child = m_document.At(0).firstChild; child >= 0; child = m_document.At(child).next)
            if (std::find(seen.begin(), seen.end(), child) == seen.end())
                ReportUnseen(child, seen);
    }

    // The library reads on; a set behind one of a later kind is passed over.
    void ReadInOrder()
    {
        auto kind = m_schema.sets.begin();
        for (int child = m_document.At(0).firstChild; child >= 0; child = m_document.At(child).next) {
            const auto found = std::find_if(kind, m_schema.sets.end(), [&](const SetSchema& set) {
                return m_document.At(child).tag == set.set;
            });
            if (found == m_schema.sets.end()) {
                ReportUnseen(child, {});
                continue;
            }
            kind = found;
            AddSet(*found, child);
        }
    }

    void ReportUnseen(int element, const std::vector<int>& seen)
    {
        const std::string& tag = m_document.At(element).tag;
        std::vector<std::string> names;
        for (const SetSchema& set : m_schema.sets)
            names.emplace_back(set.set);
        if (std::find(names.begin(), names.end(), tag) == names.end()) {
            ReportUnknown(element, names);
            return;
        }
        const bool isSecond =
            std::any_of(seen.begin(), seen.end(), [&](int other) { return m_document.At(other).tag == tag; });
        std::string text = "a second \"" + tag + "\" is not seen: the first one alone is read";
        if (!isSecond) {
            text = "\"" + tag + "\" is out of order and is not seen: the order is";
            for (std::size_t i = 0; i < names.size(); ++i)
                text += (i == 0 ? " " : ", ") + names[i];
        }
        m_report.Add(Severity::Error, m_document, m_document.At(element).offset, text);
    }

    void ReportUnknown(int element, const std::vector<std::string>& names)
    {
        const std::string& tag = m_document.At(element).tag;
        m_report.Add(Severity::Error, m_document, m_document.At(element).offset,
                     "unknown element \"" + tag + "\"", m_report.Suggest(tag, [&] { return names; }));
    }

    void AddSet(const SetSchema& set, int element)
    {
        m_seen.push_back({&set, element, -1});
        AddEntries(set, element, element);
    }

    void AddEntries(const SetSchema& set, int parent, int setElement)
    {
        for (int child = m_document.At(parent).firstChild; child >= 0; child = m_document.At(child).next)
            if (!set.entry)
                ReportUnknown(child, {});
            else if (m_document.At(child).tag == set.entry)
                AddEntry(set, setElement, child);
            else
                ReportUnknown(child, {set.entry});
    }

    void AddEntry(const SetSchema& set, int setElement, int element)
    {
        m_seen.push_back({&set, setElement, element});
        // Of these the library reads the attributes alone.
        if (set.content != EntryContent::Plain && set.content != EntryContent::ControlStyle)
            return;
        for (int child = m_document.At(element).firstChild; child >= 0; child = m_document.At(child).next)
            ReportUnknown(child, {});
    }

    const Document& m_document;
    const DocumentSchema& m_schema;
    Report& m_report;
    std::vector<SeenEntry> m_seen;
};

}  // namespace

std::vector<SeenEntry> SeenEntries(const Document& document, DocumentKind kind, Report& report)
{
    return Walk(document, kind, report).Run();
}

}  // namespace qvui::skin_tool
