// Loading a whole skin package against decoding its pictures alone: 500 images, 200 styles and 2,000 strings.
// The package's images are made on first use, so the benchmark asks for every one.

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/cimage.h>
#include <qvui/skin/skin_manager.h>

#include "ratio_reporter.h"

namespace {

constexpr int kImages = 500;
constexpr int kStyles = 200;
constexpr int kStrings = 2000;
constexpr const char* kFolder = "bench-skin";

/// The package in files beside the program, for the run of the program.
class Package {
public:
    Package()
    {
        std::filesystem::create_directories(m_folder);
        for (int i = 0; i < kImages; ++i)
            WriteImage(i);
        Write("strings.xml",
              Repeat(kStrings, "<string id=\"ids_string_%d\">The text of string %d</string>\n"));
        Write("resources.xml",
              "<color_set>" + Repeat(100, "<color name=\"color_%d\" value=\"#FF00%02X00\"/>\n") +
                  "</color_set><font_set>" + Repeat(10, "<font name=\"font_%d\" height=\"-%d\"/>\n") +
                  "</font_set><image_set>" +
                  Repeat(kImages,
                         "<image name=\"image_%d\" config_type=\"file\" file_name=\"bench-skin\\%d.png\" "
                         "drawstyle=\"squard\" corner=\"8,8\" count=\"4\"/>\n") +
                  "</image_set>");
        Write("styles.xml",
              "<text_style_set>" +
                  Repeat(kStyles / 2,
                         "<text_style name=\"text_%d\" format=\"DT_CENTER|DT_VCENTER|DT_SINGLELINE\" "
                         "font=\"font_1\" normal_color=\"color_%d\" hover_color=\"color_1\"/>\n") +
                  "</text_style_set><frame_style_set>" +
                  Repeat(kStyles / 2,
                         "<frame_style name=\"frame_%d\" back_color=\"color_%d,color_2\" "
                         "border_color=\"color_3\" border_rect=\"1,1,1,1\"/>\n") +
                  "</frame_style_set>");
        Write("templates.xml",
              "<window_template>" +
                  Repeat(20, "<window name=\"window_%d\"><button name=\"b_%d\"/></window>\n") +
                  "</window_template>");
    }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;
    ~Package() { std::filesystem::remove_all(m_folder); }

    std::string Path(const std::string& file) const { return (m_folder / file).string(); }

private:
    static std::string Repeat(int count, const char* line)
    {
        std::string text;
        char buffer[512];
        for (int i = 0; i < count; ++i) {
            std::snprintf(buffer, sizeof buffer, line, i, i + 1);
            text += buffer;
        }
        return text;
    }
    void Write(const std::string& file, const std::string& content) const
    {
        std::ofstream(Path(file), std::ios::binary) << "<document>" << content << "</document>";
    }
    // A strip of four icons. As in the skins of the gallery six pixels of ten are opaque, three clear, and
    // those between have one soft edge; the texture keeps the decoder busy.
    void WriteImage(int number) const
    {
        constexpr int kWidth = 128;
        constexpr int kHeight = 32;
        constexpr int kMargin = 3;
        CImage image;
        image.Create(kWidth, kHeight, 32);
        image.SetHasAlphaChannel(TRUE);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const int edge = std::min({x % 32, 31 - x % 32, y, 31 - y});
                const unsigned alpha = edge < kMargin ? 0U : edge == kMargin ? 128U : 255U;
                const auto shade = static_cast<unsigned>((number * 37 + y * 3 + (x * y) % 5) % 256);
                *static_cast<unsigned*>(image.GetPixelAddress(x, y)) = alpha << 24 | shade << 16 | 0x8040U;
            }
        image.Save(Path(std::to_string(number + 1) + ".png").c_str());
    }

    std::filesystem::path m_folder = std::filesystem::canonical("/proc/self/exe").parent_path() / kFolder;
};

std::unique_ptr<Package> g_package;

CString EntryDocument()
{
    const auto set = [](const std::string& tag, const std::string& file) {
        return "<" + tag + "_set default=\"s\"><" + tag + " name=\"s\" config_type=\"file\" file_name=\"" +
               kFolder + "/" + file + "\"/></" + tag + "_set>";
    };
    return CString(("<skin>" + set("language", "strings.xml") + set("skin", "resources.xml") +
                    set("style", "styles.xml") + set("template", "templates.xml") + "</skin>")
                       .c_str());
}

void SkinLoad(benchmark::State& state)
{
    const CString entry = EntryDocument();
    std::vector<CString> names;
    for (int i = 0; i < kImages; ++i)
        names.emplace_back(("image_" + std::to_string(i)).c_str());
    for (auto _ : state) {
        DUI::CDUISkinMgr manager;
        if (!manager.InitializeSkin(entry))
            state.SkipWithError("the package does not load");
        for (const CString& name : names) {
            const DUI::CDUIImageListPtr image = manager.GetImage(name, 1);
            if (!image || image->IsNull())
                state.SkipWithError("an image is missing");
        }
    }
}

// The same files, every bitmap kept to the end as the package keeps them.
void DecodingAlone(benchmark::State& state)
{
    std::vector<std::string> files;
    for (int i = 0; i < kImages; ++i)
        files.push_back(g_package->Path(std::to_string(i + 1) + ".png"));
    for (auto _ : state) {
        std::vector<std::unique_ptr<CImage>> images;
        for (const std::string& file : files) {
            images.push_back(std::make_unique<CImage>());
            if (FAILED(images.back()->Load(file.c_str())))
                state.SkipWithError("a file is missing");
        }
    }
}

BENCHMARK(SkinLoad)->Unit(benchmark::kMillisecond)->MinTime(0.2)->Repetitions(15);
BENCHMARK(DecodingAlone)->Unit(benchmark::kMillisecond)->MinTime(0.2)->Repetitions(15);

}  // namespace

int main(int argc, char** argv)
{
    // Taking turns, so that a busy moment of the machine does not fall on one of the two alone.
    char takeTurns[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, takeTurns);
    int count = argc + 1;
    benchmark::Initialize(&count, arguments.data());
    g_package = std::make_unique<Package>();
    qvui::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("SkinLoad", "DecodingAlone", 1.1);
    g_package.reset();
}
