#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "logfile/tsv_table.h"
#include "session/session.h"
#include "subwords/report_writer.h"
#include "subwords/subword_group.h"
#include "subwords/subword_search.h"

namespace tessarin {

// Starts a subword report: prints `start_line` and the sequence's file name on the main window.
// A sequence of fewer than 2 symbols is not analysed (answers false, no log). Otherwise names the
// log after the sequence (base name + `log_suffix`), writes the header under `log_title` and the
// sequence summary, which sets the alphabet, and answers true.
bool StartSubwordReport(Session& session, const std::string& start_line, const std::string& log_suffix,
                        const std::string& log_title);

// The search over the current sequence's coded text, named after it in the progress texts.
FindWordsParams SearchOfCurrentSequence(Session& session, int max_length, bool positions);

// Takes the groups from `search` one after the other and hands each to `report_group`, which
// answers false when the user cancelled while it wrote. A report cut short by a cancel, in the
// search or in the writing, ends with the log line "User Abort".
void ReportGroups(Session& session, SubwordSearch& search, ReportWriter& writer,
                  const std::function<bool(const SubwordGroup&)>& report_group);

// Calls `write` for indices 0..count - 1 with the "Writing..." progress display; answers false
// when the user cancelled, which stops the calls.
bool WriteWithProgress(Session& session, std::size_t count, const std::function<void(std::size_t index)>& write);

// "Subword Length l =" with the length as a report number.
std::string LengthHeading(int length);

// "Positions:" followed by each occurrence's position as a report number and a comma.
std::string PositionsLine(std::span<const Occurrence> occurrences);
// The positions line of a word whose occurrences were kept.
inline std::string PositionsLine(const Subword& word) {
    return PositionsLine(word.occurrences);
}

// The positions as one table cell: "1,5,9".
std::string PositionsCell(std::span<const Occurrence> occurrences);

// A report's table with `columns`, when `output` asks for one.
std::optional<TsvTable> StartTable(const TableOutput& output, const std::vector<std::string>& columns);
// Finishes the table unless the user cancelled the report: a table is whole or absent.
void FinishTable(const Session& session, std::optional<TsvTable>& table);

}  // namespace tessarin
