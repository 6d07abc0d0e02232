#include "common/huge_pages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

namespace tessarin {
namespace {

// Growing past a huge page moves the values from a block of the heap to a mapped one, and the
// blocks given back must be the ones taken, at their sizes.
TEST(HugePageVectorTest, KeepsItsValuesAcrossBlocksOfEitherKind) {
    HugePageVector<std::int32_t> values;
    constexpr std::int32_t kCount = 3 * static_cast<std::int32_t>(kHugePageBytes / sizeof(std::int32_t));
    for (std::int32_t i = 0; i < kCount; ++i)
        values.push_back(i * 7);
    HugePageVector<std::int32_t> copy = values;
    values.resize(10);
    values.shrink_to_fit();
    const HugePageVector<std::int32_t> moved = std::move(copy);
    for (std::int32_t i = 0; i < kCount; i += 997)
        ASSERT_EQ(moved[static_cast<std::size_t>(i)], i * 7);
    ASSERT_EQ(moved.back(), (kCount - 1) * 7);
    for (std::int32_t i = 0; i < 10; ++i)
        ASSERT_EQ(values[static_cast<std::size_t>(i)], i * 7);
}

}  // namespace
}  // namespace tessarin
