#include "subwords/find_words.h"

namespace tessarin {

std::vector<SubwordGroup> FindWords(const SequenceSet& sequences, const FindWordsParams& params,
                                    const ProgressFn& progress) {
    SubwordSearch search(sequences, params, progress);
    std::vector<SubwordGroup> groups;
    while (const SubwordGroup* group = search.NextGroup())
        groups.push_back(*group);
    return groups;
}

}  // namespace tessarin
