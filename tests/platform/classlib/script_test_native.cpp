// Scripts in other code pages, and pictures that only the native decoders are trusted with.

#include "platform/classlib/classlib_script.h"
#include "platform/native_code_page.h"
#include "platform/platform_test.h"

using NativeImages = PlatformTest;

TEST_F(NativeImages, AndTextsGoAsTheScriptsSay)
{
    qvui::test::CheckScripts<InCodePages<ClasslibScript>>("classlib/native_scripts");
}

TEST_F(NativeImages, OfDamagedTiffFilesAreReadSafely)
{
    for (const std::string& path : Pictures(true))
        LoadEveryDamage(path);
}
