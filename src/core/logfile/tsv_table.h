#pragma once

#include <charconv>
#include <concepts>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// A report's figures as tab-separated values, beside its log: a header row, then one row per
// record, each ended by a line feed. Numbers are written in the shortest form that reads back as
// the same value of their type (std::to_chars), with "." as the decimal point whatever the
// locale, so a table holds every digit that the log rounds away. A tab, line break or backslash in
// a text cell is written as "\t", "\n", "\r" or "\\", so that every row keeps its columns.
class TsvTable {
  public:
    // A table kept in memory, or with `file`, one written as it grows (a word list with positions
    // can be as large as its log) that appears under its name only once finished.
    explicit TsvTable(const std::vector<std::string>& columns, std::filesystem::path file = {});
    // A written table that was not finished leaves no file behind.
    ~TsvTable();
    TsvTable(TsvTable&&) = default;  // the moved-from table owns no file any more
    TsvTable& operator=(TsvTable&&) = delete;

    // Cells are added left to right; EndRow closes the row.
    TsvTable& Cell(std::string_view text);
    TsvTable& Cell(std::integral auto value) {
        char buffer[24];
        return Raw(std::string_view(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr));
    }
    TsvTable& Cell(float value);
    TsvTable& Cell(double value);
    void EndRow();

    // The whole text of a table kept in memory.
    const std::string& Text() const { return text_; }
    // Writes the rest of a written table and gives it its name; a TableFileError when it cannot.
    void Finish();

  private:
    TsvTable& Raw(std::string_view cell);
    std::filesystem::path PartPath() const;

    std::string text_;
    bool row_started_ = false;
    std::filesystem::path file_path_;
    std::ofstream file_;
};

// A table file that could not be written; the command ends with this message.
class TableFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Where a report's table goes besides its log: the file that the command line names, or one that
// the desktop program keeps to offer "Save Table As..." in the report's window.
struct TableOutput {
    std::filesystem::path file;  // no table when empty
    bool Wanted() const { return !file.empty(); }
};

}  // namespace tessarin
