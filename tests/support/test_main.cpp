#include <gmock/gmock.h>

#include "support/target.h"

int main(int argc, char** argv)
{
    qvui::test::PrepareTarget();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
