#include <benchmark/benchmark.h>

#include <limits>
#include <span>
#include <string>

#include "grammar/compress_grammar.h"
#include "grammar/word_list_view.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

// A random text of the letters A to D, uniform, with a fixed seed.
std::string RandomFourLetters(int length) {
    RandomGenerator random(20240611);
    std::string text;
    for (int p = 0; p < length; ++p)
        text += static_cast<char>('A' + random.Index(4) - 1);
    return text;
}

// One whole compression, without report or verification, as the surrogate statistics and the
// distance measures run it.
void Compress(benchmark::State& state, const std::string& text, Method method) {
    const Alphabet alphabet = BuildAlphabet(text);
    const CodedSequence coded = Encode(alphabet, text);
    GrammarResult result;
    for (auto _ : state)
        result = CompressGrammar(coded, alphabet.Size(), method, CompressOptions{}, NoProgress);
    state.counters["K_G"] = static_cast<double>(result.complexity);
    state.counters["rules"] = static_cast<double>(result.rules.size() - 1);
}

void BM_CompressRandomFourLetters(benchmark::State& state) {
    Compress(state, RandomFourLetters(static_cast<int>(state.range(1))), static_cast<Method>(state.range(0)));
}
// Methods 0 NVOGRAM, 1 Shortest First, 2 Longest First, 3 Maximum Gain. Longest First makes the
// most rules (about one per ten symbols of a random sequence) and takes longest.
BENCHMARK(BM_CompressRandomFourLetters)
    ->ArgNames({"method", "length"})
    ->ArgsProduct({{0, 1, 2, 3}, {4000, 40000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CompressRandomFourLetters)
    ->ArgNames({"method", "length"})
    ->ArgsProduct({{0, 1, 2, 3}, {400000}})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

// Real genomes repeat whole operons; random text does not. A copy of `copy` symbols planted in
// random text, and a run of one symbol, are the cases where words thousands of symbols long repeat.
void BM_CompressPlantedCopy(benchmark::State& state) {
    const int copy = static_cast<int>(state.range(1));
    const std::string text = RandomFourLetters(2 * copy);
    Compress(state, text + text.substr(static_cast<std::size_t>(copy / 2), static_cast<std::size_t>(copy)),
             static_cast<Method>(state.range(0)));
}
BENCHMARK(BM_CompressPlantedCopy)
    ->ArgNames({"method", "copy"})
    ->ArgsProduct({{0, 1, 2, 3}, {1000, 2500}})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

void BM_CompressRun(benchmark::State& state) {
    Compress(state, std::string(static_cast<std::size_t>(state.range(1)), 'A'), static_cast<Method>(state.range(0)));
}
BENCHMARK(BM_CompressRun)
    ->ArgNames({"method", "length"})
    ->ArgsProduct({{0, 1, 2, 3}, {20000, 100000, 1000000}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// A stretch of period two, as a symbolised periodic signal gives: unlike a run of one symbol, its
// words are still walked slot by slot, so the time grows with the square of the length.
void BM_CompressPeriodTwo(benchmark::State& state) {
    std::string text;
    for (int k = 0; k < state.range(1) / 2; ++k)
        text += "AC";
    Compress(state, text, static_cast<Method>(state.range(0)));
}
BENCHMARK(BM_CompressPeriodTwo)
    ->ArgNames({"method", "length"})
    ->ArgsProduct({{2, 3}, {5000, 20000}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// The trie of every repeated word, built from the sorted suffixes: Maximum Gain builds it again
// for each of its first passes, whose pairs occur all over the text.
void BM_BuildWordList(benchmark::State& state) {
    const std::string text = RandomFourLetters(static_cast<int>(state.range(0)));
    CodedSequence coded = Encode(BuildAlphabet(text), text);
    coded.erase(coded.begin());
    const Rule rule{0, coded};
    for (auto _ : state) {
        const WordListView list(std::span<const Rule>(&rule, 1), std::numeric_limits<int>::max());
        benchmark::DoNotOptimize(list.max_depth());
    }
}
BENCHMARK(BM_BuildWordList)->ArgName("length")->Arg(4000)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

void BM_CompressExample(benchmark::State& state, const std::string& name) {
    Compress(state, ReadTextFile(std::filesystem::path(TESSARIN_EXAMPLES) / name), static_cast<Method>(state.range(0)));
}
BENCHMARK_CAPTURE(BM_CompressExample, Binary, std::string("binary.txt"))
    ->ArgName("method")
    ->DenseRange(0, 3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CompressExample, Dna, std::string("dna.txt"))
    ->ArgName("method")
    ->DenseRange(0, 3)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
