#include "grammar/prune_overlaps.h"

#include <utility>

namespace tessarin {
namespace {

void DropOverlappingOccurrences(WordRecord& word) {
    const int length = word.Length();
    std::vector<Occurrence>& positions = word.positions;
    std::size_t kept = 0;
    for (std::size_t j = 1; j < positions.size(); ++j) {
        const Occurrence& at = positions[j];
        const bool overlaps = kept > 0 && at.sequence_index == positions[kept].sequence_index &&
                              at.position - positions[kept].position < length;
        if (!overlaps) positions[++kept] = at;
    }
    positions.resize(kept + 1);
    word.SetCount(static_cast<int>(kept));
}

}  // namespace

void PruneOverlaps(WordList& words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i].Length() < 2) continue;
        DropOverlappingOccurrences(words[i]);
        const int length = words[i].Length();
        const int count = words[i].Count();
        std::size_t at = i;
        while (at > 1 && words[at - 1].Length() == length && words[at - 1].Count() < count)
            --at;
        if (at != i) {
            WordRecord moving = std::move(words[i]);
            for (std::size_t k = i; k > at; --k)
                words[k] = std::move(words[k - 1]);
            words[at] = std::move(moving);
        }
    }
}

}  // namespace tessarin
