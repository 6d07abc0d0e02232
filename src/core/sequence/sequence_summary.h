#pragma once

#include <cstdint>
#include <string_view>

#include "sequence/alphabet.h"
#include "session/session.h"

namespace tessarin {

// The facts about a sequence that start every analysis report.
struct SequenceSummary {
    std::int64_t length = 0;
    Alphabet alphabet;
    float entropy = 0;  // H1 = - sum p ln p / LogBase(K), accumulated in single precision
};

SequenceSummary SummarizeSequence(std::string_view text);

// Length, alphabet size, alphabet, an empty line and H1, each on the main window and in the log.
void ReportSequenceSummary(Session& session, const SequenceSummary& summary);

// Sets the current sequence's alphabet from its text and reports its summary, as the analyses of
// the current sequence start; an empty text changes and reports nothing.
void SetAlphabetAndReport(Session& session);

// ln K, or ln 2 when K < 2: every entropy of the program is measured in units of the alphabet size.
double LogBase(int alphabet_size);

}  // namespace tessarin
