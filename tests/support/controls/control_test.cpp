#include "support/controls/control_test.h"

#include <algorithm>

#include <qvui/foundation/ref_ptr.h>
#include <qvui/foundation/trace.h>

namespace qvui::test {
namespace {

constexpr const char* kNoise[] = {"CFontObject::", "CCursorObject::", "cost time[", "TxScrollWindowEx"};

bool Contains(const std::string& line, const std::string& text)
{
    return line.find(text) != std::string::npos;
}

}  // namespace

TraceLog::TraceLog()
{
    DUI::SetTraceSink(&TraceLog::Receive, this);
}

TraceLog::~TraceLog()
{
    DUI::SetTraceSink(nullptr, nullptr);
    for (const std::string& line : m_lines)
        EXPECT_TRUE(IsExpected(line)) << "traced unannounced: " << line;
}

void TraceLog::Receive(void* context, const char* text)
{
    const std::string line(text);
    if (std::none_of(std::begin(kNoise), std::end(kNoise),
                     [&line](const char* noise) { return Contains(line, noise); }))
        static_cast<TraceLog*>(context)->m_lines.push_back(line);
}

bool TraceLog::IsExpected(const std::string& line) const
{
    return std::any_of(m_expected.begin(), m_expected.end(),
                       [&line](const std::string& text) { return Contains(line, text); });
}

ControlTest::ControlTest(const SkinAdditions& additions)
    : m_liveBefore(DUI::CRefCountBase::GetLiveCount()),
      m_skin(std::make_unique<TestSkin>(additions))
{
}

ControlTest::~ControlTest()
{
    m_skin.reset();
    EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), m_liveBefore) << "counted objects are left";
}

void ControlTest::UseSkin(const SkinAdditions& additions)
{
    m_skin.reset();
    m_skin = std::make_unique<TestSkin>(additions);
}

}  // namespace qvui::test
