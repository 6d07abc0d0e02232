#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "logfile/number_text.h"
#include "support/cli_test.h"

namespace tessarin {
namespace {

using testing::ProgramResult;
using testing::Quoted;

struct Tsv {
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;

    // The cell of `row` in the column named `column`.
    const std::string& At(std::size_t row, const std::string& column) const {
        for (std::size_t c = 0; c < header.size(); ++c) {
            if (header[c] == column) return rows.at(row).at(c);
        }
        throw std::out_of_range("no column " + column);
    }
};

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

// Reads a table back; every row must have as many cells as the header and end with a line feed.
Tsv ParseTsv(const std::string& text) {
    Tsv table;
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(text.back(), '\n');
    std::vector<std::string> lines = Split(text, '\n');
    lines.pop_back();
    if (lines.empty()) return table;
    table.header = Split(lines.front(), '\t');
    for (std::size_t i = 1; i < lines.size(); ++i) {
        table.rows.push_back(Split(lines[i], '\t'));
        EXPECT_EQ(table.rows.back().size(), table.header.size()) << lines[i];
    }
    return table;
}

// A number cell, which must read back completely.
float CellValue(const std::string& cell) {
    float value = 0;
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    EXPECT_TRUE(error == std::errc() && end == cell.data() + cell.size()) << "'" << cell << "'";
    return value;
}

// A cell as the report prints a single-precision number.
std::string AsReportNumber(const std::string& cell) {
    return SingleText(CellValue(cell));
}

// The positions line of a report ("Positions: 1, 3,") from a positions cell ("1,3").
std::string PositionsLineOf(const std::string& cell) {
    std::string line = "Positions:";
    for (const std::string& position : Split(cell, ','))
        line += " " + position + ",";
    return line;
}

// The log's lines after its header, split at CR LF.
std::vector<std::string> LogLines(const std::string& log) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < log.size();) {
        const std::size_t end = log.find("\r\n", at);
        lines.push_back(log.substr(at, end - at));
        at = end == std::string::npos ? log.size() : end + 2;
    }
    return lines;
}

class CliTsvTest : public testing::CliTest {
  protected:
    // Copies a file of the test data (tests/data/<subfolder>/<name>) into the data folder.
    std::string Copy(const std::string& subfolder, const std::string& name) const {
        data_.Write(name, testing::ReadTestData(subfolder, name));
        return Quoted(data_.Path(name));
    }
    // Runs `arguments` with "--tsv table.tsv" before the file; answers the table read back.
    Tsv RunWithTable(const std::string& arguments, const std::string& file) const {
        const ProgramResult result = Cli(arguments + " --tsv " + Quoted(data_.Path("table.tsv")) + " " + file);
        EXPECT_EQ(result.status, 0) << result.err;
        return ParseTsv(data_.Read("table.tsv"));
    }
};

// Each entropy line of the log and its row agree in n and in every printed digit of H_n, H_n/n
// and h_(n-1). Catches a column swapped or left unrounded before the division, a row missing or
// extra, and a header that does not name the columns.
struct TableCase {
    const char* arguments;           // the command and its options
    const char* subfolder;           // of the test data, holding the files
    std::vector<const char*> files;  // copied into the data folder; the last is the one named
    const char* log;
    std::vector<std::string> header;
    const char* row_line;               // a log line that has a row, its captures in...
    std::vector<std::string> captured;  // ...these columns; "#" marks a number compared as printed
};

class CliTableTest : public CliTsvTest, public ::testing::WithParamInterface<TableCase> {};

