#include "subwords/suffix_array.h"

#include <algorithm>
#include <cstdint>

namespace tessarin {
namespace {

// Units per symbol of a level: seven passes over the text and three over its valleys, which are
// about a third of it.
constexpr double kUnitsPerLevelSymbol = 8.0;
// Each level is at most half as long as the one before, on ordinary texts under a third.
constexpr double kLevelsPerText = 1.5;
constexpr double kCommonPrefixUnitsPerSymbol = 2.0;
// How many suffixes ahead the passes that read the text in sorted order ask the memory for it.
constexpr std::int32_t kAhead = 32;

// The suffix array of `text` (values 0..alphabet_size - 1), or nothing when cancelled.
std::optional<std::vector<std::int32_t>> InducedSort(std::span<const std::int32_t> text, std::int32_t alphabet_size,
                                                     ProgressMeter& meter) {
    const auto n = static_cast<std::int32_t>(text.size());
    if (n <= 2) {
        std::vector<std::int32_t> order(text.size());
        for (std::int32_t i = 0; i < n; ++i)
            order[i] = i;
        if (n == 2 && text[1] <= text[0]) std::swap(order[0], order[1]);
        return order;
    }
    // S-type: smaller than the suffix after it. The last suffix is L-type: the empty suffix that
    // follows it is smaller.
    std::vector<bool> smaller(text.size(), false);
    for (std::int32_t i = n - 2; i >= 0; --i) {
        smaller[i] = text[i] == text[i + 1] ? smaller[i + 1] : text[i] < text[i + 1];
        if (meter.Advance(1)) return std::nullopt;
    }
    // Each symbol's bucket holds its L-type suffixes first, then its S-type ones.
    std::vector<std::int32_t> l_start(static_cast<std::size_t>(alphabet_size) + 1, 0);
    std::vector<std::int32_t> s_start(static_cast<std::size_t>(alphabet_size) + 1, 0);
    for (std::int32_t i = 0; i < n; ++i) {
        ++(smaller[i] ? l_start[text[i] + 1] : s_start[text[i]]);
        if (meter.Advance(1)) return std::nullopt;
    }
    for (std::int32_t c = 0; c <= alphabet_size; ++c) {
        s_start[c] += l_start[c];
        if (c < alphabet_size) l_start[c + 1] += s_start[c];
    }
    auto is_valley = [&](std::int32_t i) { return i > 0 && !smaller[i - 1] && smaller[i]; };

    std::vector<std::int32_t> order(text.size());
    std::vector<std::int32_t> next(static_cast<std::size_t>(alphabet_size) + 1);
    // Places the valley suffixes in the given order at the ends of their buckets, then the L-type
    // suffixes from left to right and the S-type ones from right to left, each behind the suffix
    // one place to its right. Answers false when cancelled.
    auto induce = [&](std::span<const std::int32_t> valleys) {
        std::fill(order.begin(), order.end(), -1);
        std::copy(s_start.begin(), s_start.end(), next.begin());
        for (std::size_t j = 0; j < valleys.size(); ++j) {
            if (j + kAhead < valleys.size()) __builtin_prefetch(&text[valleys[j + kAhead]]);
            order[next[text[valleys[j]]]++] = valleys[j];
            if (meter.Advance(1)) return false;
        }
        std::copy(l_start.begin(), l_start.end(), next.begin());
        order[next[text[n - 1]]++] = n - 1;
        for (std::int32_t i = 0; i < n; ++i) {
            if (i + kAhead < n && order[i + kAhead] >= 1) __builtin_prefetch(&text[order[i + kAhead] - 1]);
            const std::int32_t v = order[i];
            if (v >= 1 && !smaller[v - 1]) order[next[text[v - 1]]++] = v - 1;
            if (meter.Advance(1)) return false;
        }
        std::copy(l_start.begin(), l_start.end(), next.begin());
        for (std::int32_t i = n - 1; i >= 0; --i) {
            if (i >= kAhead && order[i - kAhead] >= 1) __builtin_prefetch(&text[order[i - kAhead] - 1]);
            const std::int32_t v = order[i];
            if (v >= 1 && smaller[v - 1]) order[--next[text[v - 1] + 1]] = v - 1;
            if (meter.Advance(1)) return false;
        }
        return true;
    };

    std::vector<std::int32_t> valleys;
    std::vector<std::int32_t> valley_number(text.size(), -1);
    for (std::int32_t i = 1; i < n; ++i) {
        if (meter.Advance(1)) return std::nullopt;
        if (!is_valley(i)) continue;
        valley_number[i] = static_cast<std::int32_t>(valleys.size());
        valleys.push_back(i);
    }
    if (!induce(valleys)) return std::nullopt;
    if (valleys.empty()) return order;

    // Name the valley substrings (from one valley to the next) in their induced order; equal
    // substrings share a name. Sorting the text of names sorts the valley suffixes.
    const auto m = static_cast<std::int32_t>(valleys.size());
    std::vector<std::int32_t> sorted;
    sorted.reserve(valleys.size());
    for (std::int32_t i = 0; i < n; ++i) {
        if (i + kAhead < n && order[i + kAhead] >= 0) __builtin_prefetch(&valley_number[order[i + kAhead]]);
        const std::int32_t v = order[i];
        if (v >= 0 && valley_number[v] != -1) sorted.push_back(v);
        if (meter.Advance(1)) return std::nullopt;
    }
    auto substring_end = [&](std::int32_t valley) {
        const std::int32_t k = valley_number[valley] + 1;
        return k < m ? valleys[k] : n;
    };
    std::vector<std::int32_t> names(valleys.size());
    std::int32_t name = 0;
    names[valley_number[sorted[0]]] = 0;
    for (std::int32_t i = 1; i < m; ++i) {
        if (i + kAhead < m) {
            __builtin_prefetch(&valley_number[sorted[i + kAhead]]);
            __builtin_prefetch(&text[sorted[i + kAhead]]);
        }
        // The next valley after each, once its number has come.
        if (i + kAhead / 2 < m) __builtin_prefetch(valleys.data() + valley_number[sorted[i + kAhead / 2]] + 1);
        std::int32_t a = sorted[i - 1];
        std::int32_t b = sorted[i];
        const std::int32_t end_a = substring_end(a);
        bool same = end_a - a == substring_end(b) - b;
        for (; same && a < end_a; ++a, ++b)
            same = text[a] == text[b];
        // The substrings end with the next valley's first symbol, included, unless at the end.
        same = same && a < n && b < n && text[a] == text[b];
        if (!same) ++name;
        names[valley_number[sorted[i]]] = name;
        if (meter.Advance(1)) return std::nullopt;
    }
    std::vector<std::int32_t>().swap(valley_number);
    const std::optional<std::vector<std::int32_t>> named = InducedSort(names, name + 1, meter);
    if (!named) return std::nullopt;
    for (std::int32_t i = 0; i < m; ++i)
        sorted[i] = valleys[(*named)[i]];
    if (!induce(sorted)) return std::nullopt;
    return order;
}

// The common prefix of each suffix with the one before it in `order`, worked out in text order
// (Kärkkäinen, Manzini and Puglisi's permuted LCP): a suffix shares at least one symbol less with
// its predecessor than the suffix one place to its left did, so each symbol is compared a bounded
// number of times, and the text, the predecessors and the results are read and written in order.
// Nothing when cancelled.
std::optional<std::vector<std::int32_t>> CommonPrefixes(std::span<const std::int32_t> text,
                                                        std::span<const std::int32_t> order, ProgressMeter& meter) {
    const auto n = static_cast<std::int32_t>(text.size());
    // Per suffix, the one before it in `order`; -1 for the first.
    std::vector<std::int32_t> before(text.size());
    for (std::int32_t i = 0; i < n; ++i) {
        if (i + kAhead < n) __builtin_prefetch(&before[order[i + kAhead]], 1);
        before[order[i]] = i > 0 ? order[i - 1] : -1;
        if (meter.Advance(1)) return std::nullopt;
    }
    std::int32_t shared = 0;
    for (std::int32_t start = 0; start < n; ++start) {
        if (meter.Advance(1)) return std::nullopt;
        if (start + kAhead < n && before[start + kAhead] >= 0) __builtin_prefetch(&text[before[start + kAhead]]);
        const std::int32_t other = before[start];
        if (other < 0) {
            shared = 0;
        } else {
            while (start + shared < n && other + shared < n && text[start + shared] == text[other + shared])
                ++shared;
        }
        // Held in text order in place of the predecessor, which is read no more.
        before[start] = shared;
        if (shared > 0) --shared;
    }
    std::vector<std::int32_t> common(text.size());
    for (std::int32_t i = 0; i < n; ++i) {
        if (i + kAhead < n) __builtin_prefetch(&before[order[i + kAhead]]);
        common[i] = before[order[i]];
    }
    return common;
}

}  // namespace

std::optional<SuffixArray> BuildSuffixArray(std::span<const std::int32_t> text, std::int32_t alphabet_size,
                                            ProgressMeter& meter) {
    std::optional<std::vector<std::int32_t>> order = InducedSort(text, alphabet_size, meter);
    if (!order) return std::nullopt;
    std::optional<std::vector<std::int32_t>> common = CommonPrefixes(text, *order, meter);
    if (!common) return std::nullopt;
    return SuffixArray{std::move(*order), std::move(*common)};
}

double SuffixArrayUnits(std::size_t length) {
    return (kUnitsPerLevelSymbol * kLevelsPerText + kCommonPrefixUnitsPerSymbol) * static_cast<double>(length);
}

}  // namespace tessarin
