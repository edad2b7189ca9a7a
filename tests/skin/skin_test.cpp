#include "skin/skin_test.h"

#include <qvui/skin/xml/xml_document.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/test_files.h"

namespace {

constexpr int kIconSize = 8;

}  // namespace

std::string ProgramDirectory()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program(path);
    return program.substr(0, program.rfind('\\'));
}

SkinFolder::SkinFolder()
{
    std::filesystem::create_directories(Path(""));
}

SkinFolder::~SkinFolder()
{
    std::filesystem::remove_all(Path(""));
}

std::string SkinFolder::LibraryPath(const std::string& file)
{
    return ProgramDirectory() + "\\skin-test\\" + file;
}

std::string SkinFolder::Path(const std::string& file)
{
    std::string path = LibraryPath(file);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

void SkinFolder::Write(const std::string& file, std::string_view bytes) const
{
    std::filesystem::create_directories(std::filesystem::path(Path(file)).parent_path());
    std::ofstream stream(Path(file), std::ios::binary);
    stream << bytes;
    ASSERT_TRUE(stream.flush()) << file;
}

std::string SkinFolder::Read(const std::string& file) const
{
    std::ifstream stream(Path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void SkinFolder::WriteStrip(const std::string& file, std::initializer_list<std::uint32_t> colors) const
{
    CImage image;
    ASSERT_TRUE(image.Create(kIconSize * static_cast<int>(colors.size()), kIconSize, 32));
    image.SetHasAlphaChannel(TRUE);
    int left = 0;
    for (const std::uint32_t color : colors) {
        for (int y = 0; y < kIconSize; ++y)
            for (int x = 0; x < kIconSize; ++x)
                *static_cast<std::uint32_t*>(image.GetPixelAddress(left + x, y)) = color;
        left += kIconSize;
    }
    ASSERT_EQ(image.Save(Path(file).c_str()), S_OK) << file;
}

void SkinFolder::WriteCursor(const std::string& file) const
{
    std::ifstream cursor(qvui::test::TestFile("skin/data/hand.cur"), std::ios::binary);
    Write(file, std::string(std::istreambuf_iterator<char>(cursor), {}));
}

TraceLines::TraceLines()
{
    DUI::SetTraceSink(
        [](void* self, const char* text) {
            auto& traces = *static_cast<TraceLines*>(self);
            const std::string_view line(text);
            const bool isObject = line.starts_with("CFontObject::") || line.starts_with("CCursorObject::");
            if (!isObject || traces.m_keepsObjects)
                traces.m_lines.emplace_back(line);
        },
        this);
}

std::vector<std::string> LogWords(const CString& log)
{
    std::vector<std::string> words;
    DUI::CXmlDocument xml;
    EXPECT_TRUE(xml.SetDocument("<log>" + log + "</log>")) << log.GetString();
    while (xml.FindChildElement())
        words.emplace_back(xml.GetChildTagName());
    return words;
}

std::uint32_t IconColor(const DUI::CDUIImageListPtr& list, int icon)
{
    if (!list || list->IsNull())
        return 0;
    CImage& image = *list->GetRawImage();
    const auto* pixel = static_cast<const std::uint8_t*>(
        image.GetPixelAddress(icon * kIconSize + kIconSize / 2, kIconSize / 2));
    const std::uint32_t alpha = image.GetBPP() == 32 ? pixel[3] : 255;
    return (alpha << 24) | (std::uint32_t{pixel[2]} << 16) | (std::uint32_t{pixel[1]} << 8) | pixel[0];
}
