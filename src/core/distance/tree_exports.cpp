#include "distance/tree_exports.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "logfile/number_text.h"
#include "logfile/tsv_table.h"

namespace tessarin {
namespace {

constexpr int kExportDecimals = 6;
constexpr std::size_t kPhylipNameWidth = 10;

std::string NewickName(const std::string& name) {
    if (name.find_first_of(" \t()[],:;'\"") == std::string::npos) return name;
    std::string quoted = "'";
    for (const char c : name) {
        if (c == '\'') quoted += '\'';
        quoted += c;
    }
    return quoted + "'";
}

double Height(const TreeNode& node) {
    return node.children.empty() ? 0.0 : static_cast<double>(node.distance) / 2;
}

// The shortest text that reads back as the same single-precision value (the precision the distances
// are kept in), whatever the locale.
std::string LengthText(double length) {
    char buffer[32];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(length)).ptr);
}

std::string Subtree(const ClusterTree& tree, int node) {
    const TreeNode& record = tree[node];
    if (record.children.empty()) return NewickName(record.name);
    std::string text = "(";
    for (const int child : record.children) {
        const TreeNode& below = tree[child];
        if (text.size() > 1) text += ',';
        text += Subtree(tree, child) + ":" + LengthText(std::max(0.0, Height(record) - Height(below)));
    }
    return text + ")";
}

}  // namespace

std::string NewickText(const ClusterTree& tree) {
    std::string text;
    for (const int top : tree[0].children)
        text += Subtree(tree, top);
    return text + ";\n";
}

std::string PhylipText(const DistanceMatrix& matrix, std::span<const std::string> names) {
    std::size_t width = kPhylipNameWidth;
    for (const std::string& name : names)
        width = std::max(width, name.size() + 1);
    std::string text = std::to_string(matrix.size()) + "\n";
    for (int i = 1; i <= matrix.size(); ++i) {
        std::string line = names[i - 1];
        line.resize(width, ' ');
        for (int j = 1; j <= matrix.size(); ++j)
            line.append(j > 1 ? " " : "").append(FixedDecimalsText(matrix(i, j), kExportDecimals));
        text += line + "\n";
    }
    return text;
}

std::string TsvText(const DistanceMatrix& matrix, std::span<const std::string> names) {
    std::vector<std::string> columns{""};
    columns.insert(columns.end(), names.begin(), names.end());
    TsvTable table(columns);
    for (int i = 1; i <= matrix.size(); ++i) {
        table.Cell(names[i - 1]);
        for (int j = 1; j <= matrix.size(); ++j)
            table.Cell(matrix(i, j));
        table.EndRow();
    }
    return table.Text();
}

}  // namespace tessarin
