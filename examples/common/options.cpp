#include "common/options.h"

#include <cstdio>
#include <string_view>

#include <qvui/qvui.h>

namespace example {
namespace {

// The library says the same of a document that it cannot read and of one that is not well formed.
void ExplainDocument(const std::string& path)
{
    CString text, log;
    int flags = 0;
    DUI::CXmlDocument document;
    if (!DUI::CXmlDocument::ReadTextFile(path.c_str(), text, log, flags))
        std::fprintf(stderr, "  The file is missing or cannot be read.\n");
    else if (!document.SetDocument(text))
        std::fprintf(stderr, "  The file is not well formed: %s\n",
                     document.GetResult().Left(document.GetResult().Find('\r')).GetString());
}

// Why the library refused something is in its trace.
void ShowTrace(void*, const char* line)
{
    constexpr std::string_view kRefusedDocument = "can not open file(";
    const std::string_view text(line);
    const std::size_t document = text.find(kRefusedDocument);
    if (document != std::string_view::npos || text.find("failed") != std::string_view::npos)
        std::fprintf(stderr, "%s\n", line);
    if (document != std::string_view::npos) {
        const std::size_t path = document + kRefusedDocument.size();
        ExplainDocument(std::string(text.substr(path, text.rfind(')') - path)));
    }
}

}  // namespace

bool ReadOptions(int argc, char** argv, Options& options)
{
    struct Known {
        const char* name;
        std::string Options::*value;
    };
    constexpr Known kKnown[] = {{"--screenshot", &Options::screenshot},
                                {"--skin", &Options::skin},
                                {"--language", &Options::language},
                                {"--page", &Options::page}};
    for (int i = 1; i < argc; ++i) {
        const std::string_view word(argv[i]);
        const Known* found = nullptr;
        for (const Known& known : kKnown)
            found = word == known.name ? &known : found;
        if (found && i + 1 < argc) {
            options.*found->value = argv[++i];
        } else if (word == "--layered") {
            options.isLayered = true;
        } else if (word.substr(0, 2) != "--") {
            options.files.emplace_back(word);
        } else {
            std::fprintf(stderr,
                         "usage: %s [--screenshot FILE] [--skin NAME] [--language NAME] [--page NAME] "
                         "[--layered] [FILE...]\n",
                         argv[0]);
            return false;
        }
    }
    return true;
}

bool StartWithSkin(const char* entryDocument, const Options& options)
{
    CString entry;
    DUI::SetTraceSink(&ShowTrace, nullptr);
    if (!DUI::CResLoader().LoadXMLFromFile(entryDocument, entry) || !DUIGetAppInstance()->Init(entry, TRUE)) {
        std::fprintf(stderr, "The skin package (%s) cannot be used.\n", entryDocument);
        return false;
    }
    DUI::IDUISkinMgr& skins = *DUIGetAppInstance()->GetSkinMgr();
    if (!options.skin.empty())
        skins.SetSkinTyle(options.skin.c_str());
    if (!options.language.empty())
        skins.SetLanguageType(options.language.c_str());
    const bool hasSkin = options.skin.empty() || skins.GetSkinTyle() == options.skin.c_str();
    const bool hasLanguage = options.language.empty() || skins.GetLanguageType() == options.language.c_str();
    if (!hasSkin)
        std::fprintf(stderr, "There is no skin \"%s\".\n", options.skin.c_str());
    if (!hasLanguage)
        std::fprintf(stderr, "There is no language \"%s\".\n", options.language.c_str());
    return hasSkin && hasLanguage;
}

}  // namespace example
