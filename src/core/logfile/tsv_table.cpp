#include "logfile/tsv_table.h"

namespace tessarin {
namespace {

// A written table goes to disk in pieces of this size, so its memory stays small.
constexpr std::size_t kWriteSize = std::size_t{1} << 20;

template <typename Number>
std::string ShortestText(Number value) {
    char buffer[64];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

}  // namespace

TsvTable::TsvTable(const std::vector<std::string>& columns, std::filesystem::path file) : file_path_(std::move(file)) {
    if (!file_path_.empty()) {
        file_.open(PartPath(), std::ios::binary | std::ios::trunc);
        if (!file_) throw TableFileError("Cannot write the table file " + file_path_.string());
    }
    for (const std::string& column : columns)
        Cell(column);
    EndRow();
}

TsvTable::~TsvTable() {
    if (!file_.is_open()) return;
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(PartPath(), ignored);
}

TsvTable& TsvTable::Cell(std::string_view text) {
    if (text.find_first_of("\t\n\r\\") == std::string_view::npos) return Raw(text);
    std::string cell;
    cell.reserve(text.size() + 2);
    for (const char c : text) {
        switch (c) {
            case '\t':
                cell += "\\t";
                break;
            case '\n':
                cell += "\\n";
                break;
            case '\r':
                cell += "\\r";
                break;
            case '\\':
                cell += "\\\\";
                break;
            default:
                cell += c;
        }
    }
    return Raw(cell);
}

TsvTable& TsvTable::Cell(float value) {
    return Raw(ShortestText(value));
}

TsvTable& TsvTable::Cell(double value) {
    return Raw(ShortestText(value));
}

void TsvTable::EndRow() {
    text_ += '\n';
    row_started_ = false;
    if (file_.is_open() && text_.size() >= kWriteSize) {
        file_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
        text_.clear();
    }
}

void TsvTable::Finish() {
    if (!file_.is_open()) return;
    file_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
    text_.clear();
    file_.close();
    std::error_code error;
    if (file_.fail() || (std::filesystem::rename(PartPath(), file_path_, error), error)) {
        std::filesystem::remove(PartPath(), error);
        throw TableFileError("Cannot write the table file " + file_path_.string());
    }
}

TsvTable& TsvTable::Raw(std::string_view cell) {
    if (row_started_) text_ += '\t';
    text_ += cell;
    row_started_ = true;
    return *this;
}

std::filesystem::path TsvTable::PartPath() const {
    std::filesystem::path part = file_path_;
    return part += ".part";
}

}  // namespace tessarin
