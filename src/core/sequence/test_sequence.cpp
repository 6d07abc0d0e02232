#include "sequence/test_sequence.h"

#include <fstream>

#include "logfile/log_file.h"
#include "sequence/sequence_file.h"

namespace tessarin {

std::string RandomTestSequence(Session& session, int length) {
    static constexpr char kLetters[] = "ABCD";
    std::string text(static_cast<std::size_t>(length), ' ');
    for (char& c : text)
        c = kLetters[session.random().Index(4) - 1];
    return text;
}

Outcome CreateTestSequence(Session& session) {
    const std::filesystem::path path = session.program_folder() / kTestSequenceFileName;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << RandomTestSequence(session, kTestSequenceLength) << "\r\n";
    file.close();
    if (!file) throw SequenceFileError("Cannot write the test sequence " + path.string());
    return Outcome::kCompleted;
}

}  // namespace tessarin
