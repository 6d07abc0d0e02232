#include "grammar/key_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "grammar/key_selection.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

// A group changed a few keys at a time, as passes change it, and resized, its answers checked
// against a plain pass over a mirror of its keys: keys of many values, of a few, and piling up on
// one value (which files the group afresh).
TEST(KeyIndexTest, AnswersAsAPassOverEveryKeyWhileKeysChange) {
    RandomGenerator random(777);
    auto below = [&](std::size_t n) { return static_cast<std::size_t>(random.Index(static_cast<int>(n)) - 1); };
    for (const int values : {1 << 30, 40, 2}) {
        SCOPED_TRACE(testing::Message() << values << " values");
        KeyIndex index;
        std::vector<std::uint64_t> mirror;
        std::vector<std::uint32_t> tied;
        std::vector<std::uint32_t> expected_tied;
        std::vector<std::uint64_t> room;
        for (int round = 0; round < 60; ++round) {
            const std::size_t size = round % 20 == 0 ? 3000 + below(9000) : mirror.size();
            index.Resize(size);
            mirror.resize(size, 0);
            const int changes = round % 20 == 0 ? static_cast<int>(size) : 50;
            for (int change = 0; change < changes; ++change) {
                const std::size_t place = round % 20 == 0 ? static_cast<std::size_t>(change) : below(size);
                // Late rounds move keys onto one value, so that one range outgrows the others.
                const std::uint64_t key =
                    round % 20 > 15 ? 7 : static_cast<std::uint64_t>(below(static_cast<std::size_t>(values)));
                index.Set(place, key);
                mirror[place] = key;
            }
            for (const std::size_t k : {std::size_t{0}, below(size), size - 1}) {
                const std::size_t greater = index.TiedWithNth(k, tied, room);
                std::vector<std::uint64_t> plain_room;
                ASSERT_EQ(greater, TiedWithNth(mirror, k, expected_tied, plain_room))
                    << "round " << round << ", k " << k;
                std::sort(tied.begin(), tied.end());
                ASSERT_EQ(tied, expected_tied);
                const std::uint64_t key = mirror[below(size)];
                ASSERT_EQ(index.Tied(key, tied), Tied(mirror, key, expected_tied));
                std::sort(tied.begin(), tied.end());
                ASSERT_EQ(tied, expected_tied);
            }
        }
    }
}

}  // namespace
}  // namespace tessarin
