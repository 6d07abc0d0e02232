#include "sequence/gzip_stream.h"

#include <zlib.h>

#include "sequence/regular_file.h"
#include "sequence/sequence_file.h"

namespace tessarin {
namespace {

// A large buffer: inflating a genome in 8 KiB steps (zlib's default) costs a third more time.
constexpr unsigned kBufferSize = 1U << 17;

}  // namespace

GzipStream::GzipStream(const std::filesystem::path& path) : path_(path) {
    RequireRegularFile(path);
    file_ = gzopen(path.c_str(), "rb");
    if (file_ == nullptr) throw SequenceFileError(CannotReadMessage(path));
    gzbuffer(file_, kBufferSize);
}

GzipStream::~GzipStream() {
    if (file_ != nullptr) gzclose(file_);
}

int GzipStream::Read(void* buffer, int size) {
    const int got = gzread(file_, buffer, static_cast<unsigned>(size));
    int code = Z_OK;
    const char* message = gzerror(file_, &code);
    // At the end of the input zlib answers 0 bytes; Z_BUF_ERROR then means it ended inside a stream.
    if (code == Z_BUF_ERROR && got <= 0) {
        throw SequenceFileError(CannotReadMessage(path_, "the gzip data ends too early (truncated file)"));
    }
    if (got < 0 || (code != Z_OK && code != Z_BUF_ERROR)) {
        if (code == Z_ERRNO) throw SequenceFileError(CannotReadMessage(path_));
        throw SequenceFileError(CannotReadMessage(path_, std::string("damaged gzip data (") + message + ")"));
    }
    return got;
}

std::string GzipStream::ReadAll() {
    std::string bytes;
    std::size_t used = 0;
    for (;;) {
        bytes.resize(used + kBufferSize);
        const int got = Read(bytes.data() + used, static_cast<int>(kBufferSize));
        if (got == 0) break;
        used += static_cast<std::size_t>(got);
    }
    bytes.resize(used);
    return bytes;
}

}  // namespace tessarin
