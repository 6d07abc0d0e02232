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
TEST(KeySelectionTest, NthGreatestAndTiedAgreeWithASort) {
    RandomGenerator random(4242);
    std::vector<std::uint64_t> room;
    std::vector<std::uint32_t> tied;
    for (const int size : {1, 7, 1000, 1500, 20000}) {
        for (const int values : {1, 3, 50, 1 << 30}) {
            std::vector<std::uint64_t> keys(static_cast<std::size_t>(size));
            for (std::uint64_t& key : keys)
                key = static_cast<std::uint64_t>(random.Index(values));
            std::vector<std::uint64_t> sorted = keys;
            std::sort(sorted.begin(), sorted.end(), std::greater<>());
            for (const std::size_t k : {std::size_t{0}, keys.size() / 3, keys.size() - 1}) {
                const std::uint64_t key = NthGreatest(keys, k, room);
                ASSERT_EQ(key, sorted[k]) << size << " keys of " << values << " values, k = " << k;
                const auto at_least = static_cast<std::size_t>(
                    std::upper_bound(sorted.begin(), sorted.end(), key, std::greater<>()) - sorted.begin());
                const auto greater = static_cast<std::size_t>(
                    std::lower_bound(sorted.begin(), sorted.end(), key, std::greater<>()) - sorted.begin());
                ASSERT_EQ(Tied(keys, key, tied), greater);
                ASSERT_EQ(tied.size(), at_least - greater);
                for (const std::uint32_t place : tied)
                    ASSERT_EQ(keys[place], key);
                ASSERT_TRUE(std::is_sorted(tied.begin(), tied.end()));
            }
        }
    }
}

}  // namespace
}  // namespace tessarin
