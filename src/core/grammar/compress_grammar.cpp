#include "grammar/compress_grammar.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "grammar/choose_word.h"
#include "grammar/long_word_bound.h"
#include "grammar/pair_phase.h"
#include "grammar/verify_grammar.h"
#include "grammar/word_list_view.h"
#include "logfile/number_text.h"
#include "subwords/suffix_array.h"

namespace tessarin {
namespace {

constexpr std::int32_t kUnlimited = 2147483647;  // the working length that means "longest possible"
// The symbols of long words read, per symbol of the sequence, before a trie of every length is
// built instead.
constexpr std::int64_t kLongWordsReadPerSymbol = 8;

std::string ProgressText(const std::string& label, std::int32_t length) {
    if (length == kUnlimited) return label + ": Find Words";
    return label + ": Find Words len =" + IntegerText(length);
}

// One display runs from 0 to 1 per trie: the first tenth is the share of the build done
// while the trie is built; the rest is how far the chosen words have shrunk, on a log scale,
// from the first pass's: the count for pairs and for Shortest First, the gain for Maximum Gain
// and the length otherwise. Greedy choices shrink roughly geometrically, so the display moves
// steadily. Under one caption it never goes back, even when Shortest First rebuilds its trie.
class CompressProgress {
  public:
    // `length` is the working length of the run, read at every call.
    CompressProgress(const std::string& label, Method method, const std::int32_t& length, const ProgressFn& progress)
        : label_(label), method_(method), length_(length), progress_(progress) {}

    // A new trie: the display starts again from its scan.
    void NewTrie() {
        first_size_ = 0;
        passes_done_ = 0;
    }

    // `scanned` as the trie's poll gives it: the share of a build, or -1 during the passes.
    bool Show(double scanned) {
        if (length_ != shown_length_) {
            shown_length_ = length_;
            shown_ = kLeast;
        }
        const double fraction = scanned >= 0 ? kBuildShare * scanned : kBuildShare + (1 - kBuildShare) * passes_done_;
        shown_ = std::clamp(fraction, shown_, kMost);
        return progress_(ProgressText(label_, length_), static_cast<float>(shown_));
    }

    void Chosen(int length, int count) {
        const double size = SizeOf(length, count);
        if (first_size_ == 0) first_size_ = size;
        if (first_size_ <= 1 || size < 1) return;
        passes_done_ = std::max(passes_done_, 1 - std::log(size) / std::log(first_size_));
    }

  private:
    static constexpr double kBuildShare = 0.1;
    static constexpr double kLeast = 1e-4;  // 0 would restart the display, 1 would end it
    static constexpr double kMost = 0.9999;

    double SizeOf(int length, int count) const {
        if (method_ == Method::kMaximumGain) return (length - 1.0) * (count - 1.0) - 1.0;
        if (method_ == Method::kShortestFirst || length_ == 2) return count;
        return length;
    }

