#pragma once

#include <filesystem>
#include <string>

struct gzFile_s;

namespace tessarin {

// A sequence file read through zlib: gzip data is inflated (several members one after the other
// as well), any other data passes unchanged. Damaged or truncated gzip data ends the reading with
// a SequenceFileError naming the file.
class GzipStream {
  public:
    // Throws SequenceFileError when `path` is not a readable regular file.
    explicit GzipStream(const std::filesystem::path& path);
    ~GzipStream();
    GzipStream(const GzipStream&) = delete;
    GzipStream& operator=(const GzipStream&) = delete;

    // Up to `size` bytes into `buffer`; 0 at the end of the data.
    int Read(void* buffer, int size);
    // Everything from here to the end.
    std::string ReadAll();

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
    gzFile_s* file_ = nullptr;
};

}  // namespace tessarin
