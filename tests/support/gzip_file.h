#pragma once

#include <zlib.h>

#include <filesystem>
#include <string>

namespace tessarin::testing {

// Writes `bytes` gzip-compressed to `path`; `cut` bytes are dropped from the end of the
// compressed file, to make a truncated one.
inline void WriteGzip(const std::filesystem::path& path, const std::string& bytes, std::size_t cut = 0) {
    gzFile file = gzopen(path.c_str(), "wb");
    gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size()));
    gzclose(file);
    if (cut > 0) std::filesystem::resize_file(path, std::filesystem::file_size(path) - cut);
}

}  // namespace tessarin::testing
