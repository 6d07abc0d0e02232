#include "grammar/ranked_set.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <utility>

#include "session/random_generator.h"

namespace tessarin {
namespace {

// Grown past many blocks, then shrunk to nothing and grown again, in random order: every rank and
// k-th value is checked against an ordered map after each batch of changes.
TEST(RankedSetTest, AnswersAsAnOrderedMapWhileEntriesComeAndGo) {
    RandomGenerator random(4242);
    RankedSet<std::pair<int, int>> set;
    std::map<std::pair<int, int>, int> mirror;
    for (int round = 0; round < 120; ++round) {
        const bool growing = round % 40 < 25;
        for (int change = 0; change < 200; ++change) {
            const std::pair<int, int> key{random.Index(50), random.Index(400)};
            if (growing && !mirror.contains(key)) {
                set.Insert(key, key.first * 1000 + key.second);
                mirror.emplace(key, key.first * 1000 + key.second);
            } else if (!growing && !mirror.empty()) {
                const auto gone = std::next(mirror.begin(), random.Index(static_cast<int>(mirror.size())) - 1);
                set.Erase(gone->first);
                mirror.erase(gone);
            }
        }
        ASSERT_EQ(set.Size(), static_cast<int>(mirror.size()));
        int k = 0;
        for (const auto& [key, value] : mirror) {
            ASSERT_EQ(set.ValueAt(k), value) << "round " << round;
            ASSERT_EQ(set.Rank(key), k) << "round " << round;
            ++k;
        }
    }
}

}  // namespace
}  // namespace tessarin
