#include "distance/distance_tree.h"

#include <algorithm>
#include <fstream>

#include "distance/current_text.h"
#include "distance/tree_exports.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/folder_sequences.h"
#include "session/clock.h"

namespace tessarin {
namespace {

constexpr int kTableDecimals = 3;

// An extra output that could not be written; the command ends with this message.
class ExportFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string Extension(const std::string& name) {
    const std::size_t dot = name.find('.');
    return dot == std::string::npos ? "" : name.substr(dot + 1);
}

std::string Distance(const std::string& first, const std::string& second) {
    return "d( " + first + ", " + second + " )";
}

void WriteDistanceList(Session& session, const std::vector<std::string>& names, const DistanceMatrix& matrix) {
    WriteLogLine(session, kVersionLine);
    WriteLogLine(session, "Distance Matrix List  - " + DateTimeText());
    WriteLogLine(session, "");
    for (int i = 1; i <= matrix.size(); ++i) {
        for (int j = 1; j < i; ++j)
            WriteLogLine(session, Distance(names[i - 1], names[j - 1]) + " =" + SingleText(matrix(i, j)));
    }
}

// Reports every ordered triple (k, i, j), equal indices included, whose detour k-j-i is shorter
// than the direct distance k-i; the matrix itself is left as it is.
void ReportTriangleViolations(Session& session, const std::vector<std::string>& names, const DistanceMatrix& matrix) {
    const int n = matrix.size();
    for (int k = 1; k <= n; ++k) {
        for (int i = 1; i <= n; ++i) {
            for (int j = 1; j <= n; ++j) {
                const float detour = matrix(j, i) + matrix(k, j);
                if (detour < matrix(k, i)) {
                    PrintLine(session, "");
                    PrintLine(session, "Triangle Inequality Violation");
                    PrintLine(session, Distance(names[k - 1], names[i - 1]) + " > " +
                                           Distance(names[k - 1], names[j - 1]) + " + " +
                                           Distance(names[j - 1], names[i - 1]));
                }
            }
        }
    }
}

void WriteTriangularTable(Session& session, const std::vector<std::string>& names, const DistanceMatrix& matrix) {
    WriteLogLine(session, "");
    WriteLogLine(session, "Triangular Distance Matrix - " + DateTimeText());
    WriteLogLine(session, "");
    std::size_t width = 0;
    for (const std::string& name : names)
        width = std::max(width, name.size());
    ++width;
    for (int i = 1; i <= matrix.size(); ++i) {
        std::string line = names[i - 1];
        line.resize(width, ' ');
        for (int j = 1; j < i; ++j)
            line.append(" ").append(FixedDecimalsText(matrix(i, j), kTableDecimals));
        WriteLogLine(session, line + " " + names[i - 1]);
    }
    WriteLogLine(session, "");
}

void WriteExport(const std::filesystem::path& path, const std::string& text) {
    if (path.empty()) return;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    if (!file) throw ExportFileError("Cannot write the file " + path.string());
}

}  // namespace

void ReportDistanceMatrix(Session& session, const std::vector<std::string>& names, const DistanceMatrix& matrix) {
    WriteDistanceList(session, names, matrix);
    ReportTriangleViolations(session, names, matrix);
    WriteTriangularTable(session, names, matrix);
}

void ReportClusterTree(Session& session, const ClusterTree& tree) {
    for (const char* line : {"", "", "Minimum Distance Binary Cluster Tree", "", "Tree Edge List", ""})
        WriteLogLine(session, line);
    for (const std::string& line : TreeEdgeLines(tree))
        WriteLogLine(session, line);
    for (const char* line : {"", "Tree Layout", ""})
        WriteLogLine(session, line);
    for (const std::string& line : DrawTree(tree))
        WriteLogLine(session, line);
}

std::optional<DistanceTreeResult> DistanceTree(Session& session, const FolderSequences& set, int mode) {
    Host& host = session.host();
    CurrentSequence& sequence = session.sequence();
    host.PrintMainLine("");
    host.PrintMainLine("Compute Distance Matrix  - Press any key to cancel");
    for (std::size_t i = 0; i < set.size(); ++i)
        host.PrintMainLine("Sequence" + IntegerText(static_cast<long long>(i + 1)) + " \t" + set.names()[i]);

    std::vector<std::string> texts;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < set.size(); ++i) {
        texts.push_back(set.Text(i));
        names.push_back(set.BaseName(i));
    }
    const std::optional<DistanceMatrix> matrix = FillDistanceMatrix(texts, names, session.threads(), session.Progress(),
                                                                    [&session] { return session.Aborted(); });
    if (!matrix) return std::nullopt;

    // Named only now: naming a log claims its file, and a run cancelled above leaves none.
    session.log() = LogTarget{"Similar.log", set.folder()};
    OpenLogFile(session, 0);
    ReportDistanceMatrix(session, names, *matrix);
    host.PrintMainLine("");
    host.PrintMainLine("Compute Cluster Tree  - Press any key to cancel");

    std::optional<ClusterTree> tree = BuildClusterTree(*matrix, names, mode, session.Progress());
    if (!tree) return std::nullopt;
    ReportClusterTree(session, *tree);
    ShowLogFile(session);

    set.NameCurrent(sequence, 0);
    // The last complexity of a one-thread run measures the last file followed by the one before it.
    SetCurrentText(session, texts[texts.size() - 1] + texts[texts.size() - 2]);
    return DistanceTreeResult{std::move(names), *matrix, std::move(*tree)};
}

Outcome RunDistanceTree(Session& session, const TreeParams& params) {
    CurrentSequence& sequence = session.sequence();
    const std::filesystem::path file = std::filesystem::absolute(params.file).lexically_normal();
    sequence.folder = file.parent_path();
    sequence.file_name = file.filename().string();
    sequence.record.clear();
    const std::string extension = Extension(sequence.file_name);
    const FolderSequences set(file, sequence.reading);
    session.host().ClearMainWindow();
    if (set.size() < 2) {
        if (params.explain_refusal) {
            session.host().ShowMessage(
                "fewer than two matching files: " + FolderText(sequence.folder) + "*." + extension, kMessageTitle);
        }
        return Outcome::kRefused;
    }
    const double start_time = session.Now();
    const std::optional<DistanceTreeResult> result = DistanceTree(session, set, kSingleLinkage);
    if (result) {
        WriteExport(params.newick, NewickText(result->tree));
        WriteExport(params.phylip, PhylipText(result->matrix, result->names));
        WriteExport(params.tsv, TsvText(result->matrix, result->names));
        if (params.result != nullptr) *params.result = result;
    }
    session.FinalNote(start_time);
    return result ? Outcome::kCompleted : Outcome::kCancelled;
}

}  // namespace tessarin
