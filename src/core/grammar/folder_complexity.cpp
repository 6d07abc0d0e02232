#include "grammar/folder_complexity.h"

#include <algorithm>

#include "common/safe_sqrt.h"
#include "grammar/grammar_complexity.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "session/clock.h"

namespace tessarin {
namespace {

std::string Extension(const std::string& name) {
    const std::size_t dot = name.find('.');
    return dot == std::string::npos ? "" : name.substr(dot + 1);
}

bool Matches(const std::string& name, const std::string& extension) {
    if (extension.empty()) return name.find('.') == std::string::npos;
    const std::string ending = "." + extension;
    return name.size() >= ending.size() && name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
}

void StartStatisticsLog(Session& session, const std::string& folder) {
    session.log() = LogTarget{"Statistics.log", folder};
    OpenLogFile(session, 0);
    WriteLogLine(session, kVersionLine);
    WriteLogLine(session, "Complexity of Sequences in " + folder);
    WriteLogLine(session, "Analysis Done on " + DateTimeText());
    WriteLogLine(session, "");
    Host& host = session.host();
    host.ClearMainWindow();
    host.PrintMainLine(kVersionLine);
    host.PrintMainLine("Complexity of Sequences in " + folder);
    host.PrintMainLine("");
}

}  // namespace

std::vector<std::string> FolderFiles(const std::string& folder, const std::string& extension) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.empty() ? "." : folder)) {
        const std::string name = entry.path().filename().string();
        if (entry.is_regular_file() && Matches(name, extension)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

Outcome RunFolderComplexity(Session& session, Method method, const std::filesystem::path& chosen) {
    CurrentSequence& sequence = session.sequence();
    std::string folder = chosen.parent_path().string();
    if (!folder.empty() && folder.back() != '/') folder += '/';
    sequence.folder = folder;
    const std::vector<std::string> names = FolderFiles(folder, Extension(chosen.filename().string()));
    StartStatisticsLog(session, folder);

    // Sums in double; the average is stored in single precision and the spread derived from it.
    double sum = 0;
    double sum_of_squares = 0;
    int counted = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        sequence.file_name = names[i];
        sequence.text = ReadTextFile(folder, names[i]);
        if (sequence.text.empty()) continue;
        const std::optional<float> complexity = CurrentSequenceComplexity(session, method, false);
        if (!complexity || session.Aborted()) break;
        sum += *complexity;
        sum_of_squares += static_cast<double>(*complexity) * *complexity;
        ++counted;
        PrintLine(session,
                  IntegerText(static_cast<long long>(i + 1)) + ". " + names[i] + "\t K =" + SingleText(*complexity));
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
    ShowLogFile(session);
    return aborted ? Outcome::kCancelled : Outcome::kCompleted;
}

}  // namespace tessarin
