// The system's language, and case in its code page.

#include <cstdlib>

#include <qvui/platform/platform.h>

#include "platform/native_code_page.h"
#include "platform/platform_test.h"

namespace {

// An environment variable's value for one scope; null removes it.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : m_name(name)
    {
        if (const char* old = std::getenv(name)) {
            m_hadValue = true;
            m_old = old;
        }
        Set(value);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() { Set(m_hadValue ? m_old.c_str() : nullptr); }

private:
    void Set(const char* value)
    {
        if (value)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
    }

    const char* m_name;
    bool m_hadValue = false;
    std::string m_old;
};

}  // namespace

using Language = PlatformTest;

TEST_F(Language, ComesFromTheEnvironment)
{
    struct Case {
        const char* all;
        const char* characters;
        const char* language;
        LANGID id;
    };
    for (const Case& c :
         {Case{nullptr, nullptr, "zh_CN.UTF-8", 2052}, Case{nullptr, nullptr, "de_DE.UTF-8", 1031},
          Case{"zh_TW.BIG5", "ja_JP", "de_DE", 1028}, Case{nullptr, "ja_JP.UTF-8", "de_DE", 1041},
          Case{"", "", "ko_KR", 1042}, Case{nullptr, nullptr, "C.UTF-8", 1033},
          Case{nullptr, nullptr, nullptr, 1033}}) {
        const ScopedVariable all("LC_ALL", c.all);
        const ScopedVariable characters("LC_CTYPE", c.characters);
        const ScopedVariable language("LANG", c.language);
        EXPECT_EQ(GetSystemDefaultLangID(), c.id) << (c.language ? c.language : "none");
    }
}

TEST_F(Language, CaseChangesWholeCharacters)
{
    struct Case {
        UINT codePage;
        std::string lower;
        std::string upper;
    };
    const std::vector<Case> cases{
        {65001, "stra\u00E9 \u00FC\u0436", "STRA\u00C9 \u00DC\u0416"},
        {1252,
         "\xE9\xFC"
         "a",
         "\xC9\xDC"
         "A"},
        {1251, "\xEF\xF0", "\xCF\xD0"},
        // The second byte of a pair may look like a letter and stays as it is.
        {936,
         "\x81\x61"
         "a",
         "\x81\x61"
         "A"},
        {932,
         "\x83\x61"
         "a",
         "\x83\x61"
         "A"},
        {65001,
         "\xFF"
         "a",
         "\xFF"
         "A"},
    };
    for (const Case& c : cases) {
        const NativeCodePage codePage(c.codePage);
        std::string text = c.lower;
        CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
        EXPECT_EQ(text, c.upper) << c.codePage;
        CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
        EXPECT_EQ(text, c.lower) << c.codePage;
        EXPECT_EQ(lstrcmpiA(c.lower.c_str(), c.upper.c_str()), 0) << c.codePage;
    }
}
