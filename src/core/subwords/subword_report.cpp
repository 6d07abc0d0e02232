#include "subwords/subword_report.h"

#include <charconv>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "subwords/progress_meter.h"

namespace tessarin {

bool StartSubwordReport(Session& session, const std::string& start_line, const std::string& log_suffix,
                        const std::string& log_title) {
    const CurrentSequence& sequence = session.sequence();
    Host& host = session.host();
    host.ClearMainWindow();
    host.PrintMainLine(start_line);
    host.PrintMainLine("Sequence " + sequence.Name());
    if (sequence.text.size() < 2) return false;
    StartReportLog(session, FileBaseName(sequence.file_name) + log_suffix, log_title);
    SetAlphabetAndReport(session);
    return true;
}

FindWordsParams SearchOfCurrentSequence(Session& session, int max_length, bool positions) {
    return FindWordsParams{max_length, positions, FileBaseName(session.sequence().file_name)};
}

void ReportGroups(Session& session, SubwordSearch& search, ReportWriter& writer,
                  const std::function<bool(const SubwordGroup&)>& report_group) {
    while (const SubwordGroup* group = search.NextGroup()) {
        if (!report_group(*group)) break;
    }
    if (session.Aborted()) writer.Line("User Abort");
}

bool WriteWithProgress(Session& session, std::size_t count, const std::function<void(std::size_t index)>& write) {
    const ProgressFn progress = session.Progress();
    ProgressMeter meter(progress, "Writing...", static_cast<double>(count));
    if (meter.Start()) return false;
    for (std::size_t i = 0; i < count; ++i) {
        write(i);
        if (meter.Advance(1)) return false;
    }
    session.Busy("", 1);
    return true;
}

std::string LengthHeading(int length) {
    return "Subword Length l =" + IntegerText(length);
}

std::string PositionsLine(std::span<const Occurrence> occurrences) {
    std::string line = "Positions:";
    for (const Occurrence& occurrence : occurrences)
        line.append(IntegerText(occurrence.position)).push_back(',');
    return line;
}

std::string PositionsCell(std::span<const Occurrence> occurrences) {
    std::string cell;
    char buffer[16];
    for (const Occurrence& occurrence : occurrences) {
        if (!cell.empty()) cell.push_back(',');
        cell.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, occurrence.position).ptr);
    }
    return cell;
}

std::optional<TsvTable> StartTable(const TableOutput& output, const std::vector<std::string>& columns) {
    if (!output.Wanted()) return std::nullopt;
    return std::optional<TsvTable>(std::in_place, columns, output.file);
}

void FinishTable(const Session& session, std::optional<TsvTable>& table) {
    if (table && !session.Aborted()) table->Finish();
}

}  // namespace tessarin
