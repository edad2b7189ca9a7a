#include "platform/classlib/classlib_script.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <sstream>

#include <qvui/platform/cstring.h>

#include "support/test_files.h"

using qvui::test::Quoted;

namespace {

std::string PicturePath(const std::string& name)
{
    return qvui::test::TestFile("platform/classlib/data/" + name);
}

std::string SignOf(int value)
{
    return std::to_string((value > 0) - (value < 0));
}

void LoadAndRead(const Bytes& bytes)
{
    CImage image;
    LoadBytes(image, bytes);
    volatile std::uint32_t sum = 0;
    for (const std::uint32_t pixel : PixelsOf(image))
        sum = sum + pixel;
}

std::string Kind(const CImage& image)
{
    return std::to_string(image.GetWidth()) + 'x' + std::to_string(image.GetHeight()) + ' ' +
           std::to_string(image.GetBPP()) + (image.GetHasAlphaChannel() ? " alpha" : "") +
           (image.GetTransparentColor() == CLR_INVALID ? "" : " keyed");
}

}  // namespace

HRESULT LoadBytes(CImage& image, const Bytes& bytes)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (!bytes.empty())
        std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(block, TRUE, &stream)))
        return E_FAIL;
    const HRESULT result = image.Load(stream);
    stream->Release();
    return result;
}

std::vector<std::string> Pictures(bool areTiff)
{
    std::vector<std::string> paths;
    for (const auto& file : std::filesystem::directory_iterator(PicturePath("")))
        if (file.is_regular_file() && file.path().extension() != ".sh" &&
            (file.path().extension() == ".tif") == areTiff)
            paths.push_back(file.path().string());
    return paths;
}

void LoadEveryDamage(const std::string& path)
{
    const Bytes whole = FileBytes(path);
    ForEachCut(whole, LoadAndRead);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        Bytes changed = whole;
        changed[at] ^= static_cast<std::uint8_t>(at % 3 == 0 ? 0xFF : at % 3 == 1 ? 0x80 : 0x01);
        LoadAndRead(changed);
    }
}

std::vector<std::uint32_t> PixelsOf(const CImage& image)
{
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, image.GetPixelAddress(x, y), static_cast<std::size_t>(image.GetBPP() / 8));
            pixels.push_back(pixel);
        }
    return pixels;
}

// Found by its argument, so it stands where CString does.
std::string Quoted(const CString& text)
{
    return Quoted(std::string(text.GetString()));
}

namespace qvui::test {

void Read(Script& script, Script::Words& words, CString& text)
{
    text = script.TextOf(script.Take(words)).c_str();
}

}  // namespace qvui::test

ClasslibScript::ClasslibScript()
{
    AddQuestions();
    AddParts();
    AddEdits();
    AddPictures();
}

void ClasslibScript::AddQuestions()
{
    // The order, and that without case
    Call("Compare", [](CString left, CString right) {
        const int order = left.Compare(right);
        const bool isConsistent = (left == right) == (order == 0) && (left != right) == (order != 0) &&
                                  (left < right) == (order < 0);
        return SignOf(order) + ' ' + SignOf(left.CompareNoCase(right)) +
               (isConsistent ? "" : " but other operators");
    });
    Call("EqualNoCase", [](std::string left, std::string right) { return EqualNoCase(left, right); });
    // A single character is looked for as a character, too
    Call("Find", [](CString text, CString what, int from) {
        const int found = text.Find(what, from);
        const bool isSame = what.GetLength() != 1 || text.Find(what[0], from) == found;
        return std::to_string(found) + (isSame ? "" : " but another character");
    });
    Call("ReverseFind", [](CString text, CString what) { return text.ReverseFind(what[0]); });
    Call("FindOneOf", [](CString text, CString what) { return text.FindOneOf(what); });
    Call("CharacterLength",
         [](std::string text) { return CharacterLength(text.data(), text.data() + text.size()); });
}

