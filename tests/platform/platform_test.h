#pragma once

#include <gtest/gtest.h>

#include "support/leak_check.h"
#include "support/table.h"

/// A test that fails when it leaves an object of the platform behind.
class PlatformTest : public testing::Test {
private:
    qvui::test::LeakCheck m_leaks;
};
