// Every fuzz target over its seeds, among them the inputs that once failed.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/platform_test.h"

#define FUZZ_TARGET(name) extern "C" int Fuzz_##name(const std::uint8_t* data, std::size_t size);
#include "fuzz_targets.inc"
#undef FUZZ_TARGET

namespace {

struct Target {
    const char* name;
    int (*run)(const std::uint8_t*, std::size_t);
};

class FuzzSeeds : public PlatformTest, public testing::WithParamInterface<Target> {};

}  // namespace

TEST_P(FuzzSeeds, AreReadSafely)
{
    const Target& target = GetParam();
    int count = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(QVUI_FUZZ_CORPUS "/") + target.name)) {
        SCOPED_TRACE(entry.path());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        target.run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    EXPECT_GT(count, 0);
}

#define FUZZ_TARGET(name) Target{#name, Fuzz_##name},
const Target kTargets[] = {
#include "fuzz_targets.inc"
};

INSTANTIATE_TEST_SUITE_P(Targets, FuzzSeeds, testing::ValuesIn(kTargets),
                         [](const testing::TestParamInfo<Target>& target) {
                             return std::string(target.param.name);
                         });
