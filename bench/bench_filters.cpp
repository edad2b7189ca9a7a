// The image filters against OpenCV on one thread, and against memcpy for those that only move pixels.

#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <opencv2/imgproc.hpp>

#include <qvui/render/filters/image_filter.h>

#include "ratio_reporter.h"

using namespace DUI;

namespace {

constexpr int kSize = 1024;

void Fill(CDibSection& section, int bitCount)
{
    section.Create(kSize, kSize, static_cast<WORD>(bitCount));
    std::mt19937 random(1);
    for (DWORD i = 0; i < section.GetDibHeader()->biSizeImage; ++i)
        section.GetBits()[i] = static_cast<BYTE>(random());
}

struct Pictures {
    explicit Pictures(int bits) : bitCount(bits)
    {
        Fill(section, bits);
        Fill(other, bits);
        const int type = bits == 32 ? CV_8UC4 : CV_8UC3;
        mat = cv::Mat(kSize, kSize, type, section.GetBits()).clone();
        otherMat = cv::Mat(kSize, kSize, type, other.GetBits()).clone();
        result = cv::Mat(kSize, kSize, type);
    }

    int bitCount;
    CDibSection section, other, target;
    cv::Mat mat, otherMat, result, grey, hls;
};

struct Pair {
    std::string name;
    std::function<void(Pictures&)> ours;
    std::function<void(Pictures&)> theirs;  // OpenCV, or memcpy
    double most = 2;                        // times as long
};

void FilterMat(Pictures& p, const float (&weights)[9], float scale, double offset)
{
    cv::Mat kernel(3, 3, CV_32F);
    for (int i = 0; i < 9; ++i)
        kernel.at<float>(i / 3, i % 3) = weights[i] * scale;
    cv::filter2D(p.mat, p.result, -1, kernel, cv::Point(-1, -1), offset);
}

// The table that both sides of the contrast look up.
cv::Mat ContrastTable()
{
    cv::Mat table(1, 256, CV_8U);
    for (int i = 0; i < 256; ++i)
        table.at<std::uint8_t>(i) = cv::saturate_cast<std::uint8_t>((i - 30) * 255 / 195);
    return table;
}

// A grey picture with the channels of the original; where the channels are three the alpha is none.
void GreyMat(Pictures& p)
{
    cv::cvtColor(p.mat, p.grey, p.bitCount == 32 ? cv::COLOR_BGRA2GRAY : cv::COLOR_BGR2GRAY);
}
void SpreadMat(Pictures& p)
{
    cv::cvtColor(p.grey, p.result, p.bitCount == 32 ? cv::COLOR_GRAY2BGRA : cv::COLOR_GRAY2BGR);
}

void ScaleHls(Pictures& p, int channel)
{
    cv::Mat bgr = p.mat;
    if (p.bitCount == 32)
        cv::cvtColor(p.mat, bgr, cv::COLOR_BGRA2BGR);
    cv::cvtColor(bgr, p.hls, cv::COLOR_BGR2HLS_FULL);
    cv::Scalar factors(1, 1, 1);
    factors[channel] = 1.1;
    cv::multiply(p.hls, factors, p.hls);
    cv::cvtColor(p.hls, bgr, cv::COLOR_HLS2BGR_FULL);
    if (p.bitCount == 32)
        cv::cvtColor(bgr, p.result, cv::COLOR_BGR2BGRA);
}

void CopyMat(Pictures& p)
{
    std::memcpy(p.result.data, p.section.GetBits(), p.section.GetDibHeader()->biSizeImage);
}

// Turning cannot happen in place: it makes a new section, and so does what it is measured by.
void CopyToNewSection(Pictures& p)
{
    CDibSection copy;
    copy.Create(kSize, kSize, static_cast<WORD>(p.bitCount));
    std::memcpy(copy.GetBits(), p.section.GetBits(), p.section.GetDibHeader()->biSizeImage);
    p.section.Transfer(&copy);
}

std::vector<Pair> Pairs()
{
    const CARGB color(10, 20, 30, 40);
    const cv::Scalar scalar(30, 20, 10, 40);
    const cv::Mat contrast = ContrastTable();
    return {
        {"smooth", [](Pictures& p) { CConvoluteFilter::Process(&p.section, CONVOLUTE_SMOOTH); },
         [](Pictures& p) {
             cv::blur(p.mat, p.result, {3, 3});
         }},
        {"gaussian", [](Pictures& p) { CGaussImageFilter::Process(&p.section); },
         [](Pictures& p) {
             cv::GaussianBlur(p.mat, p.result, {3, 3}, 0);
         }},
        {"sharpen", [](Pictures& p) { CSharpenImageFilter::Process(&p.section); },
         [](Pictures& p) {
             FilterMat(p, {0, -1, 0, -1, 9, -1, 0, -1, 0}, 0.2F, 0);
         }},
        {"edges", [](Pictures& p) { CEdgeImageFilter::Process(&p.section); },
         [](Pictures& p) {
             FilterMat(p, {-1, -1, -1, -1, 8, -1, -1, -1, -1}, 1, 128);
         }},
        {"emboss_135", [](Pictures& p) { CEmbossImageFilter::Process(&p.section); },
         [](Pictures& p) {
             FilterMat(p, {1, 0, 0, 0, 0, 0, 0, 0, -1}, 1, 128);
         }},
        {"emboss_90", [](Pictures& p) { CConvoluteFilter::Process(&p.section, CONVOLUTE_EMBOSS_90); },
         [](Pictures& p) {
             FilterMat(p, {0, 1, 0, 0, 0, 0, 0, -1, 0}, 0.5F, 128);
         }},
        {"fill", [color](Pictures& p) { CFillIColorFilter::Process(&p.section, color, nullptr); },
         [scalar](Pictures& p) { p.result.setTo(scalar); }},
        {"grey", [](Pictures& p) { CGrayScaleImageFilter::Process(&p.section, nullptr); },
         [](Pictures& p) {
             GreyMat(p);
             SpreadMat(p);
         }},
        {"black_white", [](Pictures& p) { CWhiteBlackImageFilter::Process(&p.section, nullptr, 100); },
         [](Pictures& p) {
             GreyMat(p);
             cv::threshold(p.grey, p.grey, 100, 255, cv::THRESH_BINARY);
             SpreadMat(p);
         }},
        {"brightness", [](Pictures& p) { CBrightenImageFilter::Process(&p.section, 5, nullptr); },
         [](Pictures& p) { p.mat.convertTo(p.result, -1, 1.05); }},
        {"fade", [](Pictures& p) { CFadeImageFilter::Process(&p.section, &p.other, 40); },
         [](Pictures& p) { cv::addWeighted(p.mat, 0.6, p.otherMat, 0.4, 0, p.result); }},
        {"negative", [](Pictures& p) { CNegativeImageFilter::Process(&p.section); },
         [](Pictures& p) { cv::bitwise_xor(p.mat, cv::Scalar(255, 255, 255, 0), p.result); }},
        {"replace", [color](Pictures& p) { CReplaceColourFilter::Process(&p.section, color, color); },
         [scalar](Pictures& p) {
             cv::inRange(p.mat, scalar, scalar, p.grey);
             p.mat.setTo(scalar, p.grey);
         }},
        {"contrast", [](Pictures& p) { CContrastFilter::Process(&p.section, 30); },
         [contrast](Pictures& p) { cv::LUT(p.mat, contrast, p.result); }},
        {"hue", [](Pictures& p) { CHueChangeFilter::Process(&p.section, 0); },
         [](Pictures& p) { ScaleHls(p, 0); }},
        {"saturation", [](Pictures& p) { CSaturationChangeFilter::Process(&p.section, 0); },
         [](Pictures& p) { ScaleHls(p, 2); }},
        {"pixelize", [](Pictures& p) { CPixelizeImageFilter::Process(&p.section, 8); },
         [](Pictures& p) {
             cv::resize(p.mat, p.grey, {kSize / 8, kSize / 8}, 0, 0, cv::INTER_AREA);
             cv::resize(p.grey, p.result, {kSize, kSize}, 0, 0, cv::INTER_NEAREST);
         }},
        {"mirror", [](Pictures& p) { CMirrorImageFilter::Process(&p.section); }, CopyMat},
        {"flip", [](Pictures& p) { CFlipImageFilter::Process(&p.section); }, CopyMat},
        {"rotate_left", [](Pictures& p) { CRotateLeftFilter::Process(&p.section); }, CopyToNewSection},
        {"rotate_right", [](Pictures& p) { CRotateRightFilter::Process(&p.section); }, CopyToNewSection},
        {"turn_left", [](Pictures& p) { CRotateLeftFilter::Process(&p.section); },
         [](Pictures& p) { cv::rotate(p.mat, p.result, cv::ROTATE_90_COUNTERCLOCKWISE); }},
        {"cut_out", [](Pictures& p) { CSelectImageFilter::Process(&p.section, &p.target, nullptr); },
         CopyMat},
    };
}

void Register(const std::string& name, int bitCount, const std::function<void(Pictures&)>& operation)
{
    benchmark::RegisterBenchmark(name.c_str(), [bitCount, operation](benchmark::State& state) {
        Pictures pictures(bitCount);
        for (auto _ : state) {
            operation(pictures);
            benchmark::ClobberMemory();
        }
    })->Unit(benchmark::kMicrosecond);
}

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    cv::setNumThreads(1);
    const std::vector<Pair> pairs = Pairs();
    for (const Pair& pair : pairs)
        for (const int bitCount : {24, 32}) {
            const std::string suffix = "_" + std::to_string(bitCount);
            Register(pair.name + suffix, bitCount, pair.ours);
            Register(pair.name + suffix + "_peer", bitCount, pair.theirs);
        }
    qvui::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Pair& pair : pairs)
        for (const char* suffix : {"_24", "_32"})
            reporter.PrintRatio((pair.name + suffix).c_str(), (pair.name + suffix + "_peer").c_str(),
                                pair.most);
}
