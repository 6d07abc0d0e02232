#pragma once

#include <functional>
#include <string>

#include "sequence/alphabet.h"
#include "session/session.h"
#include "subwords/word_record.h"

namespace tessarin {

// Starts a subword report: prints `start_line` and the sequence's file name on the main window.
// A sequence of fewer than 2 symbols is not analysed (answers false, no log). Otherwise names the
// log after the sequence (base name + `log_suffix`), writes the header under `log_title` and the
// sequence summary, which rebuilds the alphabet, and answers true.
bool StartSubwordReport(Session& session, const std::string& start_line, const std::string& log_suffix,
                        const std::string& log_title);

// Every word of the coded current sequence that occurs at least twice, lengths 1..max_length,
// searched with the progress display; after a cancel (session.Aborted()) the list is partial.
WordList FindWordsOfSequence(Session& session, const CodedSequence& coded, int max_length);

// Calls `write_word` for words 1..W in list order with the "Writing..." progress display; a cancel
// ends the walk with the log line "User Abort".
void WriteWordLines(Session& session, const WordList& words, const std::function<void(const WordRecord&)>& write_word);

// "Subword Length l =" with the length as a report number.
std::string LengthHeading(int length);

// "Positions:" followed by each occurrence's position as a report number and a comma.
std::string PositionsLine(const WordRecord& word);

}  // namespace tessarin
