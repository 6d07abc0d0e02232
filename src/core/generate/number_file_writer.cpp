#include "generate/number_file_writer.h"

#include <fstream>
#include <string>

#include "logfile/number_text.h"
#include "sequence/sequence_file_writer.h"

namespace tessarin {

void WriteNumberFile(const std::filesystem::path& path, std::span<const float> values) {
    std::string content;
    content.reserve(values.size() * 12);
    for (const float value : values)
        content.append(SingleText(value)).append("\r\n");
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) throw SequenceWriteError("Cannot write the series file " + path.string());
}

}  // namespace tessarin
