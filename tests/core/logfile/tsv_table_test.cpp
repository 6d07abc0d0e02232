#include "logfile/tsv_table.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <string>

#include "session/random_generator.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

// Catches a missing header, a tab after the last cell, or a row ended by CR LF like the logs.
TEST(TsvTableTest, HeaderThenRowsOfTabSeparatedCells) {
    TsvTable table({"n", "word", "h"});
    table.Cell(1).Cell("AC").Cell(0.5F).EndRow();
    table.Cell(12).Cell("").Cell(-2.25).EndRow();
    EXPECT_EQ(table.Text(), "n\tword\th\n1\tAC\t0.5\n12\t\t-2.25\n");
}

// Catches a number rounded to the report's digits, a float widened to double on the way (0.1F
// would read 0.10000000149011612), or a fixed number of decimals.
TEST(TsvTableTest, NumbersInTheirShortestExactForm) {
    TsvTable table({"x"});
    table.Cell(0.1F).Cell(0.1).Cell(1.0F / 3).Cell(1e-8F).Cell(0.0F).Cell(-7.0).Cell(std::size_t{4000000000});
    EXPECT_EQ(table.Text(), "x\n0.1\t0.1\t0.33333334\t1e-08\t0\t-7\t4000000000");
}

// Every single-precision value reads back exactly from its cell: the table loses nothing that the
// computation kept. Catches a shortest form of the double instead of the float, or too few digits.
TEST(TsvTableTest, SinglePrecisionCellsReadBackExactly) {
    RandomGenerator random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto value = static_cast<float>((random.Next() - 0.5) * std::pow(10.0, 12 * random.Next() - 6));
        TsvTable table({"x"});
        table.Cell(value).EndRow();
        const std::string cell = table.Text().substr(2, table.Text().size() - 3);
        float read = 0;
        const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), read);
        ASSERT_TRUE(error == std::errc() && end == cell.data() + cell.size()) << cell;
        ASSERT_EQ(read, value) << cell;
    }
}

// Catches a decimal comma under a locale that has one (the desktop toolkit sets the C locale from
// the environment).
TEST(TsvTableTest, DecimalPointWhateverTheLocale) {
    const char* previous = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    TsvTable table({"x"});
    table.Cell(2.5F).Cell(0.125).EndRow();
    if (previous != nullptr) std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(table.Text(), "x\n2.5\t0.125\n");
}

// A sequence letter or a file name may hold a tab or a backslash; the row must keep its columns
// and the cell must be recoverable. Catches a raw tab splitting a cell, or an unescaped backslash
// that would make "\t" in a name ambiguous.
TEST(TsvTableTest, TextCellsEscapeTabsLineBreaksAndBackslashes) {
    TsvTable table({"a\tb"});
    table.Cell("x\ty\\z\r\n").Cell("plain").EndRow();
    EXPECT_EQ(table.Text(), "a\\tb\nx\\ty\\\\z\\r\\n\tplain\n");
}

// A written table equals the one kept in memory, also past the pieces it is written in, replaces an
// older file only when finished, and leaves nothing when it is not. Catches rows lost at a piece's
// edge, a half table under the final name after a cancel, and a failed write passing silently.
TEST(TsvTableTest, WrittenTableIsWholeOrAbsent) {
    testing::TempFolder folder;
    folder.Write("t.tsv", "an older table\n");
    const auto fill = [](TsvTable& table) {
        for (int i = 0; i < 200000; ++i)
            table.Cell(i).Cell("ACGT").Cell(i / 7.0F).EndRow();
    };
    TsvTable kept({"i", "word", "x"});
    fill(kept);
    {
        TsvTable written({"i", "word", "x"}, folder.Path("t.tsv"));
        fill(written);
        EXPECT_EQ(folder.Read("t.tsv"), "an older table\n");
        written.Finish();
    }
    EXPECT_GT(kept.Text().size(), std::size_t{2} << 20);
    EXPECT_EQ(folder.Read("t.tsv"), kept.Text());

    {
        TsvTable cancelled({"K"}, folder.Path("c.tsv"));
        cancelled.Cell(117).EndRow();
    }
    EXPECT_FALSE(folder.Exists("c.tsv"));
    EXPECT_FALSE(folder.Exists("c.tsv.part"));
    EXPECT_THROW(TsvTable({"K"}, folder.Path("no-such-folder/t.tsv")), TableFileError);
}

}  // namespace
}  // namespace tessarin
