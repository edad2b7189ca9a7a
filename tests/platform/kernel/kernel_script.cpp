#include "platform/kernel/kernel_script.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <sstream>

#include <qvui/platform/file.h>

#include <gtest/gtest.h>

#include "platform/damage.h"
#include "support/test_files.h"

using qvui::test::Quoted;

namespace {

using Wide = std::basic_string<WCHAR>;

std::string SignOf(int value)
{
    return std::to_string((value > 0) - (value < 0));
}

// An empty text when the flags forbid it.
Wide ToWide(UINT codePage, const std::string& text, DWORD flags)
{
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, flags, text.data(), length, nullptr, 0);
    Wide wide(static_cast<std::size_t>(size), WCHAR());
    EXPECT_EQ(MultiByteToWideChar(codePage, flags, text.data(), length, wide.data(), size), size);
    return wide;
}

std::string FromWide(UINT codePage, const Wide& wide, LPCSTR lacking)
{
    const int length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, lacking, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    BOOL isLacking = FALSE;
    EXPECT_EQ(WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(), size, lacking,
                                  codePage == CP_UTF8 ? nullptr : &isLacking),
              size);
    return Quoted(text) + (isLacking ? " lacking" : "");
}

struct CloseStream {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::string Read(std::string path)
{
    const std::unique_ptr<std::FILE, CloseStream> file(OpenPlatformFile(path.c_str(), "rb"));
    if (!file)
        return "none";
    char bytes[256];
    return Quoted({bytes, std::fread(bytes, 1, sizeof bytes, file.get())});
}

}  // namespace

std::string ModulePath(HMODULE module)
{
    char path[MAX_PATH];
    return {path, GetModuleFileNameA(module, path, sizeof path)};
}

KernelScript::KernelScript()
{
    AddText();
    AddCodePages();
    AddFiles();
    AddModules();
    AddMemory();
    KernelScript::EndCase();
    QVUI_CALLS(CloseHandle, CreateFileA, FreeLibrary, GetLastError, GetModuleHandleA, GlobalFree,
               GlobalReAlloc, GlobalSize, IsDBCSLeadByteEx, IsValidCodePage, LoadLibraryA, lstrlenA, MulDiv,
               SetLastError);
}

void KernelScript::EndCase()
{
    Script::EndCase();
    Name("INVALID_HANDLE_VALUE", INVALID_HANDLE_VALUE);
}

std::string KernelScript::TextOf(const std::string& word) const
{
    const std::string text = Script::TextOf(word);
    std::string program = ModulePath(nullptr);
    program.resize(program.rfind('\\') + 1);
    std::string slashes = program;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    for (const auto& [prefix, folder] :
         std::map<std::string, std::string>{{"data:", qvui::test::TestFile("platform/kernel/data/")},
                                            {"output:", qvui::test::OutputPath("")},
                                            {"program:", program},
                                            {"program/", slashes}})
        if (text.rfind(prefix, 0) == 0)
            return folder + text.substr(prefix.size());
    return text;
}

void KernelScript::AddText()
{
    // The order, and that without case
    Call("compare", [](LPCSTR left, LPCSTR right) {
        return SignOf(lstrcmpA(left, right)) + ' ' + SignOf(lstrcmpiA(left, right));
    });
    Call("alike", [](LPCSTR left, LPCSTR right) { return lstrcmpiA(left, right) == 0; });
    Call("copy", [](std::string text, int capacity) {
        char target[16] = "###############";
        lstrcpynA(target, text.c_str(), capacity);
        EXPECT_EQ(target[capacity], '#') << "nothing is written after the capacity";
        return Quoted(target);
    });
    Call("upper", [](std::string& text, DWORD length) { CharUpperBuffA(text.data(), length); });
    Call("lower", [](std::string& text, DWORD length) { CharLowerBuffA(text.data(), length); });
}

void KernelScript::AddCodePages()
{
    // The units of UTF-16, and what comes back from them when it is another text
    Call("convert", [](UINT codePage, std::string text) {
        const Wide wide = ToWide(codePage, text, 0);
        std::ostringstream answer;
        for (const WCHAR unit : wide)
            answer << std::hex << static_cast<unsigned>(unit) << ' ';
        SetLastError(0);
        if (ToWide(codePage, text, MB_ERR_INVALID_CHARS) != wide)
            answer << (GetLastError() == ERROR_NO_UNICODE_TRANSLATION ? "invalid" : "without an error");
        else if (const std::string back = FromWide(codePage, wide, nullptr); back != Quoted(text))
            answer << back;
        return answer.str();
    });
    Call("narrow", [](UINT codePage, LPCSTR lacking, Words words) {
        Wide wide;
        for (const std::string& word : words)
            wide += static_cast<WCHAR>(std::stoi(word, nullptr, 16));
        return FromWide(codePage, wide, lacking);
    });
    // Three letters both ways, with a length and a capacity: counts and errors
    Call("fit", [](int length, int capacity) {
        WCHAR wide[8] = {};
        SetLastError(0);
        const int units = MultiByteToWideChar(1252, 0, "abc", length, wide, capacity);
        const std::string answer = std::to_string(units) + ' ' + std::to_string(GetLastError());
        char text[8] = {};
        const WCHAR source[] = {'a', 'b', 'c', 0};
        SetLastError(0);
        const int bytes = WideCharToMultiByte(CP_UTF8, 0, source, length, text, capacity, nullptr, nullptr);
        return answer + ' ' + std::to_string(bytes) + ' ' + std::to_string(GetLastError());
    });
}

