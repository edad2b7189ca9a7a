// Every fuzz target over its seeds, among them the inputs that once failed.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/platform_test.h"

extern "C" {
int Fuzz_cursor(const std::uint8_t* data, std::size_t size);
int Fuzz_html(const std::uint8_t* data, std::size_t size);
int Fuzz_image(const std::uint8_t* data, std::size_t size);
int Fuzz_resource_module(const std::uint8_t* data, std::size_t size);
int Fuzz_skin_package(const std::uint8_t* data, std::size_t size);
int Fuzz_xml(const std::uint8_t* data, std::size_t size);
}

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

INSTANTIATE_TEST_SUITE_P(Targets, FuzzSeeds,
                         testing::Values(Target{"cursor", Fuzz_cursor}, Target{"html", Fuzz_html},
                                         Target{"image", Fuzz_image},
                                         Target{"resource_module", Fuzz_resource_module},
                                         Target{"skin_package", Fuzz_skin_package}, Target{"xml", Fuzz_xml}),
                         [](const testing::TestParamInfo<Target>& target) {
                             return std::string(target.param.name);
                         });
