#include "support/screenshot.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "support/target.h"
#include "support/test_files.h"

namespace qvui::test {
namespace {

namespace fs = std::filesystem;

std::string GoldenPath(const std::string& name)
{
    const std::string base = TestFile("golden/" + name);
    const std::string own = base + "." + TargetName() + ".png";
    return fs::exists(own) ? own : base + ".png";
}

bool UpdatesGoldens()
{
    const char* value = std::getenv("QVUI_UPDATE_GOLDENS");
    return value && std::string_view(value) == "1";
}

const std::uint8_t* PixelOf(const CImage& image, int x, int y)
{
    return static_cast<const std::uint8_t*>(image.GetPixelAddress(x, y));
}

bool IsWrong(const CImage& expected, const CImage& actual, int x, int y, int tolerance)
{
    const std::uint8_t* one = PixelOf(expected, x, y);
    const std::uint8_t* other = PixelOf(actual, x, y);
    for (int channel = 0; channel < 3; ++channel)
        if (std::abs(one[channel] - other[channel]) > tolerance)
            return true;
    return false;
}

// Counts the wrong pixels and marks them white in `difference`, which has the images' size.
int CompareImages(const CImage& expected, const CImage& actual, int tolerance, CImage& difference)
{
    int wrong = 0;
    for (int y = 0; y < actual.GetHeight(); ++y)
        for (int x = 0; x < actual.GetWidth(); ++x)
            if (IsWrong(expected, actual, x, y, tolerance)) {
                ++wrong;
                std::fill_n(static_cast<std::uint8_t*>(difference.GetPixelAddress(x, y)), 3,
                            std::uint8_t{255});
            }
    return wrong;
}

std::string SizeOf(const CImage& image)
{
    return std::to_string(image.GetWidth()) + "x" + std::to_string(image.GetHeight());
}

std::string Flattened(std::string name)
{
    std::replace(name.begin(), name.end(), '/', '-');
    return name;
}

}  // namespace

void TakeScreenshot(HWND window, CImage& image)
{
    const ClientPixels client = ReadClient(window);
    if (!image.Create(client.width, client.height, 24))
        return;
    for (int y = 0; y < client.height; ++y)
        for (int x = 0; x < client.width; ++x) {
            const std::uint32_t pixel = client.At(x, y);
            auto* out = static_cast<std::uint8_t*>(image.GetPixelAddress(x, y));
            for (int channel = 0; channel < 3; ++channel)
                out[channel] = static_cast<std::uint8_t>(pixel >> (8 * channel));
        }
}

testing::AssertionResult MatchesPicture(const CImage& image, const std::string& path, const std::string& name,
                                        GoldenTolerance tolerance)
{
    const std::string output = OutputPath(Flattened(name));
    if (image.IsNull())
        return testing::AssertionFailure() << name << ": there is no picture to compare";
    CImage expected;
    if (FAILED(expected.Load(path.c_str()))) {
        image.Save((output + ".actual.png").c_str());
        return testing::AssertionFailure() << path << " is missing; see " << output << ".actual.png";
    }
    const bool isSameSize =
        expected.GetWidth() == image.GetWidth() && expected.GetHeight() == image.GetHeight();
    CImage difference;
    difference.Create(image.GetWidth(), image.GetHeight(), 24);
    const int wrong = isSameSize ? CompareImages(expected, image, tolerance.channel, difference) : 0;
    if (isSameSize && wrong <= tolerance.wrongPixels * image.GetWidth() * image.GetHeight())
        return testing::AssertionSuccess();
    expected.Save((output + ".expected.png").c_str());
    image.Save((output + ".actual.png").c_str());
    if (!isSameSize)
        return testing::AssertionFailure() << name << " is " << SizeOf(image) << " instead of "
                                           << SizeOf(expected) << "; see " << output << ".*.png";
    difference.Save((output + ".difference.png").c_str());
    return testing::AssertionFailure()
           << name << ": " << wrong << " pixels differ; see " << output << ".*.png";
}

testing::AssertionResult MatchesGolden(const CImage& image, const std::string& name,
                                       GoldenTolerance tolerance)
{
    const std::string path = GoldenPath(name);
    if (!UpdatesGoldens())
        return MatchesPicture(image, path, name, tolerance);
    fs::create_directories(fs::path(path).parent_path());
    if (SUCCEEDED(image.Save(path.c_str())))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << path << " could not be written";
}

testing::AssertionResult MatchesGolden(HWND window, const std::string& name, GoldenTolerance tolerance)
{
    CImage image;
    TakeScreenshot(window, image);
    return MatchesGolden(image, name, tolerance);
}

}  // namespace qvui::test