// Every log line with figures has its row, in log order, and the row holds the same figures to
// every printed digit; a word's row has the length of the heading above it, and its positions and
// distances are those of the log's next lines. Catches a column swapped, shifted or left unrounded
// before a division, a word's figures taken from another word or group, rows for words the log
// leaves out (the uncertainty and exceptional filters, uncounted surrogates), and a header that
// does not name the columns.
TEST_P(CliTableTest, EachLogLineWithFiguresHasItsRow) {
    const TableCase& c = GetParam();
    std::string file;
    for (const char* name : c.files)
        file = Copy(c.subfolder, name);
    const Tsv table = RunWithTable(c.arguments, file);
    EXPECT_EQ(table.header, c.header);
    const auto has = [&](const char* column) { return std::ranges::count(table.header, column) > 0; };
    const std::regex heading("Subword Length l = (\\d+)");
    const std::regex row_line(c.row_line);
    const std::regex distances("(?:Average )?Distance =([^,]+)(?:, \\tr\\.m\\.s\\. =(.+))?");
    const std::vector<std::string> lines = LogLines(data_.Read(c.log));
    std::string length;
    std::size_t row = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::smatch m;
        if (std::regex_match(lines[i], m, heading)) length = m[1];
        if (!std::regex_match(lines[i], m, row_line)) continue;
        ASSERT_LT(row, table.rows.size()) << lines[i];
        for (std::size_t k = 0; k < c.captured.size(); ++k) {
            const std::string& column = c.captured[k];
            const bool number = column.front() == '#';
            const std::string& cell = table.At(row, number ? column.substr(1) : column);
            EXPECT_EQ(number ? AsReportNumber(cell) : cell, m[k + 1].str()) << lines[i];
        }
        if (has("length") && !length.empty()) {  // a word list: the length of its heading
            EXPECT_EQ(table.At(row, "length"), length) << lines[i];
        }
        if (has("positions")) {
            EXPECT_EQ(PositionsLineOf(table.At(row, "positions")), lines.at(i + 1));
        }
        if (has("mean_distance")) {
            const std::string distance_line = lines.at(i + 2);
            ASSERT_TRUE(std::regex_match(distance_line, m, distances)) << distance_line;
            EXPECT_EQ(AsReportNumber(table.At(row, "mean_distance")), m[1].str());
            // One distance has no spread in the log; the table gives it as 0.
            const std::string& spread = table.At(row, "rms_distance");
            EXPECT_EQ(m[2].matched ? AsReportNumber(spread) : spread, m[2].matched ? m[2].str() : "0");
        }
        ++row;
    }
    EXPECT_GE(row, 2U);
    EXPECT_EQ(row, table.rows.size());
}

// The sequences and bounds give every report several rows: mix has 23 reported uncertainties, dna
// words of every count from 2 on and several exceptional words, and pair surrogates differ in C.
INSTANTIATE_TEST_SUITE_P(
    Reports, CliTableTest,
    ::testing::Values(TableCase{"entropies",
                                "subwords",
                                {"dna.txt"},
                                "dna.log",
                                {"n", "H_n", "H_n/n", "h_(n-1)"},
                                "Entropy H(\\d+) =([^\\t]+)\\t  H\\d+/\\d+ =([^\\t]+)\\t  H\\d+ - H\\d+ = h\\d+ =(.+)",
                                {"n", "#H_n", "#H_n/n", "#h_(n-1)"}},
                      TableCase{"uncertainties",
                                "subwords",
                                {"mix.txt"},
                                "mix_lst.log",
                                {"length", "rank", "word", "h"},
                                " (\\d+)\\. h\\((.*)\\) =(.+)",
                                {"rank", "word", "#h"}},
                      TableCase{"repeats --positions --max-length 4",
                                "subwords",
                                {"dna.txt"},
                                "dna_lst.log",
                                {"length", "rank", "word", "count", "positions", "mean_distance", "rms_distance"},
                                " (\\d+)\\. f\\((.*)\\) = (\\d+)",
                                {"rank", "word", "count"}},
                      TableCase{"repeats --max-length 3",
                                "subwords",
                                {"dna.txt"},
                                "dna_lst.log",
                                {"length", "rank", "word", "count"},
                                " (\\d+)\\. f\\((.*)\\) = (\\d+)",
                                {"rank", "word", "count"}},
                      TableCase{"exceptional --positions",
                                "subwords",
                                {"dna.txt"},
                                "dna_lst.log",
                                {"length", "word", "count", "f", "p", "p/f", "positions"},
                                "\\{(.*)\\}\\t f =([^\\t]+)\\t p =([^\\t]+)\\tChance p/f =(.+)",
                                {"word", "#f", "#p", "#p/f"}},
                      TableCase{"complexity --folder --method longest",
                                "grammar",
                                {"k10.txt", "k20.txt"},
                                "Statistics.log",
                                {"index", "name", "length", "K"},
                                " (\\d+)\\. (.+)\\t K =(.+)",
                                {"index", "name", "#K"}},
                      TableCase{"--seed 3 surrogate-stats --count 6 --preserve pairs",
                                "surrogate",
                                {"dna.txt"},
                                "dna_set.log",
                                {"surrogate", "C"},
                                " (\\d+)\\. Surrogate\\t C  =(.+)",
                                {"surrogate", "#C"}}));

