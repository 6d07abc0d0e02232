#include "subwords/subword_report.h"

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "subwords/find_words.h"

namespace tessarin {

bool StartSubwordReport(Session& session, const std::string& start_line, const std::string& log_suffix,
                        const std::string& log_title) {
    const CurrentSequence& sequence = session.sequence();
    Host& host = session.host();
    host.ClearMainWindow();
    host.PrintMainLine(start_line);
    host.PrintMainLine("Sequence " + sequence.file_name);
    if (sequence.text.size() < 2) return false;
    StartReportLog(session, FileBaseName(sequence.file_name) + log_suffix, log_title);
    SequenceSummary(session, sequence.text, true);
    return true;
}

WordList FindWordsOfSequence(Session& session, const CodedSequence& coded, int max_length) {
    const SequenceSet sequences{coded};
    WordList words(1);
    FindWords(sequences, words, max_length, FileBaseName(session.sequence().file_name), session.Progress());
    return words;
}

void WriteWordLines(Session& session, const WordList& words, const std::function<void(const WordRecord&)>& write_word) {
    const int word_count = static_cast<int>(words.size()) - 1;
    for (int i = 1; i <= word_count; ++i) {
        if (session.Busy("Writing...", static_cast<float>(i - 1) / static_cast<float>(word_count))) {
            WriteLogLine(session, "User Abort");
            return;
        }
        write_word(words[i]);
    }
    if (word_count > 0) session.Busy("", 1);
}

std::string LengthHeading(int length) {
    return "Subword Length l =" + IntegerText(length);
}

std::string PositionsLine(const WordRecord& word) {
    std::string line = "Positions:";
    for (int j = 1; j <= word.Count(); ++j)
        line += IntegerText(word.positions[j].position) + ",";
    return line;
}

}  // namespace tessarin
