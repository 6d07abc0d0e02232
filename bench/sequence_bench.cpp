#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "sequence/sequence_reading.h"
#include "session/random_generator.h"
#include "support/gzip_file.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

// The size of the E. coli 536 genome, the largest input the README measures.
constexpr int kGenomeLength = 4938920;

// A random DNA text of `length` letters as a one-record FASTA file in lines of 80, as NCBI writes
// genomes; random letters compress about as badly as a real genome does. Fixed seed.
std::string GenomeFasta(int length) {
    RandomGenerator random(536);
    std::string fasta = ">NC_000000 random genome\n";
    for (int p = 1; p <= length; ++p) {
        fasta += "ACGT"[random.Index(4) - 1];
        if (p % 80 == 0 || p == length) fasta += '\n';
    }
    return fasta;
}

// Reading a genome-sized file: as plain FASTA, as gzip FASTA (.fna.gz) and, for comparison, its
// sequence as gzip text.
void BM_ReadSequence(benchmark::State& state) {
    const int length = static_cast<int>(state.range(1));
    const std::string fasta = GenomeFasta(length);
    testing::TempFolder folder;
    std::string name;
    switch (state.range(0)) {
        case 0:
            name = "genome.fna";
            folder.Write(name, fasta);
            break;
        case 1:
            name = "genome.fna.gz";
            testing::WriteGzip(folder.Path(name), fasta);
            break;
        default:
            name = "genome.txt.gz";
            testing::WriteGzip(folder.Path(name), fasta.substr(fasta.find('\n') + 1));
            break;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadSequence(folder.Path(name), {}));
    state.SetBytesProcessed(state.iterations() * length);
}
BENCHMARK(BM_ReadSequence)
    ->ArgNames({"form", "length"})  // form 0 = .fna, 1 = .fna.gz, 2 = .txt.gz
    ->ArgsProduct({{0, 1, 2}, {100000, kGenomeLength}})
    ->Unit(benchmark::kMillisecond);

// A real genome file when TESSARIN_GENOME names one (scripts/bench_ecoli.sh fetches E. coli 536).
void BM_ReadGenomeFile(benchmark::State& state, const std::string& path) {
    std::size_t length = 0;
    for (auto _ : state)
        length = ReadSequence(path, {}).text.size();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(length));
}

}  // namespace
}  // namespace tessarin

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (const char* genome = std::getenv("TESSARIN_GENOME")) {
        benchmark::RegisterBenchmark("BM_ReadGenomeFile", tessarin::BM_ReadGenomeFile, std::string(genome))
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
