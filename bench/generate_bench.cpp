// Generation of a series and its Equal Frequency discretisation, the pipeline's costliest path:
// the sort of the whole series bounds it. Also the other partitions and each step alone.
#include <benchmark/benchmark.h>

#include "generate/discretise_series.h"
#include "generate/generate_series.h"

namespace tessarin {
namespace {

constexpr std::uint64_t kSeed = 20240601;

GenerateParams Params(SignalSource source, int length) {
    GenerateParams params;
    params.source = source;
    params.length = length;
    return params;
}

NumberSeries Generate(const GenerateParams& params) {
    RandomGenerator random(kSeed);
    GaussianState gaussian;
    return GenerateSeries(params, random, gaussian, NoProgress).value();
}

void BM_GenerateAndDiscretise(benchmark::State& state) {
    const GenerateParams params = Params(SignalSource::kGaussianNoise, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const NumberSeries series = Generate(params);
        auto symbols = DiscretiseSeries(series.values, series.statistics, 4, Partition::kEqualFrequency, NoProgress);
        benchmark::DoNotOptimize(symbols);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_GenerateAndDiscretise)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMillisecond);

void BM_Generate(benchmark::State& state) {
    const auto source = static_cast<SignalSource>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(Generate(Params(source, 1000000)));
    state.SetItemsProcessed(state.iterations() * 1000000);
}
BENCHMARK(BM_Generate)->DenseRange(0, kSignalSourceCount - 1)->Unit(benchmark::kMillisecond);

void BM_Discretise(benchmark::State& state) {
    const NumberSeries series = Generate(Params(SignalSource::kLorenzSystem, 1000000));
    const auto partition = static_cast<Partition>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(DiscretiseSeries(series.values, series.statistics, 20, partition, NoProgress));
    state.SetItemsProcessed(state.iterations() * 1000000);
}
BENCHMARK(BM_Discretise)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarin

BENCHMARK_MAIN();
