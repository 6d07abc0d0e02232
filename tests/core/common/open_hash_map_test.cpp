#include "common/open_hash_map.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tessarin {
namespace {

// A cleared map is handed on to a new trie: nothing of what it held may answer, and it fills again
// as a fresh one does, past the size it had.
TEST(OpenHashMapTest, ClearedMapHoldsNothingAndFillsAgain) {
    OpenHashMap map;
    for (std::uint64_t key = 0; key < 5000; ++key)
        map.Insert(key * 1'000'003, static_cast<std::int32_t>(key));
    for (std::uint64_t key = 0; key < 5000; key += 2)
        map.Erase(key * 1'000'003);
    map.Clear();
    for (std::uint64_t key = 0; key < 5000; ++key)
        ASSERT_EQ(map.Find(key * 1'000'003), -1);
    for (std::uint64_t key = 0; key < 20000; ++key)
        map.Insert(key * 7 + 1, static_cast<std::int32_t>(key));
    for (std::uint64_t key = 0; key < 20000; ++key)
        ASSERT_EQ(map.Find(key * 7 + 1), static_cast<std::int32_t>(key));
    ASSERT_EQ(map.Find(0), -1);
}

}  // namespace
}  // namespace tessarin
