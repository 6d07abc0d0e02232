#include "subwords/first_seen_numbering.h"

namespace tessarin {

FirstSeenNumbering::FirstSeenNumbering() : slots_(std::size_t{1} << kInitialBits) {}

// The slot holding `key`, or the empty slot where it belongs.
std::size_t FirstSeenNumbering::FindSlot(std::uint64_t key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = HomeSlot(key);
    while (slots_[at].number != kEmpty && slots_[at].key != key)
        at = (at + 1) & mask;
    return at;
}

int FirstSeenNumbering::Number(std::uint64_t key) {
    std::size_t at = FindSlot(key);
    if (slots_[at].number != kEmpty) return slots_[at].number;
    // Keep the table at most half full so that probe runs stay short.
    if (2 * (slot_of_number_.size() + 1) > slots_.size()) {
        Grow();
        at = FindSlot(key);
    }
    const int number = Size();
    slots_[at] = Slot{key, number};
    slot_of_number_.push_back(at);
    return number;
}

void FirstSeenNumbering::Clear() {
    for (const std::size_t at : slot_of_number_)
        slots_[at].number = kEmpty;
    slot_of_number_.clear();
}

void FirstSeenNumbering::Grow() {
    std::vector<Slot> old_slots(slots_.size() * 2);
    old_slots.swap(slots_);
    --shift_;
    for (std::size_t& at : slot_of_number_) {
        const Slot slot = old_slots[at];
        at = FindSlot(slot.key);
        slots_[at] = slot;
    }
}

}  // namespace tessarin