void KernelScript::AddFiles()
{
    Call("read", Read);
    Call("WriteFile", [](HANDLE file, std::string text) {
        DWORD count = 0;
        const BOOL result = WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
        return std::to_string(result) + ' ' + std::to_string(count);
    });
    Call("ReadFile", [](HANDLE file, DWORD size) {
        char buffer[16] = {};
        DWORD count = 0;
        const BOOL result = ReadFile(file, buffer, size, &count, nullptr);
        return std::to_string(result) + ' ' + Quoted({buffer, count});
    });
    Call("remove", [](std::string path) { std::remove(path.c_str()); });
}

void KernelScript::AddModules()
{
    // The bytes of a resource, or the file in "data:" that has the same ones
    Call("resource", [this](HMODULE module, LPCSTR name, LPCSTR type) -> std::string {
        const HRSRC found = FindResourceA(module, name, type);
        if (!found)
            return "none";
        const auto* const first = static_cast<const char*>(LockResource(LoadResource(module, found)));
        const std::string bytes(first, SizeofResource(module, found));
        for (const char* file : {"text.xml", "dot.png"}) {
            const Bytes other = FileBytes(TextOf(std::string("data:") + file));
            if (std::string(other.begin(), other.end()) == bytes)
                return file;
        }
        return Quoted(bytes);
    });
    Call("cursor", [](HMODULE module, WORD number) {
        const HANDLE cursor = LoadImageA(module, MAKEINTRESOURCEA(number), IMAGE_CURSOR, 0, 0, 0);
        return DestroyCursor(static_cast<HCURSOR>(cursor)) != FALSE;
    });
    Call("file", [](HMODULE module) {
        const std::string path = ModulePath(module);
        return path.substr(path.rfind('\\') + 1);
    });
    Call("has", [](HMODULE module, LPCSTR name) { return GetProcAddress(module, name) != nullptr; });
    // A static library gives this program the module's functions only when it calls one of their neighbours.
    ReleaseDC(nullptr, GetDC(nullptr));
}

void KernelScript::AddMemory()
{
    Call("GlobalAlloc", [](UINT flags, std::string text) {
        const HGLOBAL block = GlobalAlloc(flags, text.size());
        if (!(flags & GMEM_ZEROINIT))
            std::memcpy(GlobalLock(block), text.data(), text.size());
        GlobalUnlock(block);
        return block;
    });
    Call("bytes", [](HGLOBAL block, std::size_t size) {
        const std::string text(static_cast<const char*>(GlobalLock(block)), size);
        GlobalUnlock(block);
        return Quoted(text);
    });
    Call("CreateStreamOnHGlobal", [](HGLOBAL block, BOOL deletes) {
        IStream* stream = nullptr;
        CreateStreamOnHGlobal(block, deletes, &stream);
        return stream;
    });
    Call("Read", [](IStream* stream, std::size_t size) {
        std::string text(size, '?');
        ULONG count = 99;
        EXPECT_TRUE(SUCCEEDED(stream->Read(text.data(), static_cast<ULONG>(size), &count)));
        return Quoted(text.substr(0, count));
    });
    Call("Write", [](IStream* stream, std::string text) {
        ULONG count = 99;
        EXPECT_EQ(stream->Write(text.data(), static_cast<ULONG>(text.size()), &count), S_OK);
        return count;
    });
    Call("Seek", [](IStream* stream, LONGLONG offset, DWORD origin) {
        LARGE_INTEGER distance{};
        distance.QuadPart = offset;
        ULARGE_INTEGER position{};
        const HRESULT result = stream->Seek(distance, origin, &position);
        return SUCCEEDED(result) ? std::to_string(position.QuadPart) : "fails";
    });
    Call("SetSize", [](IStream* stream, ULONGLONG to) {
        ULARGE_INTEGER size{};
        size.QuadPart = to;
        return stream->SetSize(size);
    });
    Call("Release", [](IUnknown* unknown) { return unknown->Release(); });
    Call("QueryInterface", [](IStream* stream) {
        IUnknown* unknown = nullptr;
        stream->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown));
        return unknown;
    });
}
