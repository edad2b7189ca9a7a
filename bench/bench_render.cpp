// Regions from colour keys against Qt's regions from bitmaps, and the drawing operations that controls use
// most.

#include <cmath>
#include <random>

#include <QBitmap>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegion>

#include <qvui/render/bitmap_functions.h>
#include <qvui/render/dib_section.h>
#include <qvui/render/render_engine.h>

#include "ratio_reporter.h"

using namespace DUI;

namespace {

constexpr int kSize = 1024;
constexpr QRgb kMagenta = 0xFFFF00FF;

// A disc whose edge is torn: near it, pixels are inside or outside by chance.
QImage TornDisc()
{
    QImage image(kSize, kSize, QImage::Format_ARGB32);
    std::mt19937 random(1);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const double distance = std::hypot(x - kSize / 2.0, y - kSize / 2.0);
            const double noise = static_cast<double>(random() % 41) - 20;
            image.setPixel(x, y, distance + noise < kSize * 0.45 ? 0xFF306090 : kMagenta);
        }
    return image;
}

void RegionOurs(benchmark::State& state)
{
    const QImage disc = TornDisc();
    CDibSection section;
    section.Create(kSize, kSize, 32);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const QRgb pixel = disc.pixel(x, y);
            section.SetPixel(x, y,
                             CARGB(static_cast<BYTE>(qRed(pixel)), static_cast<BYTE>(qGreen(pixel)),
                                   static_cast<BYTE>(qBlue(pixel)), 255),
                             TRUE);
        }
    for (auto _ : state)
        DeleteObject(CBitmapCommonFunction::BitmapToRgn(section.GetBitmap(), CARGB(255, 0, 255, 255), 0));
}

// From the same 32-bit picture: the mask of the colour, then the region.
void RegionQt(benchmark::State& state)
{
    const QImage disc = TornDisc();
    for (auto _ : state) {
        const QBitmap mask = QBitmap::fromImage(disc.createMaskFromColor(kMagenta, Qt::MaskOutColor));
        const QRegion region(mask);
        benchmark::DoNotOptimize(region.rectCount());
    }
}

// The region alone, from a mask that exists already.
void RegionQtFromMask(benchmark::State& state)
{
    const QBitmap mask = QBitmap::fromImage(TornDisc().createMaskFromColor(kMagenta, Qt::MaskOutColor));
    for (auto _ : state) {
        const QRegion region(mask);
        benchmark::DoNotOptimize(region.rectCount());
    }
}

// A context on a section of the size of a window.
class Target {
public:
    Target()
    {
        m_section.Create(800, 600, 32);
        m_hdc = CreateCompatibleDC(nullptr);
        m_old = SelectObject(m_hdc, m_section.GetBitmap());
    }
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    ~Target()
    {
        SelectObject(m_hdc, m_old);
        DeleteDC(m_hdc);
    }
    operator HDC() const { return m_hdc; }

private:
    CDibSection m_section;
    HDC m_hdc;
    HGDIOBJ m_old;
};

template <class Draw>
void Ours(benchmark::State& state, Draw draw)
{
    const Target target;
    for (auto _ : state)
        draw(target);
}

template <class Draw>
void Theirs(benchmark::State& state, Draw draw)
{
    QImage image(800, 600, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    for (auto _ : state)
        draw(painter);
}

void FillOurs(benchmark::State& state)
{
    Ours(state, [](HDC hdc) { CDUIRenderEngine::FillRect(hdc, {10, 10, 110, 40}, CARGB(10, 20, 30, 128)); });
}

void FillQt(benchmark::State& state)
{
    Theirs(state, [](QPainter& painter) { painter.fillRect(10, 10, 100, 30, QColor(10, 20, 30, 128)); });
}

void GradientOurs(benchmark::State& state)
{
    Ours(state, [](HDC hdc) {
        CDUIRenderEngine::DrawGradien(hdc, {10, 10, 410, 110}, CARGB(10, 20, 30, 128),
                                      CARGB(200, 100, 50, 128), 1);
    });
}

void GradientQt(benchmark::State& state)
{
    Theirs(state, [](QPainter& painter) {
        QLinearGradient gradient(0, 10, 0, 110);
        gradient.setColorAt(0, QColor(10, 20, 30, 128));
        gradient.setColorAt(1, QColor(200, 100, 50, 128));
        painter.fillRect(10, 10, 400, 100, gradient);
    });
}

BENCHMARK(RegionOurs)->Unit(benchmark::kMicrosecond);
BENCHMARK(RegionQt)->Unit(benchmark::kMicrosecond);
BENCHMARK(RegionQtFromMask)->Unit(benchmark::kMicrosecond);
BENCHMARK(FillOurs)->Unit(benchmark::kMicrosecond);
BENCHMARK(FillQt)->Unit(benchmark::kMicrosecond);
BENCHMARK(GradientOurs)->Unit(benchmark::kMicrosecond);
BENCHMARK(GradientQt)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    qvui::bench::RunAndCompare({
        {"RegionOurs", "RegionQt", 1},
        // For scale: the mask is most of the other side's work.
        {"RegionOurs", "RegionQtFromMask", 2},

        {"FillOurs", "FillQt", 1.2},
        {"GradientOurs", "GradientQt", 1.2},
    });
}
