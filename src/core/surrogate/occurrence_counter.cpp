#include "surrogate/occurrence_counter.h"

#include <algorithm>

#include "surrogate/coded_length.h"

namespace tessarin {
namespace {

std::u32string Text(std::span<const std::int32_t> symbols) {
    std::u32string text(symbols.size(), U'\0');
    std::transform(symbols.begin(), symbols.end(), text.begin(),
                   [](std::int32_t symbol) { return static_cast<char32_t>(symbol); });
    return text;
}

}  // namespace

OccurrenceCounter::OccurrenceCounter(const std::vector<std::vector<std::int32_t>>& words) : word_count_(words.size()) {
    for (std::size_t w = 0; w < words.size(); ++w) {
        const int length = static_cast<int>(words[w].size());
        auto group =
            std::find_if(groups_.begin(), groups_.end(), [&](const LengthGroup& g) { return g.length == length; });
        if (group == groups_.end()) group = groups_.insert(groups_.end(), LengthGroup{length, {}});
        group->words.emplace(Text(words[w]), static_cast<int>(w));
    }
}

std::vector<std::int32_t> OccurrenceCounter::Count(std::span<const std::int32_t> coded) const {
    std::vector<std::int32_t> counts(word_count_, 0);
    const int length = CodedLength(coded);
    if (length < 1) return counts;
    const std::u32string text = Text(coded.subspan(1));
    const std::u32string_view view(text);
    for (const LengthGroup& group : groups_) {
        for (int p = 0; p + group.length <= length; ++p) {
            const auto found = group.words.find(view.substr(static_cast<std::size_t>(p), group.length));
            if (found != group.words.end()) ++counts[found->second];
        }
    }
    return counts;
}

}  // namespace tessarin
