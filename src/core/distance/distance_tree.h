#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "distance/cluster_tree.h"
#include "distance/distance_matrix.h"
#include "sequence/folder_sequences.h"
#include "session/command.h"

namespace tessarin {

struct DistanceTreeResult;

struct TreeParams {
    // A file of the folder: every file with its extension (the part after its first ".") is compared.
    std::filesystem::path file;
    // Extra outputs of a completed run; an empty path is not written.
    std::filesystem::path newick, phylip, tsv;
    // Say in a message why a folder with fewer than two matching files is refused (the command
    // line does; the desktop program passes over it in silence).
    bool explain_refusal = false;
    // Where a front end wants the completed run's names, matrix and tree, to export them later.
    std::optional<DistanceTreeResult>* result = nullptr;
};

// What a completed distance tree run found: the base names, the distances before clustering
// rewrote them, and the tree.
struct DistanceTreeResult {
    std::vector<std::string> names;
    DistanceMatrix matrix;
    ClusterTree tree;
};

// The report of a distance matrix of the texts named `names`: the distance list (log only), a
// three-line report for every violation of the triangle inequality, and the lower-triangular table
// with the names padded to the longest plus one (log only).
void ReportDistanceMatrix(Session& session, const std::vector<std::string>& names, const DistanceMatrix& matrix);

// The report of a cluster tree, in the log only: its edge list and its drawing.
void ReportClusterTree(Session& session, const ClusterTree& tree);

// Compares every pair of the sequences of `set` (at least two: files of one folder or records of
// one file) by their relative algorithmic distance and clusters them with `mode`: the distance
// list, every violation of the triangle inequality, the triangular matrix, the tree's edge list
// and its drawing go to "Similar.log" in the set's folder, which is then shown. Nothing when
// cancelled: a cancel during the complexities leaves no log at all, one during the clustering a
// log that is not shown. Leaves sequence 1 as the current sequence's name and the last pair
// measured as the current text.
std::optional<DistanceTreeResult> DistanceTree(Session& session, const FolderSequences& set, int mode);

// "Distance Matrix / &Tree": the files with the extension of `params.file` in its folder, in name
// order, or the records of a FASTA file of several (see FolderSequences), single linkage; then the
// extra outputs; ends with the time needed or "User Abort". Refused when fewer than two files match.
Outcome RunDistanceTree(Session& session, const TreeParams& params);

}  // namespace tessarin