// A table leaves the report as it is without one.
TEST_F(CliTsvTest, TheLogIsTheSameWithATable) {
    RunWithTable("repeats", Copy("subwords", "dna.txt"));
    EXPECT_EQ(Masked(data_.Read("dna_lst.log")), testing::ReadTestData("subwords", "repeats_dna.log"));
}

// The single-file run reports a grammar, not a table: asking for one is a usage error.
TEST_F(CliTsvTest, ComplexityTableNeedsTheFolderRun) {
    const ProgramResult result =
        Cli("complexity --tsv " + Quoted(data_.Path("t.tsv")) + " " + Copy("grammar", "k10.txt"));
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("--tsv needs --folder"), std::string::npos) << result.err;
    EXPECT_FALSE(data_.Exists("t.tsv"));
}

// The log gives the surrogates' entropies only as averages: the mean of each H column, summed in
// double as the run sums it, must print as the log's average. Catches entropies of the original or
// of another surrogate in a row, and a column shifted by one length.
TEST_F(CliTsvTest, SurrogateEntropyColumnsAverageToTheLogs) {
    const Tsv table = RunWithTable("--seed 3 surrogate-stats --count 6 --preserve pairs --entropy --max-length 3",
                                   Copy("surrogate", "dna.txt"));
    EXPECT_EQ(table.header, (std::vector<std::string>{"surrogate", "C", "H1", "H2", "H3"}));
    ASSERT_EQ(table.rows.size(), 6U);
    const std::regex average("Average Subword Entropy  <(H\\d+)> =(.+)");
    int checked = 0;
    for (const std::string& text : LogLines(data_.Read("dna_set.log"))) {
        std::smatch m;
        if (!std::regex_match(text, m, average)) continue;
        double sum = 0;
        for (std::size_t r = 0; r < table.rows.size(); ++r)
            sum += CellValue(table.At(r, m[1]));
        EXPECT_EQ(SingleText(static_cast<float>(sum / 6)), m[2].str()) << text;
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

// The tree's matrix table, in the same number form as the other tables: each distance of the log's
// list is the matrix cell of its pair, both ways round; the diagonal is 0. Catches the matrix
// written with rounded decimals, transposed names, or rows out of the header's order.
TEST_F(CliTsvTest, TreeTableHoldsTheLogsDistances) {
    for (const char* name : {"other.txt", "twin_a.txt", "twin_b.txt"})
        data_.Write(name, testing::ReadTestData("distance/folder3", name));
    const Tsv table = RunWithTable("tree", Quoted(data_.Path("other.txt")));
    EXPECT_EQ(table.header, (std::vector<std::string>{"", "other", "twin_a", "twin_b"}));
    std::map<std::string, std::size_t> row_of;
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
        row_of[table.rows[r][0]] = r;
        EXPECT_EQ(table.At(r, table.rows[r][0]), "0");
    }
    const std::regex distance("d\\( (.+), (.+) \\) =(.+)");
    int checked = 0;
    for (const std::string& text : LogLines(data_.Read("Similar.log"))) {
        std::smatch m;
        if (!std::regex_match(text, m, distance)) continue;
        EXPECT_EQ(AsReportNumber(table.At(row_of.at(m[1]), m[2])), m[3]);
        EXPECT_EQ(table.At(row_of.at(m[1]), m[2]), table.At(row_of.at(m[2]), m[1]));
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

}  // namespace
}  // namespace tessarin
