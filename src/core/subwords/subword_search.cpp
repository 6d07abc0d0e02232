#include "subwords/subword_search.h"

#include <algorithm>
#include <utility>

#include "logfile/number_text.h"
#include "subwords/progress_meter.h"

namespace tessarin {

SubwordSearch::SubwordSearch(const SequenceSet& sequences, FindWordsParams params, ProgressFn progress)
    : params_(std::move(params)), progress_(std::move(progress)) {
    for (const auto& sequence : sequences) {
        starts_.push_back(static_cast<std::int32_t>(text_.size()));
        text_.insert(text_.end(), sequence.begin() + (sequence.empty() ? 0 : 1), sequence.end());
        text_.push_back(0);  // the separator, numbered when the index is built
    }
}

bool SubwordSearch::RankSymbols(ProgressMeter& meter) {
    std::int32_t largest = 0;
    for (const std::int32_t symbol : text_)
        largest = std::max(largest, symbol);
    // Ranks keep the symbols' order, so that suffix order is symbol order. Codes no larger than
    // about the text's length, as sequences and grammars have, are ranked through a table in
    // linear time; scattered large codes by sorting.
    std::vector<std::int32_t> rank;
    if (static_cast<std::size_t>(largest) <= 2 * text_.size() + 256) {
        rank.assign(static_cast<std::size_t>(largest) + 1, -1);
        for (const std::int32_t symbol : text_) {
            if (symbol != 0) rank[static_cast<std::size_t>(symbol)] = 0;
            if (meter.Advance(1)) return false;
        }
        for (std::int32_t symbol = 1; symbol <= largest; ++symbol) {
            if (rank[static_cast<std::size_t>(symbol)] == -1) continue;
            rank[static_cast<std::size_t>(symbol)] = static_cast<std::int32_t>(symbols_.size());
            symbols_.push_back(symbol);
        }
    } else {
        symbols_ = text_;
        std::sort(symbols_.begin(), symbols_.end());
        symbols_.erase(std::unique(symbols_.begin(), symbols_.end()), symbols_.end());
        if (!symbols_.empty() && symbols_.front() == 0) symbols_.erase(symbols_.begin());
        if (meter.Advance(static_cast<std::int64_t>(text_.size()))) return false;
    }
    std::int32_t separator = static_cast<std::int32_t>(symbols_.size());
    for (std::int32_t& symbol : text_) {
        if (symbol == 0) {
            symbol = separator++;
        } else if (!rank.empty()) {
            symbol = rank[static_cast<std::size_t>(symbol)];
        } else {
            symbol = static_cast<std::int32_t>(std::lower_bound(symbols_.begin(), symbols_.end(), symbol) -
                                               symbols_.begin());
        }
        if (meter.Advance(1)) return false;
    }
    return true;
}

std::string SubwordSearch::StepText(int length) const {
    return params_.status_name + ": Find Words len =" + IntegerText(length);
}

bool SubwordSearch::BuildIndex() {
    // The whole of length 1's step: ranking the symbols (two passes), sorting the suffixes with
    // their common prefixes, and the walk that finds the repeats' branching points (one pass).
    const auto length = static_cast<double>(text_.size());
    ProgressMeter meter(progress_, StepText(1), 3.0 * length + SuffixArrayUnits(text_.size()));
    if (meter.Start() || !RankSymbols(meter)) return false;
    const auto alphabet_size = static_cast<std::int32_t>(symbols_.size() + starts_.size());
    std::optional<SuffixArray> suffixes = BuildSuffixArray(text_, alphabet_size, meter);
    if (!suffixes) return false;
    tree_ = RepeatTree::Build(*suffixes, meter);
    if (!tree_) return false;
    order_ = std::move(suffixes->order);
    return true;
}

Occurrence SubwordSearch::OccurrenceAt(std::int32_t start) const {
    const auto sequence = std::upper_bound(starts_.begin(), starts_.end(), start) - starts_.begin() - 1;
    return Occurrence{start - starts_[static_cast<std::size_t>(sequence)] + 1, static_cast<std::int32_t>(sequence)};
}

void SubwordSearch::ListOccurrences(std::int32_t node, std::vector<Occurrence>& occurrences) const {
    std::vector<std::int32_t> starts(order_.begin() + tree_->FirstPlace(node),
                                     order_.begin() + tree_->LastPlace(node) + 1);
    std::sort(starts.begin(), starts.end());
    occurrences.clear();
    occurrences.reserve(starts.size());
    for (const std::int32_t start : starts)
        occurrences.push_back(OccurrenceAt(start));
}

std::vector<Occurrence> SubwordSearch::Occurrences(std::size_t index) const {
    std::vector<Occurrence> occurrences;
    ListOccurrences(entries_[index].node, occurrences);
    return occurrences;
}

SubwordSearch::Entry SubwordSearch::EntryOf(std::int32_t node, std::int32_t parent) const {
    return Entry{node, parent, tree_->Count(node), tree_->Depth(node), tree_->FirstStart(node)};
}

void SubwordSearch::SortByFallingCount(std::vector<Entry>& entries) {
    std::int32_t most = 0;
    for (const Entry& entry : entries)
        most = std::max(most, entry.count);
    if (static_cast<std::size_t>(most) > 4 * entries.size()) {
        std::stable_sort(entries.begin(), entries.end(),
                         [](const Entry& a, const Entry& b) { return a.count > b.count; });
        return;
    }
    // next[most - count]: where the next entry with that count goes.
    std::vector<std::size_t> next(static_cast<std::size_t>(most) + 1, 0);
    for (const Entry& entry : entries)
        ++next[static_cast<std::size_t>(most - entry.count)];
    std::size_t start = 0;
    for (std::size_t& at : next)
        start += std::exchange(at, start);
    std::vector<Entry> sorted(entries.size());
    for (const Entry& entry : entries)
        sorted[next[static_cast<std::size_t>(most - entry.count)]++] = entry;
    entries.swap(sorted);
}

const SubwordGroup* SubwordSearch::NextGroup() {
    if (finished_) return nullptr;
    const int length = group_.length + 1;
    const bool within_bound = length == 1 || (length == 2 ? params_.max_length != 1 : length <= params_.max_length);
    if (!within_bound || text_.empty()) {
        finished_ = true;
        return nullptr;
    }
    if (!tree_ && !BuildIndex()) {
        finished_ = cancelled_ = true;
        return nullptr;
    }
    std::vector<Entry> parents;
    if (length == 1) {
        parents.push_back(EntryOf(tree_->Root(), -1));
    } else {
        parents.swap(entries_);
    }
    // One unit per parent for its children and, about as many, one per word when the group is
    // filled, plus one per occurrence listed: a group's occurrences are at most the text's length.
    const double listed = params_.positions ? static_cast<double>(text_.size()) : 0.0;
    ProgressMeter meter(progress_, StepText(length), 2.0 * static_cast<double>(parents.size()) + listed);
    if (length > 1 && meter.Start()) {
        finished_ = cancelled_ = true;
        return nullptr;
    }

    // A parent whose occurrences all go on with the same symbol has one child, on the same node;
    // at a branching point its children are the inner nodes below, found in order of their first
    // occurrence. The entries carry what the group needs of their nodes, so that only branching
    // points are looked up in the tree.
    std::vector<Entry> entries;
    entries.reserve(parents.size());
    for (std::size_t k = 0; k < parents.size(); ++k) {
        const auto parent = static_cast<std::int32_t>(k);
        if (parents[k].depth >= length) {
            entries.push_back(parents[k]);
            entries.back().parent = parent;
        } else {
            const std::size_t first_child = entries.size();
            for (const std::int32_t child : tree_->Children(parents[k].node))
                entries.push_back(EntryOf(child, parent));
            if (length >= 3) {
                std::sort(entries.begin() + static_cast<std::ptrdiff_t>(first_child), entries.end(),
                          [](const Entry& a, const Entry& b) { return a.first_start < b.first_start; });
            }
        }
        if (meter.Advance(1)) {
            finished_ = cancelled_ = true;
            return nullptr;
        }
    }
    if (entries.empty()) {
        progress_("", 1);
        finished_ = true;
        return nullptr;
    }
    if (length <= 2) {
        std::sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
            return tree_->FirstPlace(a.node) < tree_->FirstPlace(b.node);
        });
    }
    SortByFallingCount(entries);

    group_.length = length;
    group_.words.resize(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Subword& word = group_.words[i];
        word.count = entries[i].count;
        word.rank = static_cast<std::int32_t>(i) + 1;
        word.at = OccurrenceAt(entries[i].first_start);
        word.parent = length == 1 ? -1 : entries[i].parent;
        word.occurrences.clear();
        if (params_.positions) ListOccurrences(entries[i].node, word.occurrences);
        if (meter.Advance(1 + static_cast<std::int64_t>(word.occurrences.size()))) {
            finished_ = cancelled_ = true;
            return nullptr;
        }
    }
    entries_.swap(entries);
    progress_("", 1);
    return &group_;
}

