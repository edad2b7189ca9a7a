#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <qvui/foundation/trace.h>
#include <qvui/platform/cimage.h>
#include <qvui/skin/skin_manager.h>

#include "support/leak_check.h"
#include "support/table.h"

/// A folder beside the test program, where the library looks for the files of a skin. It goes with the
/// object.
class SkinFolder {
public:
    SkinFolder();
    SkinFolder(const SkinFolder&) = delete;
    SkinFolder& operator=(const SkinFolder&) = delete;
    ~SkinFolder();

    /// The name by which a skin calls the file, relative to the program.
    static CString Name(const std::string& file) { return CString(("skin-test\\" + file).c_str()); }
    /// The file's path on the disk, and the same as the library spells it.
    static std::string Path(const std::string& file);
    static std::string LibraryPath(const std::string& file);

    void Write(const std::string& file, std::string_view bytes) const;
    std::string Read(const std::string& file) const;
    /// A picture of plain icons side by side, 8 x 8 pixels each (0xAARRGGBB, straight alpha).
    void WriteStrip(const std::string& file, std::initializer_list<std::uint32_t> colors) const;
    /// A cursor.
    void WriteCursor(const std::string& file) const;
};

/// The directory of the test program as the library spells it, with back-slashes and without one at its end.
std::string ProgramDirectory();

/// Collects the trace lines of its scope, but for those that tell of every font and cursor.
class TraceLines {
public:
    TraceLines();
    TraceLines(const TraceLines&) = delete;
    TraceLines& operator=(const TraceLines&) = delete;
    ~TraceLines() { DUI::SetTraceSink(nullptr, nullptr); }

    /// The lines since the last call.
    std::vector<std::string> Take() { return std::exchange(m_lines, {}); }
    /// From now on fonts and cursors count, too.
    void KeepObjects() { m_keepsObjects = true; }

private:
    std::vector<std::string> m_lines;
    bool m_keepsObjects = false;
};

/// A test that fails when it leaves an object behind, or a trace line that it did not take.
class SkinTest : public testing::Test {
protected:
    ~SkinTest() override
    {
        EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), m_counted) << "counted objects";
        EXPECT_EQ(traces.Take(), std::vector<std::string>{});
    }

private:
    qvui::test::LeakCheck m_leaks;
    std::size_t m_counted = DUI::CRefCountBase::GetLiveCount();

protected:
    SkinFolder folder;
    TraceLines traces;
};

/// 0xAARRGGBB of a colour.
inline std::uint32_t Bits(const DUI::CARGB& color)
{
    return (std::uint32_t{color.GetA()} << 24) | (std::uint32_t{color.GetR()} << 16) |
           (std::uint32_t{color.GetG()} << 8) | color.GetB();
}

/// The stored pixel in the middle of an icon of a strip, 0xAARRGGBB; 0 when there is no picture.
std::uint32_t IconColor(const DUI::CDUIImageListPtr& list, int icon = 0);

/// The words of a document's result log, in order.
std::vector<std::string> LogWords(const CString& log);

/// "<root>" + content + "</root>".
inline CString Document(const std::string& content)
{
    return CString(("<root>" + content + "</root>").c_str());
}
