// The subword reports on a 100,000-symbol random DNA-like sequence, each run as its menu command
// runs it: search, report written line by line, final note.
#include <benchmark/benchmark.h>

#include <functional>
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

constexpr int kSequenceLength = 100000;
constexpr unsigned kSeed = 20240601;

std::string RandomDna() {
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> letter(0, 3);
    std::string text(kSequenceLength, ' ');
    for (char& c : text)
        c = "ACGT"[letter(random)];
    return text;
}

// Runs `flow` once per iteration on the sequence, answering the input box with `max_length`
// (the proposal when empty); each report is deleted afterwards so that no numbered names pile up.
void RunReport(benchmark::State& state, const std::function<Outcome(Session&)>& flow, const std::string& max_length) {
    testing::TempFolder folder;
    folder.Write("random.txt", RandomDna());
    testing::ScriptedHost host;
    Session session(host, folder.Folder());
    for (auto _ : state) {
        host.files.push_back(FileChoice{folder.Folder(), "random.txt"});
        if (!max_length.empty()) host.inputs.push_back(max_length);
        if (RunCommand(session, flow) != Outcome::kCompleted) state.SkipWithError("the report did not complete");
        state.PauseTiming();
        DeleteFile(folder.Folder(), session.log().name);
        state.ResumeTiming();
    }
}

void BM_BlockEntropies(benchmark::State& state) {
    RunReport(state, RunBlockEntropies, "");
}
void BM_LocalUncertainties(benchmark::State& state) {
    RunReport(state, RunLocalUncertainties, "");
}
void BM_ExceptionalWordsUpTo10(benchmark::State& state) {
    RunReport(
        state, [](Session& session) { return RunExceptionalWords(session, 1); }, "10");
}
void BM_RepeatedWordsWithoutPositions(benchmark::State& state) {
    RunReport(
        state, [](Session& session) { return RunRepeatedWords(session, 1); }, "");
}

BENCHMARK(BM_BlockEntropies)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LocalUncertainties)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExceptionalWordsUpTo10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RepeatedWordsWithoutPositions)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
