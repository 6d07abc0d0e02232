#include "subwords/suffix_array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "session/random_generator.h"

namespace tessarin {
namespace {

// Sorting the suffixes by comparing them whole, and their common prefixes symbol by symbol.
SuffixArray NaiveSuffixArray(const std::vector<std::int32_t>& text) {
    SuffixArray expected;
    expected.order.resize(text.size());
    std::iota(expected.order.begin(), expected.order.end(), 0);
    std::sort(expected.order.begin(), expected.order.end(), [&](std::int32_t a, std::int32_t b) {
        return std::lexicographical_compare(text.begin() + a, text.end(), text.begin() + b, text.end());
    });
    expected.common.assign(text.size(), 0);
    for (std::size_t i = 1; i < text.size(); ++i) {
        const auto mismatch = std::mismatch(text.begin() + expected.order[i - 1], text.end(),
                                            text.begin() + expected.order[i], text.end());
        expected.common[i] = static_cast<std::int32_t>(mismatch.first - (text.begin() + expected.order[i - 1]));
    }
    return expected;
}

// Random texts over one to five symbols, whose valleys recurse to several levels, and texts made
// of runs and periods, whose common prefixes run to the end of the text.
TEST(SuffixArrayTest, SortsTheSuffixesAndTheirCommonPrefixesAsComparingThemWholeDoes) {
    RandomGenerator random(4242);
    std::vector<std::vector<std::int32_t>> texts{{}, {0}, std::vector<std::int32_t>(300, 1)};
    std::vector<std::int32_t> period;
    for (int i = 0; i < 301; ++i)
        period.push_back(i % 3 == 2 ? 0 : i % 3 + 1);
    texts.push_back(period);
    for (int k = 0; k < 400; ++k) {
        const int symbols = random.Index(5);
        std::vector<std::int32_t> text(static_cast<std::size_t>(random.Index(300)));
        for (std::int32_t& symbol : text)
            symbol = random.Index(symbols) - 1;
        texts.push_back(text);
    }
    const ProgressFn progress = NoProgress;
    for (const std::vector<std::int32_t>& text : texts) {
        ProgressMeter meter(progress, "", SuffixArrayUnits(text.size()));
        const std::optional<SuffixArray> suffixes = BuildSuffixArray(text, 5, meter);
        ASSERT_TRUE(suffixes.has_value());
        const SuffixArray expected = NaiveSuffixArray(text);
        ASSERT_EQ(suffixes->order, expected.order) << "text of length " << text.size();
        ASSERT_EQ(suffixes->common, expected.common) << "text of length " << text.size();
    }
}

}  // namespace
}  // namespace tessarin
