#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "generate/sequence_edit.h"
#include "session/command.h"

namespace tessarin {

inline constexpr const char* kFractionatePrompt = "Enter Fractions As: p1 - p2, p3 - p4";

// Positions first..last (1-based, inclusive) of the text.
struct Fraction {
    int first = 0;
    int last = 0;

    bool operator==(const Fraction&) const = default;
};

// The input box's title: "Fractionate: " and the sequence file name.
std::string FractionateTitle(const std::string& sequence_file_name);

// The proposed answer: the whole text, "1 - n".
std::string ProposedFractions(int length);

// Reads "p1 - p2, p3 - p4, ..." for a text of `length` symbols: items between commas, trimmed of
// blanks, empty ones skipped; the first "-" splits an item, each side read as a leading number and
// rounded half to even. The first bad item refuses the answer with, checked in this order,
// "Missing Minus Sign", "Position <= 0", "Position >" and the length, "Position 1 > Position 2".
CheckedAnswer<std::vector<Fraction>> ParseFractions(const std::string& answer, int length);

// Asks for the fractions on the host until ParseFractions accepts the answer (showing each
// refusal); nothing when the box is cancelled or the answer is empty.
std::optional<std::vector<Fraction>> AskFractions(Host& host, const std::string& sequence_file_name, int length);

struct FractionateParams {
    std::filesystem::path input;
    std::vector<Fraction> fractions;  // as accepted by ParseFractions, in the order typed
    std::filesystem::path output_path;
};

// "Fractionate Sequence": prints each fraction with its length and the new length on the main
// window, and writes the fractions' texts in list order, one per line; repeated or overlapping
// fractions are written as often as listed.
Outcome RunFractionate(Session& session, const FractionateParams& params);

}  // namespace tessarin
