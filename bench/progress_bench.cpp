// How soon a long subword search hears the user, on random four-letter sequences up to 5 Mbp:
// the longest stretch of work between two progress calls over all lengths (with and without
// positions), and the time from a cancel request, made at a given moment of the search, until
// the search has returned. The desktop program shows progress every 0.1 s and should stop
// within 0.5 s of a key.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "sequence/alphabet.h"
#include "session/random_generator.h"
#include "subwords/subword_search.h"

namespace tessarin {
namespace {

using Clock = std::chrono::steady_clock;

double SecondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

CodedSequence RandomFourLetters(int length) {
    RandomGenerator random(20261123);
    CodedSequence sequence{0};
    for (int p = 1; p <= length; ++p)
        sequence.push_back(random.Index(4));
    return sequence;
}

void BM_LongestSilence(benchmark::State& state) {
    const CodedSequence sequence = RandomFourLetters(static_cast<int>(state.range(0)));
    double longest = 0;
    std::int64_t calls = 0;
    for (auto _ : state) {
        Clock::time_point last = Clock::now();
        longest = 0;
        calls = 0;
        SubwordSearch search({sequence}, FindWordsParams{kNoLengthLimit, state.range(1) != 0, "bench"},
                             [&](const std::string&, float) {
                                 const Clock::time_point now = Clock::now();
                                 longest = std::max(longest, SecondsBetween(last, now));
                                 last = now;
                                 ++calls;
                                 return false;
                             });
        while (search.NextGroup() != nullptr) {
        }
    }
    state.counters["longest_silence_ms"] = longest * 1000;
    state.counters["progress_calls"] = static_cast<double>(calls);
}
BENCHMARK(BM_LongestSilence)
    ->ArgNames({"length", "positions"})
    ->Args({200000, 0})
    ->Args({5000000, 0})
    ->Args({5000000, 1})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// The cancel comes at the first progress call after `request_ms` from the start.
void BM_CancelLatency(benchmark::State& state) {
    const CodedSequence sequence = RandomFourLetters(static_cast<int>(state.range(0)));
    const double request_after = static_cast<double>(state.range(1)) / 1000;
    double latency = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        SubwordSearch search(
            {sequence}, FindWordsParams{kNoLengthLimit, true, "bench"},
            [&](const std::string&, float) { return SecondsBetween(start, Clock::now()) >= request_after; });
        while (search.NextGroup() != nullptr) {
        }
        latency = std::max(0.0, SecondsBetween(start, Clock::now()) - request_after);
    }
    state.counters["cancel_latency_ms"] = latency * 1000;
}
BENCHMARK(BM_CancelLatency)
    ->ArgNames({"length", "request_ms"})
    ->Args({200000, 10})
    ->Args({5000000, 50})
    ->Args({5000000, 300})
    ->Args({5000000, 1000})
    ->Args({5000000, 3000})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