void ClasslibScript::AddParts()
{
    Call("Mid", [](CString text, int first, int count) { return Quoted(text.Mid(first, count)); });
    // The left and the right part
    Call("Ends",
         [](CString text, int count) { return Quoted(text.Left(count)) + ' ' + Quoted(text.Right(count)); });
    Call("Tokenize", [](CString text, CString dividers) {
        std::string tokens;
        int position = 0;
        for (CString token = text.Tokenize(dividers, position); position >= 0;
             token = text.Tokenize(dividers, position))
            tokens += Quoted(token) + ' ';
        return tokens + (text.Tokenize(dividers, position).IsEmpty() ? "" : "after the end");
    });
}

void ClasslibScript::AddEdits()
{
    Call("MakeUpper", [](CString& text) { text.MakeUpper(); });
    Call("MakeLower", [](CString& text) { text.MakeLower(); });
    Call("TrimLeft", [](CString& text) { text.TrimLeft(); });
    Call("TrimRight", [](CString& text) { text.TrimRight(); });
    Call("Trim", [](CString& text, std::optional<CString> what) { what ? text.Trim(*what) : text.Trim(); });
    Call("SetAt", [](CString& text, int at, CString what) { text.SetAt(at, what[0]); });
    Call("Remove", [](CString& text, CString what) { return text.Remove(what[0]); });
    Call("Replace", [](CString& text, CString from, LPCSTR to) { return text.Replace(from, to); });
    Call("Delete", [](CString& text, int first, int count) { return text.Delete(first, count); });
    Call("Insert", [](CString& text, int at, CString what) { return text.Insert(at, what); });
}

void ClasslibScript::Show(const CImage& image, std::uint32_t mask)
{
    const std::vector<std::uint32_t> pixels = PixelsOf(image);
    for (std::size_t at = 0; at < pixels.size();) {
        std::ostringstream row;
        for (int x = 0; x < image.GetWidth(); ++x, ++at)
            if (image.GetBPP() == 32 && pixels[at] >> 24 == 0)
                row << "       0 ";
            else
                row << std::hex << std::setw(image.GetBPP() / 4) << std::setfill('0') << (pixels[at] & mask)
                    << ' ';
        Print(row.str().substr(0, row.str().size() - 1));
    }
}

std::string ClasslibScript::Load(CImage& image, const std::string& file, Words changes)
{
    Bytes bytes = FileBytes(PicturePath(file));
    while (!changes.empty()) {
        const auto at = static_cast<std::ptrdiff_t>(Number(Take(changes)));
        const std::string replaced = TextOf(Take(changes));
        std::copy(replaced.begin(), replaced.end(), bytes.begin() + at);
    }
    return SUCCEEDED(LoadBytes(image, bytes)) ? Kind(image)
           : image.IsNull()                   ? "fails"
                                              : "fails, but is there";
}

void ClasslibScript::AddPictures()
{
    Call("load", [this](std::string file, Words changes) {
        CImage image;
        const std::string kind = Load(image, file, changes);
        Show(image);
        return kind;
    });
    Call("coarse", [this](std::string file) {
        CImage image;
        const std::string kind = Load(image, file, {});
        Show(image, 0xF8F8F8F8);
        return kind;
    });
    Call("near", [this](std::string file, std::uint32_t expected, int tolerance) {
        CImage image;
        const std::string kind = Load(image, file, {});
        int farthest = 0;
        for (const std::uint32_t pixel : PixelsOf(image))
            for (int shift = 0; shift < 32; shift += 8)
                farthest = std::max(farthest, std::abs(static_cast<int>(pixel >> shift & 0xFF) -
                                                       static_cast<int>(expected >> shift & 0xFF)));
        return kind + (farthest <= tolerance ? "" : " another colour");
    });
    Call("sum", [this](std::string file) {
        CImage image;
        const std::string kind = Load(image, file, {});
        std::uint32_t sum = 0;
        for (const std::uint32_t pixel : PixelsOf(image))
            sum = sum * 31 + pixel;
        return kind + ' ' + std::to_string(sum);
    });
    // A file of these bytes, after which another one may follow
    Call("bytes", [this](std::string text, std::optional<std::string> file) {
        Bytes bytes(text.begin(), text.end());
        const Bytes rest = file ? FileBytes(PicturePath(*file)) : Bytes();
        bytes.insert(bytes.end(), rest.begin(), rest.end());
        CImage image;
        const bool isLoaded = SUCCEEDED(LoadBytes(image, bytes));
        Show(image);
        return isLoaded ? Kind(image) : "fails";
    });
}
