#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "grammar/compress_grammar.h"
#include "grammar/grammar.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "subwords/find_words.h"
#include "support/scripted_host.h"

namespace tessarin {
namespace {

// The random test sequence of the program: letters A to D, uniform, with a fixed seed.
std::string RandomFourLetters(int length) {
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> letter(0, 3);
    std::string text;
    for (int p = 0; p < length; ++p)
        text += static_cast<char>('A' + letter(random));
    return text;
}

// A session whose current sequence is `text`, its alphabet built as a run builds it.
class GrammarSession {
  public:
    explicit GrammarSession(const std::string& text) {
        session_.sequence().text = text;
        session_.sequence().file_name = "bench.txt";
        SequenceSummary(session_, text, false);
    }
    Session& session() { return session_; }
    Grammar StartRule() { return StartGrammar(EncodeSequence(session_.sequence(), session_.sequence().text)); }

  private:
    testing::ScriptedHost host_;
    Session session_{host_, "/tmp"};
};

// One whole compression, without report or verification, as the surrogate statistics and the
// distance measures run it.
void Compress(benchmark::State& state, const std::string& text, int method) {
    GrammarSession run(text);
    float complexity = 0;
    std::size_t rules = 0;
    for (auto _ : state) {
        Grammar grammar = run.StartRule();
        complexity = CompressGrammar(run.session(), grammar, method, 0);
        rules = grammar.size() - 1;
    }
    state.counters["K_G"] = complexity;
    state.counters["rules"] = static_cast<double>(rules);
}

void BM_CompressRandomFourLetters(benchmark::State& state) {
    Compress(state, RandomFourLetters(static_cast<int>(state.range(1))), static_cast<int>(state.range(0)));
}
// Methods 0 NVOGRAM, 1 Shortest First, 2 Longest First, 3 Maximum Gain. Longest First makes the
// most rules (about one per ten symbols of a random sequence) and takes longest.
BENCHMARK(BM_CompressRandomFourLetters)
    ->ArgNames({"method", "length"})
    ->ArgsProduct({{kNvogram, kShortestFirst, kLongestFirst, kMaximumGain}, {4000, 40000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CompressRandomFourLetters)
    ->ArgNames({"method", "length"})
    ->ArgsProduct({{kNvogram, kShortestFirst, kLongestFirst, kMaximumGain}, {400000}})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

void BM_CompressExample(benchmark::State& state, const std::string& name) {
    Compress(state, ReadTextFile(TESSARIN_EXAMPLES, name), static_cast<int>(state.range(0)));
}
BENCHMARK_CAPTURE(BM_CompressExample, Binary, std::string("binary.txt"))
    ->ArgName("method")
    ->DenseRange(kNvogram, kMaximumGain)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CompressExample, Dna, std::string("dna.txt"))
    ->ArgName("method")
    ->DenseRange(kNvogram, kMaximumGain)
    ->Unit(benchmark::kMillisecond);

// The search that the compression loop, as written, repeats in every pass: all repeated words of
// the rules. The first pass's search is the costliest; the compression replaces it by keeping
// its word trie up to date.
void BM_FindWordsFirstPass(benchmark::State& state) {
    GrammarSession run(RandomFourLetters(static_cast<int>(state.range(0))));
    const Grammar grammar = run.StartRule();
    const SequenceSet sequences = RuleSequences(grammar);
    WordList words;
    for (auto _ : state) {
        words.assign(1, WordRecord{});
        FindWords(sequences, words, kNoLengthLimit, "bench", NoProgress);
        benchmark::DoNotOptimize(words.data());
    }
    state.counters["words"] = static_cast<double>(words.size() - 1);
}
BENCHMARK(BM_FindWordsFirstPass)->Arg(4000)->Arg(40000)->Arg(400000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
