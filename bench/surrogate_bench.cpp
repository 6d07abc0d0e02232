#include <benchmark/benchmark.h>

#include <string>

#include "session/parallel_for.h"
#include "session/random_generator.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"
#include "surrogate/surrogate_statistics.h"

namespace tessarin {
namespace {

// A DNA-like text: letters A, C, G, T drawn uniformly with a fixed seed.
std::string RandomDna(int length) {
    RandomGenerator random(20240611);
    std::string text;
    for (int p = 0; p < length; ++p)
        text += "ACGT"[random.Index(4) - 1];
    return text;
}

// The whole ensemble run as the desktop starts it: 100 surrogates keeping the pairs, with the
// entropies and the exceptional words up to length 5, each iteration from the same seed.
void BM_SurrogateStatistics(benchmark::State& state) {
    const int length = static_cast<int>(state.range(0));
    const int threads = state.range(1) == 0 ? DefaultThreadCount() : static_cast<int>(state.range(1));
    testing::TempFolder folder;
    folder.Write("dna.txt", RandomDna(length));
    testing::ScriptedHost host;
    Session session(host, folder.Folder());
    session.SetThreads(threads);
    SurrogateParams params;
    params.input = folder.Path("dna.txt");
    params.count = 100;
    params.preserve = Preserve::kPairs;
    params.entropy = true;
    params.exceptional = true;
    params.max_length = 5;
    for (auto _ : state) {
        session.random().Seed(1);
        benchmark::DoNotOptimize(RunSurrogateStatistics(session, params));
    }
    state.counters["threads"] = threads;
}
// threads 0 means all cores.
BENCHMARK(BM_SurrogateStatistics)->ArgNames({"length", "threads"})->Args({1000, 0})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SurrogateStatistics)
    ->ArgNames({"length", "threads"})
    ->ArgsProduct({{10000, 100000}, {1, 0}})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
