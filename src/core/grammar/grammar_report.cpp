#include "grammar/grammar_report.h"

#include <string>

#include "grammar/rule_text.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"

namespace tessarin {

// K_G is a single-precision value: the lines show it as stored.
std::string PassLine(std::size_t pass, std::int64_t size) {
    return "Pass" + IntegerText(static_cast<long long>(pass)) +
           ": Rule Length =" + SingleText(static_cast<float>(size));
}

void ReportGrammar(Session& session, const GrammarResult& result, Method method, const Alphabet& alphabet) {
    WriteLogLine(session, "");
    WriteLogLine(session, std::string(MethodLine(method)));
    WriteLogLine(session, "");
    const auto complexity = static_cast<float>(result.complexity);
    WriteLogLine(session, "Grammatical Complexity =" + IntegerText(static_cast<long long>(complexity)));
    WriteLogLine(session, "");
    WriteLogLine(session, "Grammar Rules Found:");
    for (std::size_t r = 0; r < result.rules.size(); ++r)
        WriteLogLine(session,
                     "Rule" + IntegerText(static_cast<long long>(r)) + ": " + RuleLine(result.rules[r], alphabet));
}

}  // namespace tessarin
