#include "subwords/report_writer.h"

#include "logfile/log_file.h"

namespace tessarin {

ReportWriter::ReportWriter(Session& session) : path_(LogFilePath(session)), buffer_(kBufferSize) {
    file_.rdbuf()->pubsetbuf(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    file_.open(path_, std::ios::binary | std::ios::app);
    if (!file_) throw LogFileError("Cannot write the report file " + path_);
}

void ReportWriter::Line(std::string_view text) {
    file_.write(text.data(), static_cast<std::streamsize>(text.size()));
    file_.write("\r\n", 2);
    if (!file_) throw LogFileError("Cannot write the report file " + path_);
}

void ReportWriter::Close() {
    file_.close();
    if (!file_) throw LogFileError("Cannot write the report file " + path_);
}

}  // namespace tessarin
