#include "grammar/folder_complexity.h"

#include "common/safe_sqrt.h"
#include "grammar/grammar_complexity.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/folder_sequences.h"
#include "session/clock.h"

namespace tessarin {
namespace {

void StartStatisticsLog(Session& session, const FolderSequences& set) {
    session.log() = LogTarget{"Statistics.log", set.folder()};
    OpenLogFile(session, 0);
    WriteLogLine(session, kVersionLine);
    WriteLogLine(session, "Complexity of Sequences in " + set.Source());
    WriteLogLine(session, "Analysis Done on " + DateTimeText());
    WriteLogLine(session, "");
    Host& host = session.host();
    host.ClearMainWindow();
    host.PrintMainLine(kVersionLine);
    host.PrintMainLine("Complexity of Sequences in " + set.Source());
    host.PrintMainLine("");
}

}  // namespace

Outcome RunFolderComplexity(Session& session, Method method, const std::filesystem::path& chosen,
                            const TableOutput& table) {
    CurrentSequence& sequence = session.sequence();
    const FolderSequences set(chosen, sequence.reading);
    sequence.folder = set.folder();
    const std::vector<std::string>& names = set.names();
    StartStatisticsLog(session, set);
    TsvTable files({"index", "name", "length", "K"}, table.file);

    // Sums in double; the average is stored in single precision and the spread derived from it.
    double sum = 0;
    double sum_of_squares = 0;
    int counted = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        set.NameCurrent(sequence, i);
        sequence.text = set.Text(i);
        if (sequence.text.empty()) continue;
        const std::optional<float> complexity = CurrentSequenceComplexity(session, method, false);
        if (!complexity || session.Aborted()) break;
        sum += *complexity;
        sum_of_squares += static_cast<double>(*complexity) * *complexity;
        ++counted;
        PrintLine(session,
                  IntegerText(static_cast<long long>(i + 1)) + ". " + names[i] + "\t K =" + SingleText(*complexity));
        files.Cell(i + 1).Cell(names[i]).Cell(sequence.text.size()).Cell(*complexity).EndRow();
    }
    float average = 0;
    float spread = 0;
    if (counted > 0) {
        average = static_cast<float>(sum / counted);
        spread = static_cast<float>(SafeSqrt(sum_of_squares / counted - static_cast<double>(average) * average));
    }
    PrintLine(session, "");
    PrintLine(session, "Average Complexity =" + SingleText(average));
    PrintLine(session, "Root Mean Square =" + SingleText(spread));
    const bool aborted = session.Aborted();
    if (aborted) session.host().PrintMainLine("User Abort");
    if (!aborted) files.Finish();
    ShowLogFile(session);
    return aborted ? Outcome::kCancelled : Outcome::kCompleted;
}

}  // namespace tessarin
