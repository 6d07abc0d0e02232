#include <benchmark/benchmark.h>

#include <optional>
#include <string>
#include <vector>

#include "distance/cluster_tree.h"
#include "distance/distance_matrix.h"
#include "session/parallel_for.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

constexpr int kFiles = 16;
constexpr double kMutationRate = 0.05;

// Relatives of one random DNA ancestor, each with its own 5% of substituted letters, so that the
// pairs share long stretches as related sequences do. Fixed seed.
std::vector<std::string> RelatedTexts(int length) {
    RandomGenerator random(20241123);
    std::string ancestor;
    for (int p = 0; p < length; ++p)
        ancestor += "ACGT"[random.Index(4) - 1];
    std::vector<std::string> texts(kFiles, ancestor);
    for (std::string& text : texts) {
        for (char& letter : text) {
            if (random.Next() < kMutationRate) letter = "ACGT"[random.Index(4) - 1];
        }
    }
    return texts;
}

// The whole distance tree of 16 texts (16 single and 120 pair complexities, then the clustering)
// on one thread or on all (threads = 0).
void BM_DistanceTree(benchmark::State& state) {
    const int threads = state.range(0) == 0 ? DefaultThreadCount() : static_cast<int>(state.range(0));
    const std::vector<std::string> texts = RelatedTexts(static_cast<int>(state.range(1)));
    std::vector<std::string> names;
    for (int i = 1; i <= kFiles; ++i)
        names.push_back("file" + std::to_string(i));
    for (auto _ : state) {
        const std::optional<DistanceMatrix> matrix =
            FillDistanceMatrix(texts, names, threads, NoProgress, [] { return false; });
        benchmark::DoNotOptimize(BuildClusterTree(*matrix, names, kSingleLinkage, NoProgress));
    }
    state.counters["threads"] = threads;
}
BENCHMARK(BM_DistanceTree)
    ->ArgNames({"threads", "length"})
    ->ArgsProduct({{1, 0}, {2000, 20000}})
    ->Unit(benchmark::kSecond)
    ->UseRealTime();

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
