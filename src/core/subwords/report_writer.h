#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace tessarin {

// Appends a report's lines, each ended by CR LF, to the current log through one open file, so
// that a report of millions of lines goes at disk speed where opening the log for every line
// would not. Every line is on disk once the writer is closed or destroyed, however the report ends.
class ReportWriter {
  public:
    explicit ReportWriter(Session& session);

    void Line(std::string_view text);
    // Writes out what is buffered; a LogFileError when the log cannot take it.
    void Close();

  private:
    static constexpr std::size_t kBufferSize = std::size_t{1} << 20;

    std::string path_;
    std::vector<char> buffer_;
    std::ofstream file_;
};

}  // namespace tessarin
