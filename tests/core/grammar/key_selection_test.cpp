#include "grammar/key_selection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "session/random_generator.h"

namespace tessarin {
namespace {

// Keys of a few distinct values, as the counts of a large group give, and of many; long enough for
// the sampled window and its fall-back to a full selection, and short enough for the plain one.
TEST(KeySelectionTest, TiesOfTheNthAndOfAKeyAgreeWithASort) {
    RandomGenerator random(4242);
    std::vector<std::uint64_t> room;
    std::vector<std::uint32_t> tied;
    auto expect_ties = [&](const std::vector<std::uint64_t>& keys, std::uint64_t key, std::size_t greater) {
        const auto places = static_cast<std::size_t>(std::count(keys.begin(), keys.end(), key));
        ASSERT_EQ(greater, static_cast<std::size_t>(std::count_if(keys.begin(), keys.end(),
                                                                  [&](std::uint64_t other) { return other > key; })));
        ASSERT_EQ(tied.size(), places);
        for (const std::uint32_t place : tied)
            ASSERT_EQ(keys[place], key);
        ASSERT_TRUE(std::is_sorted(tied.begin(), tied.end()));
    };
    for (const int size : {1, 7, 1000, 1500, 20000}) {
        for (const int values : {1, 3, 50, 1 << 30}) {
            std::vector<std::uint64_t> keys(static_cast<std::size_t>(size));
            for (std::uint64_t& key : keys)
                key = static_cast<std::uint64_t>(random.Index(values));
            std::vector<std::uint64_t> sorted = keys;
            std::sort(sorted.begin(), sorted.end(), std::greater<>());
            for (const std::size_t k : {std::size_t{0}, std::size_t{1}, keys.size() / 3, keys.size() - 1}) {
                if (k >= keys.size()) continue;
                SCOPED_TRACE(testing::Message() << size << " keys of " << values << " values, k = " << k);
                const std::size_t greater = TiedWithNth(keys, k, tied, room);
                expect_ties(keys, sorted[k], greater);
                expect_ties(keys, sorted[k], Tied(keys, sorted[k], tied));
            }
        }
    }
}

}  // namespace
}  // namespace tessarin
