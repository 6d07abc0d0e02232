#include "distance/algorithmic_distance.h"

#include <cstdio>
#include <filesystem>

#include "distance/current_text.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "session/clock.h"

namespace tessarin {
namespace {

// Names the report's log and claims its file. The log lies beside the program's folder, not in it,
// on purpose: the folder's own name and the log's name are joined with nothing between (a program
// in /opt/tool reports to /opt/tooldistance.log), the one place where this join is made.
void SelectDistanceLog(Session& session) {
    const std::filesystem::path& program = session.program_folder();
    const std::filesystem::path beside = program.has_relative_path() ? program.parent_path() : program;
    const std::string lead = program.has_relative_path() ? program.filename().string() : "";
    session.log() = LogTarget{ClaimFreeLogName(beside, "distance.log", lead), beside};
}

void WriteOperandHeader(Session& session, const std::string& label, const DistanceOperand& operand) {
    WriteLogLine(session, label + (operand.folder / operand.name).string());
    WriteLogLine(session, "Length =" + IntegerText(static_cast<long long>(operand.text.size())) + " symbols");
    WriteLogLine(session, "");
}

// Steps through the four complexities and the values derived from them, stopping early when the
// user has cancelled after K(x) or after K(y); a cancel during K(xy) or K(yx) lets the remaining
// values be derived from what those computations returned.
void ReportDistance(Session& session, const DistanceOperand& x, const DistanceOperand& y) {
    CurrentSequence& sequence = session.sequence();
    sequence.record.clear();  // the operands' names carry their records
    sequence.file_name = x.name;
    const float kx = MeasureAsCurrentText(session, x.text);
    PrintLine(session, "Sequence 1: Grammatical Complexity K(x) =" + SingleText(kx));
    if (session.Aborted()) return;

    sequence.file_name = y.name;
    const float ky = MeasureAsCurrentText(session, y.text);
    PrintLine(session, "Sequence 2: Grammatical Complexity K(y) =" + SingleText(ky));
    if (session.Aborted()) return;

    sequence.file_name = "Both";
    const float kxy = MeasureAsCurrentText(session, x.text + y.text);
    PrintLine(session, "Sequence 1+2: Grammatical Complexity K(xy) =" + SingleText(kxy));
    PrintLine(session, "Sequence 1+2: Conditional Complexity K(y|x) = K(xy) - K(x) =" +
                           SingleText(static_cast<float>(static_cast<double>(kxy) - kx)));

    const float kyx = MeasureAsCurrentText(session, y.text + x.text);
    PrintLine(session, "Sequence 2+1: Grammatical Complexity K(yx) =" + SingleText(kyx));
    PrintLine(session, "Sequence 2+1: Conditional Complexity K(x|y) = K(yx) - K(y) =" +
                           SingleText(static_cast<float>(static_cast<double>(kyx) - ky)));

    const auto distance = static_cast<float>(static_cast<double>(kyx) + kxy - kx - ky);
    PrintLine(session, "Algorithmic Distance D(x,y) = K(x|y) + K(y|x) =" + SingleText(distance));

    const auto both = static_cast<float>(static_cast<double>(kyx) + kxy);
    if (both > 0) {
        // 2 - 2 (K(y) + K(x)) / T rather than 2 D / T: the form whose rounding the reports show.
        const auto relative = static_cast<float>(2.0 - 2.0 * (static_cast<double>(ky) + kx) / both);
        // The blank closing the label stands before the number's own: two blanks before a value >= 0.
        PrintLine(session, "Relative Distance d(x,y) = 2 * D(x,y)/(K(xy) + K(yx)) = " + SingleText(relative));
        const auto similarity = static_cast<float>((1.0 - relative) * 100.0);
        PrintLine(session, "Similarity Factor 100 * (1 - d(x,y)) =" + SingleText(similarity) + " %");
    }
    sequence.file_name = y.name;
}

}  // namespace

void AlgorithmicDistance(Session& session, const DistanceOperand& x, const DistanceOperand& y) {
    SelectDistanceLog(session);
    WriteLogLine(session, kVersionLine);
    WriteLogLine(session, "Algorithmic Distance  - " + DateTimeText());
    WriteLogLine(session, "");
    WriteOperandHeader(session, "Sequence 1 ", x);
    WriteOperandHeader(session, "Sequence 2 ", y);
    session.host().PrintMainLine("Compute Algorithmic Distance  - Press any key to cancel");
    session.host().PrintMainLine("");
    ReportDistance(session, x, y);
    if (session.Aborted()) PrintLine(session, "User Abort");
    ShowLogFile(session);
}

Outcome RunAlgorithmicDistance(Session& session, const DistanceParams& params) {
    const CurrentSequence& sequence = session.sequence();
    LoadInputSequence(session, params.first);
    const DistanceOperand x{sequence.text, sequence.folder, sequence.Name()};
    LoadInputSequence(session, params.second);
    const DistanceOperand y{sequence.text, sequence.folder, sequence.Name()};
    const double start_time = session.Now();
    AlgorithmicDistance(session, x, y);
    const bool aborted = session.Aborted();
    session.FinalNote(start_time);
    return aborted ? Outcome::kCancelled : Outcome::kCompleted;
}

}  // namespace tessarin
