// Files that are none, and would keep whoever reads them waiting.

#include <sys/stat.h>

#include <cstdio>

#include <qvui/platform/file.h>
#include <qvui/platform/platform.h>

#include "platform/platform_test.h"
#include "support/screenshot.h"

using NativeFiles = PlatformTest;

TEST_F(NativeFiles, ThatNeedNotEndAreNotRead)
{
    const std::string pipe = qvui::test::OutputPath("pipe");
    std::remove(pipe.c_str());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, std::string("/dev/zero")}) {
        EXPECT_EQ(OpenPlatformFile(path.c_str(), "rb"), nullptr) << path;
        EXPECT_EQ(LoadLibraryA(path.c_str()), nullptr) << path;
        EXPECT_EQ(LoadImageA(nullptr, path.c_str(), IMAGE_CURSOR, 0, 0, LR_LOADFROMFILE), nullptr) << path;
    }
    std::remove(pipe.c_str());
}
