#include "grammar/compress_grammar.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "grammar/choose_word.h"
#include "grammar/repeat_trie.h"
#include "grammar/rule_text.h"
#include "grammar/verify_grammar.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "subwords/find_words.h"

namespace tessarin {
namespace {

constexpr const char* kVerifyFailedMessage = "Error: Rules do not construct initial sequence";

const char* MethodLine(int method) {
    switch (method) {
        case kNvogram:
            return "Method: NVOGRAM method";
        case kShortestFirst:
            return "Method: Shortest First";
        case kLongestFirst:
            return "Method: Longest First";
        case kMaximumGain:
            return "Method: Maximum Gain";
        default:
            return nullptr;
    }
}

// The trie indexes words up to the working length (all lengths once it is unlimited); a longer
// working length needs a deeper trie, built afresh from the rules as they stand.
void Deepen(std::unique_ptr<RepeatTrie>& trie, std::int32_t length, int alphabet_size) {
    if (trie->max_depth() < length) trie = std::make_unique<RepeatTrie>(trie->ToGrammar(alphabet_size), length);
}

// One search with its acceptance: the pair search of NVOGRAM falls back, once and for good, to
// the longest words when its first pair is not frequent enough; Shortest First carries its list
// on to longer words until one is frequent enough or none is longer.
void Search(std::unique_ptr<RepeatTrie>& trie, int method, std::int32_t& length, int alphabet_size) {
    Deepen(trie, length, alphabet_size);
    trie->Search(length);
    while (length != kNoLengthLimit) {
        const int start = LastGroupStart(*trie);
        const int f = start < 1 ? 0 : trie->At(start).count;
        if (method == kNvogram) {
            if (f > 2) return;
            length = kNoLengthLimit;
            Deepen(trie, length, alphabet_size);
            trie->Search(length);
            return;
        }
        if (length == 2 ? f > 2 : f > 1) return;
        if (trie->LastLength() < length) return;
        ++length;
        trie->ExtendLastGroup();
    }
}

std::string ProgressText(const std::string& status_name, std::int32_t length) {
    if (length == kNoLengthLimit) return status_name + ": Find Words";
    return status_name + ": Find Words len =" + IntegerText(length);
}

void ReportGrammar(Session& session, const Grammar& grammar, int method, std::int64_t size) {
    WriteLogLine(session, "");
    if (const char* line = MethodLine(method)) WriteLogLine(session, line);
    WriteLogLine(session, "");
    WriteLogLine(session, "Grammatical Complexity =" + IntegerText(static_cast<long long>(static_cast<float>(size))));
    WriteLogLine(session, "");
    WriteLogLine(session, "Grammar Rules Found:");
    for (std::size_t r = 0; r < grammar.size(); ++r) {
        WriteLogLine(session,
                     "Rule" + IntegerText(static_cast<long long>(r)) + ": " + RuleLine(grammar[r], session.sequence()));
    }
}

}  // namespace

float CompressGrammar(Session& session, Grammar& grammar, int method, int flags) {
    const ProgressFn progress = session.Progress();
    const std::string status_name = FileBaseName(session.sequence().file_name);
    const int alphabet_size = session.sequence().AlphabetSize();
    std::int32_t code = alphabet_size;
    std::int32_t length = (method == kNvogram || method == kShortestFirst) ? 2 : kNoLengthLimit;
    const std::int64_t initial_size = GrammarSize(grammar);
    std::int64_t size = initial_size;
    if (progress(ProgressText(status_name, length), 0)) return 0;
    auto trie = std::make_unique<RepeatTrie>(grammar, length);
    for (int rules = 1;; ++rules) {
        Search(trie, method, length, alphabet_size);
        // The share of the sequence compressed away so far; it reaches 1 only at the end.
        const double shrunk =
            1.0 - static_cast<double>(size) / static_cast<double>(std::max<std::int64_t>(initial_size, 1));
        if (progress(ProgressText(status_name, length), static_cast<float>(std::clamp(shrunk, 1e-4, 0.9999)))) return 0;
        const int chosen = trie->LastLength() < 2 ? 0 : ChooseWord(*trie, method);
        if (chosen == 0) break;
        size += trie->AddRule(chosen, ++code);
        if (flags & kReportFlag) {
            session.host().PrintMainLine("Pass" + IntegerText(rules) +
                                         ": Rule Length =" + SingleText(static_cast<float>(size)));
        }
        if ((flags & kCheckEachPassFlag) &&
            !VerifyGrammar(trie->ToGrammar(alphabet_size), session.sequence(), progress)) {
            break;
        }
    }
    grammar = trie->ToGrammar(alphabet_size);
    progress("", 1);
    if (flags & kReportFlag) ReportGrammar(session, grammar, method, size);
    if ((flags & kVerifyFlag) && !VerifyGrammar(grammar, session.sequence(), progress)) {
        session.host().ShowMessage(kVerifyFailedMessage, kMessageTitle);
    }
    if (flags & kReportFlag) ShowLogFile(session);
    return static_cast<float>(size);
}

}  // namespace tessarin
