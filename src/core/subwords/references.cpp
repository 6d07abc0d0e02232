#include "subwords/references.h"

#include <string>
#include <vector>

#include "logfile/log_file.h"

namespace tessarin {
namespace {

struct Block {
    std::string heading;
    std::size_t underline_length;
    std::vector<std::string> body;
};

// Literature blocks are underlined to the heading's full length.
Block Literature(std::string heading, std::vector<std::string> body) {
    const std::size_t length = heading.size();
    return Block{std::move(heading), length, std::move(body)};
}

// The generator headings are underlined one character short of their length, as the references text
// is published (tests/data/subwords/references.txt holds it whole).
Block Generator(std::string heading, std::vector<std::string> body) {
    const std::size_t length = heading.size() - 1;
    return Block{std::move(heading), length, std::move(body)};
}

std::vector<Block> ReferenceBlocks() {
    return {
        Literature("Subword Entropies, see:", {"A book on probability and information."}),
        Literature("Exceptional Subwords, see:",
                   {"Journal paper, 1997: Markov processes, dynamic entropies and the statistical",
                    "prediction of weather regimes."}),
        Literature("Local Conditional Uncertainties, see:",
                   {"Paper, 1997: prediction and entropy of nonlinear dynamical systems and symbolic", "sequences."}),
        Literature("Grammar Complexity of Sequences, NVOGRAM Method, see:",
                   {"Symposium contribution, 1997, on biological complexity."}),
        Literature("Algorithmic Distance, see:",
                   {"Paper, 1989: the thermodynamic cost of computation and the information metric.", "and",
                    "Paper, 2001: an information-based sequence distance, applied to the phylogeny of",
                    "mitochondrial genomes."}),
        Literature("Phylogenetic Tree Algorithms, see:",
                   {"Comparison of phylogeny algorithms, 1994.", "and", "A public phylogeny program package."}),
        Literature("Surrogate Construction, see:",
                   {"Journal paper, 1985: random sequence permutation preserving dinucleotide and codon", "usage."}),
        Literature("Surrogate Redundancy, see:",
                   {"Paper: normalising complexity measurements for epoch length and sampling frequency."}),
        Generator("Logistic Map is defined as:",
                  {" x(i+1) = R * x(i) * (1 - x(i))", "with initial conditions", " 0 < x(0) < 1 randomly"}),
        Generator(
            "Henon Map is defined as:",
            {" x(i+1) = 1 - a * x(i) * x(i) + b * y(i)", " y(i+1) = x(i)", "with the parameters", " a = 1.4, b = 0.3",
             "and with initial conditions", " -1 < x(0) < 1 randomly", " -1 < y(0) < 1 randomly"}),
        Generator("Lorenz Map is defined as:",
                  {" x(i+1) = x(i) + dt * s * (y(i) - x(i))", " y(i+1) = y(i) + dt * (x(i) * (r - z(i)) - y(i))",
                   " z(i+1) = z(i) + dt * (x(i) * y(i) - b * z(i))", "with the parameters",
                   " dt = 0.01, s = 10, r = 28, b = 8/3", "and with initial conditions", " -30 < x(0) < 30 randomly",
                   " -40 < y(0) < 40 randomly", "   0 < z(0) < 50 randomly"}),
        Generator("Sine Wave is defined as:", {" x(i) = sin(2 * PI * i / T)"}),
    };
}

}  // namespace

std::vector<std::string> ReferenceLines() {
    std::vector<std::string> lines{"Background References of TESSARIN"};
    for (const Block& block : ReferenceBlocks()) {
        lines.emplace_back();
        lines.push_back(block.heading);
        lines.emplace_back(block.underline_length, '=');
        lines.insert(lines.end(), block.body.begin(), block.body.end());
    }
    return lines;
}

void ReportReferences(Session& session, const std::vector<std::string>& lines) {
    // A fixed text: rewriting it keeps one copy instead of numbered duplicates.
    session.log() = LogTarget{"Reference.txt", session.program_folder()};
    OpenLogFile(session, 1);
    for (const std::string& line : lines)
        WriteLogLine(session, line);
}

Outcome RunReferences(Session& session, const SubwordParams&) {
    ReportReferences(session, ReferenceLines());
    ShowLogFile(session);
    return Outcome::kCompleted;
}

}  // namespace tessarin
