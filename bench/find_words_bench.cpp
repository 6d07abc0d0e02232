#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "subwords/find_words.h"

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

// An example file coded as the program codes it: symbols 1..K in ascending character order.
CodedSequence ExampleFile(const std::string& name) {
    CurrentSequence current;
    current.text = ReadTextFile(TESSARIN_EXAMPLES, name);
    std::vector<std::int64_t> counts(256, 0);
    for (const unsigned char c : current.text)
        ++counts[c];
    BuildAlphabet(counts, current);
    return EncodeSequence(current, current.text);
}

// A fresh search with no length limit, as the local uncertainties and the longest-words grammar
// methods make it.
void SearchAllLengths(benchmark::State& state, const CodedSequence& sequence) {
    const SequenceSet sequences{sequence};
    WordList words;
    for (auto _ : state) {
        state.PauseTiming();  // dropping the last result is the caller's cost, not the search's
        words.assign(1, WordRecord{});
        state.ResumeTiming();
        FindWords(sequences, words, kNoLengthLimit, "bench", NoProgress);
        benchmark::DoNotOptimize(words.data());
    }
    std::int64_t occurrences = 0;
    for (const WordRecord& word : words)
        occurrences += word.Count();
    state.counters["words"] = static_cast<double>(words.size() - 1);
    state.counters["occurrences"] = static_cast<double>(occurrences);
    state.counters["longest"] = words.back().Length();
}

void BM_FindWordsRandomFourLetters(benchmark::State& state) {
    SearchAllLengths(state, RandomFourLetters(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_FindWordsRandomFourLetters)->Arg(4000)->Arg(40000)->Arg(400000)->Unit(benchmark::kMillisecond);

// The same sequences with the letters coded far apart, as a grammar's rules are: the time must
// not depend on the size of the codes.
void BM_FindWordsRandomFourLargeCodes(benchmark::State& state) {
    constexpr std::int32_t kCodes[] = {0, 1, 100000, 65536000, 2147483647};
    CodedSequence sequence = RandomFourLetters(static_cast<int>(state.range(0)));
    for (std::size_t p = 1; p < sequence.size(); ++p)
        sequence[p] = kCodes[sequence[p]];
    SearchAllLengths(state, sequence);
}
BENCHMARK(BM_FindWordsRandomFourLargeCodes)->Arg(40000)->Unit(benchmark::kMillisecond);

void BM_FindWordsExample(benchmark::State& state, const std::string& name) {
    SearchAllLengths(state, ExampleFile(name));
}
BENCHMARK_CAPTURE(BM_FindWordsExample, binary, std::string("binary.txt"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FindWordsExample, dna, std::string("dna.txt"))->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
