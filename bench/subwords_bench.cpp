// The subword reports, each run as its command runs it (search, report written as it goes, final
// note), on a 100,000-symbol random DNA-like sequence and on periodic ones: the 254 byte values
// that are not line breaks repeated 40 times (10 KB), and a period of 3 over 100,000 symbols.
// Every length up to the whole text but one period repeats there, so word lists are bounded:
// their text alone would grow with the square of the length.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

#include "logfile/log_file.h"
#include "session/command.h"
#include "subwords/block_entropies.h"
#include "subwords/exceptional_words.h"
#include "subwords/local_uncertainties.h"
#include "subwords/repeated_words.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using Command = Outcome (*)(Session&, const SubwordParams&);

std::string RandomDna() {
    std::mt19937 random(20240601);
    std::uniform_int_distribution<int> letter(0, 3);
    std::string text(100000, ' ');
    for (char& c : text)
        c = "ACGT"[letter(random)];
    return text;
}

std::string AllBytes() {
    std::string period;
    for (int c = 0; c < 256; ++c) {
        if (c != '\n' && c != '\r') period.push_back(static_cast<char>(c));
    }
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += period;
    return text;
}

std::string PeriodThree() {
    std::string text;
    while (text.size() < 100000)
        text += "ABC";
    return text.substr(0, 100000);
}

// Runs `run` once per iteration; each report is deleted afterwards so that no numbered names pile up.
// With `table` the report's table is written too.
void RunReport(benchmark::State& state, const std::string& text, Command run, int max_length = kNoLengthLimit,
               bool positions = false, bool table = false) {
    testing::TempFolder folder;
    folder.Write("input.txt", text);
    testing::ScriptedHost host;
    Session session(host, folder.Folder());
    const SubwordParams params{
        folder.Path("input.txt"), max_length, positions,
        TableOutput{table ? std::filesystem::path(folder.Path("table.tsv")) : std::filesystem::path()}};
    for (auto _ : state) {
        if (RunCommand(session, [&](Session& s) { return run(s, params); }) != Outcome::kCompleted) {
            state.SkipWithError("the report did not complete");
        }
        state.PauseTiming();
        std::filesystem::remove(folder.Path(session.log().name));
        state.ResumeTiming();
    }
}

void BM_RandomEntropies(benchmark::State& state) {
    RunReport(state, RandomDna(), RunBlockEntropies);
}
void BM_RandomUncertainties(benchmark::State& state) {
    RunReport(state, RandomDna(), RunLocalUncertainties);
}
void BM_RandomExceptionalUpTo10(benchmark::State& state) {
    RunReport(state, RandomDna(), RunExceptionalWords, 10);
}
void BM_RandomRepeatsWithoutPositions(benchmark::State& state) {
    RunReport(state, RandomDna(), RunRepeatedWords);
}
void BM_RandomRepeatsWithPositionsUpTo8(benchmark::State& state) {
    RunReport(state, RandomDna(), RunRepeatedWords, 8, true);
}
void BM_RandomRepeatsWithPositionsUpTo8AndTable(benchmark::State& state) {
    RunReport(state, RandomDna(), RunRepeatedWords, 8, true, true);
}
void BM_AllBytesEntropies(benchmark::State& state) {
    RunReport(state, AllBytes(), RunBlockEntropies);
}
void BM_AllBytesUncertainties(benchmark::State& state) {
    RunReport(state, AllBytes(), RunLocalUncertainties);
}
void BM_AllBytesExceptional(benchmark::State& state) {
    RunReport(state, AllBytes(), RunExceptionalWords, kNoLengthLimit, true);
}
void BM_AllBytesRepeatsUpTo100(benchmark::State& state) {
    RunReport(state, AllBytes(), RunRepeatedWords, 100);
}
void BM_PeriodThreeEntropies(benchmark::State& state) {
    RunReport(state, PeriodThree(), RunBlockEntropies);
}
void BM_PeriodThreeRepeatsUpTo1000(benchmark::State& state) {
    RunReport(state, PeriodThree(), RunRepeatedWords, 1000);
}

BENCHMARK(BM_RandomEntropies)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomUncertainties)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomExceptionalUpTo10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomRepeatsWithoutPositions)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomRepeatsWithPositionsUpTo8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomRepeatsWithPositionsUpTo8AndTable)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AllBytesEntropies)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AllBytesUncertainties)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AllBytesExceptional)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AllBytesRepeatsUpTo100)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PeriodThreeEntropies)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PeriodThreeRepeatsUpTo1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