    const std::string& label_;
    Method method_;
    const std::int32_t& length_;
    const ProgressFn& progress_;
    double first_size_ = 0;
    double passes_done_ = 0;
    std::int32_t shown_length_ = 0;
    double shown_ = kLeast;
};

// A trie over the rules as they stand, its build and its later passes polled through `progress`;
// `longest_overlapping`, `suffixes` and `overlapping` as the trie's.
std::unique_ptr<WordListView> NewList(std::span<const Rule> rules, std::int32_t length, CompressProgress& progress,
                                      int longest_overlapping = std::numeric_limits<int>::max(),
                                      std::optional<SuffixArray> suffixes = std::nullopt,
                                      const OverlappingWords& overlapping = {}) {
    progress.NewTrie();
    return std::make_unique<WordListView>(
        rules, length, [&progress](double scanned) { return progress.Show(scanned); }, longest_overlapping,
        std::move(suffixes), overlapping);
}

// The view indexes words up to the working length (all lengths once it is unlimited); a longer
// working length needs a deeper trie, built afresh from the rules as they stand. The old trie goes
// before the new one is built, so the two are never held at once.
void Deepen(std::unique_ptr<WordListView>& list, std::int32_t length, CompressProgress& progress) {
    if (list->max_depth() >= length) return;
    const std::vector<Rule> rules = list->Rules();
    const int overlapping = list->longest_overlapping();
    list.reset();
    list = NewList(rules, length, progress, overlapping);
}

// One search with its acceptance: the pair search of NVOGRAM falls back, once and for good, to
// the longest words when its first pair is not frequent enough; Shortest First carries its list
// on to longer words until one is frequent enough or none is longer. False when a rebuilt trie
// was stopped by a cancel.
bool Search(std::unique_ptr<WordListView>& list, Method method, std::int32_t& length, CompressProgress& progress) {
    Deepen(list, length, progress);
    if (list->stopped()) return false;
    list->Search(length);
    while (length != kUnlimited) {
        const int start = LastGroupStart(*list);
        const int f = start < 1 ? 0 : list->At(start, WordListView::Rank::kUnneeded).count;
        if (method == Method::kNvogram) {
            if (f > 2) return true;
            length = kUnlimited;
            Deepen(list, length, progress);
            if (list->stopped()) return false;
            list->Search(length);
            return true;
        }
        if (length == 2 ? f > 2 : f > 1) return true;
        if (list->LastLength() < length) return true;
        ++length;
        list->ExtendLastGroup();
    }
    return true;
}

// The passes at length 2 on the pair engine, each making a rule of the pair a word list at
// length 2 would have it take, until that pair is kept twice or less. Answers the rules as
// they then stand; a cancel or a failed check is marked in `result`. `checked` is the sequence
// that the check after each pass compares with.
std::vector<Rule> PairPasses(std::vector<std::int32_t> symbols, std::span<const std::int32_t> checked,
                             int alphabet_size, const CompressOptions& options, CompressProgress& shown,
                             std::int32_t& code, std::int64_t& size, GrammarResult& result) {
    shown.NewTrie();
    PairPhase pairs(std::move(symbols), [&shown](double scanned) { return shown.Show(scanned); });
    for (;;) {
        if (pairs.stopped() || shown.Show(-1)) {
            result.cancelled = true;
            return {};
        }
        // A poll that stops the pick answers 0 too.
        const std::int32_t kept = pairs.Choose();
        if (kept == 0) break;
        shown.Chosen(2, kept);
        size += pairs.AddRule(++code);
        result.pass_sizes.push_back(size);
        if (options.on_pass) options.on_pass(size);
        if (options.check_each_pass && !VerifyGrammar(pairs.Rules(), checked, alphabet_size)) {
            result.check_failed = true;
            break;
        }
    }
    if (pairs.stopped()) {
        result.cancelled = true;
        return {};
    }
    return pairs.Rules();
}

// A trie of every length holds a long repeat of L symbols in L * L / 2 nodes (25 million for a
// genome's), and Maximum Gain's passes cut and walk again its paths down to thousands of symbols
// deep, pass after pass. Longest First and Maximum Gain keep a trie of the short words instead,
// as deep as the longest word of the sequence that overlaps itself, and read the longer words
// afresh where a pass may take one (LongWords). The walk over the whole list meets the longer
// groups first and passes each at its first word, as no longer word overlaps itself, and then
// walks the short groups as the short list does: Longest First takes the longest word while any
// is left, and Maximum Gain the short list's word while its gain beats the longer words' bound.
// The bound, read off the sequence and tightened as the longer words are read, holds for the
// rules that follow: their longer words and occurrences stand for words of the rules before at
// least as long, at as many places.
std::optional<LongWordBound> BoundLongWordsOf(std::span<const std::int32_t> symbols, int alphabet_size,
                                              CompressProgress& shown, bool& cancelled,
                                              std::optional<SuffixArray>& suffixes, OverlappingWords& overlapping) {
    const ProgressFn poll = [&shown](const std::string&, float) { return shown.Show(0); };
    ProgressMeter meter(poll, "", SuffixArrayUnits(symbols.size()) + static_cast<double>(symbols.size()));
    return BoundLongWords(symbols, alphabet_size + 1, kLeastShortLength, kMostShortLength, meter, cancelled, suffixes,
                          overlapping);
}

// Reads the words longer than the view's depth where the pass may take one, into `picked`:
// under Longest First while any is left, as the longest come first; under Maximum Gain where
// `bound` does not rule them out against the short word's gain, the bound then tightened to what
// was read. The symbols read are added to `read`. False when the user cancelled.
bool PickLongWord(WordListView& list, Method method, std::int64_t short_gain, LongWordBound& bound,
                  CompressProgress& shown, std::int64_t& read, std::optional<LongWords::Word>& picked) {
    picked.reset();
    constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::min();
    if (bound.most_gain == kNone || (method == Method::kMaximumGain && short_gain > bound.most_gain)) return true;
    const ProgressFn poll = [&shown](const std::string&, float) { return shown.Show(-1); };
    ProgressMeter meter(poll, "", 1);
    const std::optional<LongWords> words = list.ReadLongWords(meter);
    if (!words) return false;
    read += static_cast<std::int64_t>(words->Size());
    if (method == Method::kLongestFirst) {
        picked = words->Longest();
        if (!picked) bound.most_gain = kNone;
        return true;
    }
    std::int64_t gain = 0;
    picked = words->MostGain(gain);
    bound.most_gain = picked ? gain : kNone;
    if (picked && (gain <= 0 || gain < short_gain)) picked.reset();
    return true;
}

}  // namespace

GrammarResult CompressGrammar(CodedSequence coded, int alphabet_size, Method method, const CompressOptions& options,
                              const ProgressFn& progress) {
    GrammarResult result;
    std::int32_t code = alphabet_size;
    std::int32_t length = (method == Method::kNvogram || method == Method::kShortestFirst) ? 2 : kUnlimited;
    // Only the check after each pass needs the sequence as it came; the engine takes the rest.
    const CodedSequence checked = options.check_each_pass ? coded : CodedSequence{};
    // The engines take the symbols from index 0 on.
    if (!coded.empty()) coded.erase(coded.begin());
    std::int64_t size = static_cast<std::int64_t>(coded.size());
    const std::int64_t sequence_length = size;
    if (progress(ProgressText(options.progress_label, length), 0)) {
        result.cancelled = true;
        return result;
    }
    CompressProgress shown(options.progress_label, method, length, progress);
    std::unique_ptr<WordListView> list;
    // Set while the passes of Longest First and Maximum Gain look at the short words in the trie
    // and read the longer ones afresh where a pass may take one.
    std::optional<LongWordBound> long_words;
    std::int64_t long_words_read = 0;  // the symbols read for them so far
    if (length == 2) {
        std::vector<Rule> rules =
            PairPasses(std::move(coded), checked, alphabet_size, options, shown, code, size, result);
        if (result.cancelled) return result;
        if (result.check_failed) {
            result.rules = std::move(rules);
            result.complexity = size;
            progress("", 1);
            return result;
        }
        // NVOGRAM leaves the pairs for the longest words; Shortest First carries the list at
        // length 2 on to longer words.
        if (method == Method::kNvogram) length = kUnlimited;
        list = NewList(std::exchange(rules, {}), length, shown);
    } else {
        const Rule start_rule{0, std::move(coded)};
        // The bound's suffix array is the trie's too.
        std::optional<SuffixArray> suffixes;
        OverlappingWords overlapping;
        if ((method == Method::kMaximumGain || method == Method::kLongestFirst) && !start_rule.symbols.empty()) {
            bool cancelled = false;
            long_words = BoundLongWordsOf(start_rule.symbols, alphabet_size, shown, cancelled, suffixes, overlapping);
            if (cancelled) {
                result.cancelled = true;
                return result;
            }
        }
        if (long_words) {
            // No longer word overlaps itself in the sequence, nor in the rules that stand for it.
            list = NewList(std::span<const Rule>(&start_rule, 1), long_words->short_length, shown,
                           long_words->short_length, std::move(suffixes), overlapping);
        } else {
            list = NewList(std::span<const Rule>(&start_rule, 1), length, shown, std::numeric_limits<int>::max(),
                           std::move(suffixes));
        }
    }
    for (;;) {
        if (long_words) list->Search(long_words->short_length);
        if (list->stopped() || (!long_words && !Search(list, method, length, shown)) || shown.Show(-1)) {
            result.cancelled = true;
            return result;
        }
        // Longest First takes a long word before any short one, so it looks at those first.
        int chosen = 0;
        std::optional<LongWords::Word> long_word;
        if (long_words && method == Method::kLongestFirst &&
            !PickLongWord(*list, method, 0, *long_words, shown, long_words_read, long_word)) {
            result.cancelled = true;
            return result;
        }
        if (!long_word) {
            chosen = list->LastLength() < 2 ? 0 : ChooseWord(*list, method);
            const std::int64_t gain = chosen == 0 ? 0 : Gain(list->At(chosen, WordListView::Rank::kUnneeded));
            if (long_words && method == Method::kMaximumGain &&
                !PickLongWord(*list, method, gain, *long_words, shown, long_words_read, long_word)) {
                result.cancelled = true;
                return result;
            }
        }
        // Many long repeats, taken one by one, would read them over and over: a trie of all
        // lengths does better once reading them has cost a few builds of one.
        if (long_words && long_words_read > kLongWordsReadPerSymbol * sequence_length) {
            long_words.reset();
            continue;
        }
        if (long_word) {
            shown.Chosen(long_word->length, long_word->Count());
            size += list->AddRule(*long_word, ++code);
        } else {
            if (chosen == 0) break;
            const WordListView::Entry word = list->At(chosen, WordListView::Rank::kUnneeded);
            shown.Chosen(word.length, word.count);
            size += list->AddRule(chosen, ++code);
        }
        if (long_words) {
            if (std::optional<LongWordBound> rebuilt = list->TakeRebuiltBound()) long_words = rebuilt;
        }
        result.pass_sizes.push_back(size);
        if (options.on_pass) options.on_pass(size);
        if (options.check_each_pass && !VerifyGrammar(list->Rules(), checked, alphabet_size)) {
            result.check_failed = true;
            break;
        }
    }
    result.rules = list->Rules();
    result.complexity = size;
    progress("", 1);
    return result;
}

}  // namespace tessarin
