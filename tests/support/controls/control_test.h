#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/controls/control_window.h"
#include "support/controls/test_skin.h"
#include "support/leak_check.h"

namespace qvui::test {

/// Collects trace lines while it exists. A line that reports a failure and that nobody announced fails the
/// test; lines about timing and about fonts and cursors that come and go are left out.
class TraceLog {
public:
    TraceLog();
    TraceLog(const TraceLog&) = delete;
    TraceLog& operator=(const TraceLog&) = delete;
    ~TraceLog();

    /// Announces a line that the test provokes: any that contains the text.
    void Expect(const std::string& text) { m_expected.push_back(text); }
    const std::vector<std::string>& Lines() const { return m_lines; }

private:
    static void Receive(void* context, const char* text);
    bool IsExpected(const std::string& line) const;

    std::vector<std::string> m_lines;
    std::vector<std::string> m_expected;
};

/// The base of tests with controls: an initialised application with the test skin, and checks that at the end
/// no counted object, window or graphics object is left and no failure was traced unannounced.
class ControlTest : public testing::Test {
public:
    ControlTest() : ControlTest(SkinAdditions()) {}
    explicit ControlTest(const SkinAdditions& additions);
    ~ControlTest() override;

protected:
    TraceLog traces;
    /// The skin of this test; replaced by UseSkin.
    TestSkin& Skin() { return *m_skin; }
    /// Starts the application anew with another skin.
    void UseSkin(const SkinAdditions& additions);

private:
    LeakCheck m_leaks;
    std::size_t m_liveBefore;
    std::unique_ptr<TestSkin> m_skin;
};

}  // namespace qvui::test
