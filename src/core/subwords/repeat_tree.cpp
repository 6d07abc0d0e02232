#include "subwords/repeat_tree.h"

#include <algorithm>

namespace tessarin {

std::optional<RepeatTree> RepeatTree::Build(const SuffixArray& suffixes, ProgressMeter& meter) {
    RepeatTree tree;
    if (!tree.Walk(suffixes, meter)) return std::nullopt;
    return tree;
}

bool RepeatTree::Walk(const SuffixArray& suffixes, ProgressMeter& meter) {
    const std::span<const std::int32_t> order = suffixes.order;
    const auto n = static_cast<std::int32_t>(order.size());
    // A tree has fewer inner nodes than the text has symbols: room for them all at once spares
    // copying the nodes as they grow, and the pages never reached are never mapped.
    nodes_.reserve(order.size() + 1);
    children_.reserve(order.size());
    // Nodes are numbered as they close, children before parents; the root closes last.
    std::vector<OpenNode> open{{0, 0, 0}};
    for (std::int32_t place = 1; place <= n; ++place) {
        if (meter.Advance(1)) return false;
        const std::int32_t common = place < n ? suffixes.common[place] : 0;
        std::int32_t first_place = place - 1;
        std::int32_t closed = -1;
        while (common < open.back().depth) {
            const OpenNode top = open.back();
            open.pop_back();
            closed = Close(top, place - 1, order);
            first_place = top.first_place;
            if (common <= open.back().depth) {
                pending_.push_back(closed);
                closed = -1;
            }
        }
        if (common > open.back().depth) {
            open.push_back(OpenNode{common, first_place, pending_.size()});
            if (closed != -1) pending_.push_back(closed);
        }
    }
    root_ = Close(open.front(), n - 1, order);
    nodes_.push_back(Node{0, 0, 0, 0, static_cast<std::int32_t>(children_.size())});
    std::vector<std::int32_t>().swap(pending_);
    return true;
}

std::int32_t RepeatTree::Close(const OpenNode& open, std::int32_t last_place, std::span<const std::int32_t> order) {
    Node node{open.depth, open.first_place, last_place, 0, static_cast<std::int32_t>(children_.size())};
    // The leftmost start: over the children's and over the places no child covers, so that each
    // place of the array is looked at once over the whole tree.
    std::int32_t first_start = order[static_cast<std::size_t>(open.first_place)];
    std::int32_t place = open.first_place;
    for (std::size_t k = open.first_pending; k < pending_.size(); ++k) {
        const Node& child = nodes_[pending_[k]];
        for (; place < child.first_place; ++place)
            first_start = std::min(first_start, order[place]);
        first_start = std::min(first_start, child.first_start);
        place = child.last_place + 1;
    }
    for (; place <= last_place; ++place)
        first_start = std::min(first_start, order[place]);
    node.first_start = first_start;
    children_.insert(children_.end(), pending_.begin() + static_cast<std::ptrdiff_t>(open.first_pending),
                     pending_.end());
    pending_.resize(open.first_pending);
    nodes_.push_back(node);
    return static_cast<std::int32_t>(nodes_.size()) - 1;
}

}  // namespace tessarin