void SubwordSearch::Successors(std::size_t index, std::vector<Successor>& successors) const {
    successors.clear();
    const std::int32_t node = entries_[index].node;
    const std::int32_t length = group_.length;
    const auto symbol_count = static_cast<std::int32_t>(symbols_.size());
    if (tree_->Depth(node) > length) {
        const std::int32_t next = text_[static_cast<std::size_t>(tree_->FirstStart(node) + length)];
        successors.push_back(Successor{symbols_[static_cast<std::size_t>(next)], tree_->Count(node)});
        return;
    }
    // At a branching point the suffixes are in order of their next symbol: each inner child is
    // one symbol, each place between the children a symbol followed once (or a separator).
    const auto children = tree_->Children(node);
    auto child = children.begin();
    for (std::int32_t place = tree_->FirstPlace(node); place <= tree_->LastPlace(node);) {
        const std::int32_t next = text_[static_cast<std::size_t>(order_[place] + length)];
        std::int32_t count = 1;
        if (child != children.end() && tree_->FirstPlace(*child) == place) {
            count = tree_->Count(*child);
            place = tree_->LastPlace(*child) + 1;
            ++child;
        } else {
            ++place;
        }
        if (next < symbol_count) successors.push_back(Successor{symbols_[static_cast<std::size_t>(next)], count});
    }
}

}  // namespace tessarin
