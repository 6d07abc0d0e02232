#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "subwords/suffix_array.h"

namespace tessarin {

// The branching points of a text's repeats: the inner nodes of its suffix tree, found as the
// intervals of the suffix array whose suffixes share more than any of them shares with the
// suffixes outside (the bottom-up walk of Abouelhoda, Kurtz and Ohlebusch's enhanced suffix
// arrays). A node of depth d whose parent has depth p stands for the repeated words of lengths
// p + 1..d that start with the same d symbols; all of them occur exactly at the starts
// order[first_place..last_place]. The root, of depth 0, holds every suffix.
class RepeatTree {
  public:
    // One unit on `meter` per suffix; nothing once the meter answers that the user cancelled.
    static std::optional<RepeatTree> Build(const SuffixArray& suffixes, ProgressMeter& meter);

    std::int32_t Root() const { return root_; }

    std::int32_t Depth(std::int32_t node) const { return nodes_[node].depth; }
    std::int32_t FirstPlace(std::int32_t node) const { return nodes_[node].first_place; }
    std::int32_t LastPlace(std::int32_t node) const { return nodes_[node].last_place; }
    std::int32_t Count(std::int32_t node) const { return nodes_[node].last_place - nodes_[node].first_place + 1; }
    // The leftmost start of the node's suffixes in the text.
    std::int32_t FirstStart(std::int32_t node) const { return nodes_[node].first_start; }
    // The inner nodes below `node`, in suffix order.
    std::span<const std::int32_t> Children(std::int32_t node) const {
        return std::span(children_).subspan(
            static_cast<std::size_t>(nodes_[node].first_child),
            static_cast<std::size_t>(nodes_[node + 1].first_child - nodes_[node].first_child));
    }

  private:
    RepeatTree() = default;

    struct Node {
        std::int32_t depth = 0;
        std::int32_t first_place = 0;
        std::int32_t last_place = 0;
        std::int32_t first_start = 0;
        std::int32_t first_child = 0;  // into children_
    };

    // An interval whose end is not yet known; its children so far are pending_[first_pending..].
    struct OpenNode {
        std::int32_t depth;
        std::int32_t first_place;
        std::size_t first_pending;
    };

    // The bottom-up walk over the array; false when cancelled.
    bool Walk(const SuffixArray& suffixes, ProgressMeter& meter);
    // Ends `open` at `last_place` and answers its number; its pending children become its own.
    std::int32_t Close(const OpenNode& open, std::int32_t last_place, std::span<const std::int32_t> order);

    std::vector<Node> nodes_;  // one more than there are nodes: the end of the last child list
    std::vector<std::int32_t> children_;
    std::vector<std::int32_t> pending_;
    std::int32_t root_ = 0;
};

}  // namespace tessarin
