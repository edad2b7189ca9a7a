#pragma once

#include <string>

#include <gtest/gtest.h>

#include <qvui/platform/cimage.h>

#include "support/platform_window.h"
#include "support/test_files.h"

namespace qvui::test {

/// Copies a window's client area into an image of 24 bits per pixel.
void TakeScreenshot(HWND window, CImage& image);

/// How far a picture may be from its golden file. Every use that is not exact says why.
struct GoldenTolerance {
    int channel = 0;         // a pixel is wrong when a channel differs by more than this
    double wrongPixels = 0;  // the share of pixels, 0 to 1, that may be wrong
};

/// Compares an image with a picture file. On a mismatch the files <name>.expected.png, <name>.actual.png and
/// <name>.difference.png (wrong pixels white) are left in the build directory's test-output folder and named
/// in the failure; slashes in the name become dashes.
testing::AssertionResult MatchesPicture(const CImage& image, const std::string& path, const std::string& name,
                                        GoldenTolerance tolerance = {});

/// MatchesPicture of an image, or a window's client area, with tests/golden/<name>.png; where the targets
/// differ, tests/golden/<name>.native.png or <name>.windows.png comes first. With QVUI_UPDATE_GOLDENS=1 in
/// the environment the golden file is written instead.
testing::AssertionResult MatchesGolden(const CImage& image, const std::string& name,
                                       GoldenTolerance tolerance = {});
testing::AssertionResult MatchesGolden(HWND window, const std::string& name, GoldenTolerance tolerance = {});

}  // namespace qvui::test
