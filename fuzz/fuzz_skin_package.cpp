// A whole skin package: the input is cut into the files of a package beside the program, which is loaded,
// asked for everything that it names, drawn, and switched to another skin and language.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

#include <qvui/skin/skin_manager.h>
#include <qvui/skin/xml/xml_document.h>

#include "fuzz_support.h"

namespace {

// A line of this kind starts the next file; the first part is the entry document.
constexpr std::string_view kNextFile = "\n=====";
constexpr const char* kFiles[] = {"strings.xml",   "other.xml", "light.xml", "dark.xml", "styles.xml",
                                  "templates.xml", "image.png", "a.cur",     "a.dll"};

const std::string& Folder()
{
    static const std::string folder = [] {
        // One for each process, so that several may run beside each other.
        const std::string name = "fuzz-skin-" + std::to_string(getpid());
        const auto path = std::filesystem::canonical("/proc/self/exe").parent_path() / name;
        std::filesystem::create_directories(path);
        static const std::string created = path.string();
        std::atexit([] { std::filesystem::remove_all(created); });
        return name;
    }();
    return folder;
}

std::vector<std::string> Split(std::string_view input)
{
    std::vector<std::string> parts;
    while (parts.size() <= std::size(kFiles)) {
        const std::size_t end = input.find(kNextFile);
        parts.emplace_back(input.substr(0, end));
        if (end == std::string_view::npos)
            break;
        input.remove_prefix(end + kNextFile.size());
    }
    return parts;
}

// Files are called "@/name" in the input.
void Replace(std::string& text, std::string_view from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

// Every name that a document gives to an element.
std::vector<CString> Names(const std::string& text)
{
    constexpr std::size_t kMost = 50;
    std::vector<CString> names;
    DUI::CXmlDocument xml;
    xml.SetDocument(text.c_str());
    while (names.size() < kMost && xml.FindChildElement()) {
        xml.IntoElement();
        while (names.size() < kMost && xml.FindChildElement())
            names.push_back(xml.GetChildAttribute("name"));
        xml.OutOfElement();
    }
    return names;
}

void AskFor(DUI::CDUISkinMgr& manager, const CString& name, HDC canvas)
{
    CString text;
    const RECT place{2, 2, 40, 30};
    if (const DUI::CDUIImageListPtr image = manager.GetImage(name, 1)) {
        image->DrawImage(canvas, place, 0);
        image->DrawImage(canvas, place, image->GetItemCount() - 1);
    }
    if (const auto frame = manager.GetFrameBK(name); !frame.IsNull())
        frame->DrawBK(canvas, place);
    manager.GetCursor(name, 1);
    manager.GetFont(name, 0);
    manager.GetTextStyle(name);
    manager.GetColor(name);
    manager.GetStringText(name, text);
    manager.GetWindowTemplate(name, text);
    manager.GetMenuTemplate(name, text);
    manager.GetControlStyle(name, text);
    manager.GetPlugin(name, text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::string> parts = Split({reinterpret_cast<const char*>(data), size});
    const auto directory = std::filesystem::canonical("/proc/self/exe").parent_path();
    std::vector<CString> names;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isText = i < 7;
        if (isText) {
            Replace(parts[i], "..", "");  // nothing outside the folder is the package's
            Replace(parts[i], "@/", Folder() + "/");
            for (CString& name : Names(parts[i]))
                names.push_back(std::move(name));
        }
        if (i > 0)
            std::ofstream(directory / Folder() / kFiles[i - 1], std::ios::binary) << parts[i];
    }
    const Canvas canvas;
    DUI::CDUISkinMgr manager;
    manager.InitializeSkin(parts[0].c_str());
    for (const char* skin : {"light", "dark", "light"}) {
        for (const CString& name : names)
            AskFor(manager, name, canvas.Get());
        manager.SetLanguageType(skin[0] == 'l' ? "b" : "a");
        manager.SetSkinTyle(skin);
    }
    manager.AddNewSkin(parts[0].c_str());
    manager.UninitializeSkin();
    for (std::size_t i = 1; i < parts.size(); ++i)
        std::filesystem::remove(directory / Folder() / kFiles[i - 1]);
    return 0;
}
