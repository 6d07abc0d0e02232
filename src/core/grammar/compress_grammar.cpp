#include "grammar/compress_grammar.h"

#include <algorithm>
#include <memory>

#include "grammar/choose_word.h"
#include "grammar/verify_grammar.h"
#include "grammar/word_list_view.h"
#include "logfile/number_text.h"

namespace tessarin {
namespace {

constexpr std::int32_t kUnlimited = 2147483647;  // the working length that means "longest possible"

// The view indexes words up to the working length (all lengths once it is unlimited); a longer
// working length needs a deeper trie, built afresh from the rules as they stand.
void Deepen(std::unique_ptr<WordListView>& list, std::int32_t length) {
    if (list->max_depth() < length) list = std::make_unique<WordListView>(list->Rules(), length);
}

// One search with its acceptance: the pair search of NVOGRAM falls back, once and for good, to
// the longest words when its first pair is not frequent enough; Shortest First carries its list
// on to longer words until one is frequent enough or none is longer.
void Search(std::unique_ptr<WordListView>& list, Method method, std::int32_t& length) {
    Deepen(list, length);
    list->Search(length);
    while (length != kUnlimited) {
        const int start = LastGroupStart(*list);
        const int f = start < 1 ? 0 : list->At(start).count;
        if (method == Method::kNvogram) {
            if (f > 2) return;
            length = kUnlimited;
            Deepen(list, length);
            list->Search(length);
            return;
        }
        if (length == 2 ? f > 2 : f > 1) return;
        if (list->LastLength() < length) return;
        ++length;
        list->ExtendLastGroup();
    }
}

std::string ProgressText(const std::string& label, std::int32_t length) {
    if (length == kUnlimited) return label + ": Find Words";
    return label + ": Find Words len =" + IntegerText(length);
}

}  // namespace

GrammarResult CompressGrammar(std::span<const std::int32_t> coded, int alphabet_size, Method method,
                              const CompressOptions& options, const ProgressFn& progress) {
    GrammarResult result;
    std::int32_t code = alphabet_size;
    std::int32_t length = (method == Method::kNvogram || method == Method::kShortestFirst) ? 2 : kUnlimited;
    const std::span<const std::int32_t> symbols = coded.empty() ? coded : coded.subspan(1);
    const auto initial_size = static_cast<std::int64_t>(symbols.size());
    std::int64_t size = initial_size;
    if (progress(ProgressText(options.progress_label, length), 0)) {
        result.cancelled = true;
        return result;
    }
    const Rule start_rule{0, std::vector<std::int32_t>(symbols.begin(), symbols.end())};
    auto list = std::make_unique<WordListView>(std::span<const Rule>(&start_rule, 1), length);
    for (;;) {
        Search(list, method, length);
        // The share of the sequence compressed away so far; it reaches 1 only at the end.
        const double shrunk =
            1.0 - static_cast<double>(size) / static_cast<double>(std::max<std::int64_t>(initial_size, 1));
        if (progress(ProgressText(options.progress_label, length),
                     static_cast<float>(std::clamp(shrunk, 1e-4, 0.9999)))) {
            result.cancelled = true;
            return result;
        }
        const int chosen = list->LastLength() < 2 ? 0 : ChooseWord(*list, method);
        if (chosen == 0) break;
        size += list->AddRule(chosen, ++code);
        result.pass_sizes.push_back(size);
        if (options.on_pass) options.on_pass(size);
        if (options.check_each_pass && !VerifyGrammar(list->Rules(), coded, alphabet_size)) {
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
