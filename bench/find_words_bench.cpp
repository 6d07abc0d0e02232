// The subword search alone, all lengths without a limit, as the local uncertainties make it: on
// random text, where the words stop at about the logarithm of the length, and on periodic text,
// where every length up to the whole text but one period repeats.
#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "subwords/subword_search.h"

namespace tessarin {
namespace {

CodedSequence RandomFourLetters(int length) {
    std::mt19937 random(20240611);
    std::uniform_int_distribution<std::int32_t> symbol(1, 4);
    CodedSequence sequence{0};
    for (int p = 1; p <= length; ++p)
        sequence.push_back(symbol(random));
    return sequence;
}

// Symbols 1, 2, .., period, 1, 2, ...: a discretised sine wave looks like this.
CodedSequence Periodic(int length, int period) {
    CodedSequence sequence{0};
    for (int p = 1; p <= length; ++p)
        sequence.push_back((p - 1) % period + 1);
    return sequence;
}

// An example file coded as the program codes it: symbols 1..K in ascending character order.
CodedSequence ExampleFile(const std::string& name) {
    const std::string text = ReadTextFile(std::filesystem::path(TESSARIN_EXAMPLES) / name);
    return Encode(BuildAlphabet(text), text);
}

// Every group in turn, dropped as the next is built; counts what a report would see.
void SearchAllLengths(benchmark::State& state, const CodedSequence& sequence) {
    std::int64_t words = 0;
    std::int64_t occurrences = 0;
    int longest = 0;
    for (auto _ : state) {
        SubwordSearch search({sequence}, FindWordsParams{kNoLengthLimit, false, "bench"}, NoProgress);
        words = occurrences = 0;
        while (const SubwordGroup* group = search.NextGroup()) {
            longest = group->length;
            for (const Subword& word : group->words) {
                ++words;
                occurrences += word.count;
            }
        }
    }
    state.counters["words"] = static_cast<double>(words);
    state.counters["occurrences"] = static_cast<double>(occurrences);
    state.counters["longest"] = longest;
}

void BM_FindWordsRandomFourLetters(benchmark::State& state) {
    SearchAllLengths(state, RandomFourLetters(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_FindWordsRandomFourLetters)->Arg(4000)->Arg(40000)->Arg(400000)->Unit(benchmark::kMillisecond);

// The same sequences with the letters coded far apart: the time must not depend on the codes.
void BM_FindWordsRandomFourLargeCodes(benchmark::State& state) {
    constexpr std::int32_t kCodes[] = {0, 1, 100000, 65536000, 2147483647};
    CodedSequence sequence = RandomFourLetters(static_cast<int>(state.range(0)));
    for (std::size_t p = 1; p < sequence.size(); ++p)
        sequence[p] = kCodes[sequence[p]];
    SearchAllLengths(state, sequence);
}
BENCHMARK(BM_FindWordsRandomFourLargeCodes)->Arg(40000)->Unit(benchmark::kMillisecond);

// Period 3 over 100,000 symbols: 300,000 words holding five billion occurrences.
void BM_FindWordsPeriodic(benchmark::State& state) {
    SearchAllLengths(state, Periodic(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
}
BENCHMARK(BM_FindWordsPeriodic)->Args({10240, 256})->Args({100000, 3})->Unit(benchmark::kMillisecond);

void BM_FindWordsExample(benchmark::State& state, const std::string& name) {
    SearchAllLengths(state, ExampleFile(name));
}
BENCHMARK_CAPTURE(BM_FindWordsExample, binary, std::string("binary.txt"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FindWordsExample, dna, std::string("dna.txt"))->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
