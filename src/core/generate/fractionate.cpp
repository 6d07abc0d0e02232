#include "generate/fractionate.h"

#include <cmath>

#include "common/trim.h"
#include "generate/leading_number.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"

namespace tessarin {
namespace {

// The refusal of one fraction of a text of `length` symbols, or an empty text.
std::string FractionRefusal(double first, double last, int length) {
    if (first < 1 || last < 1) return "Position <= 0";
    if (first > length || last > length) return "Position >" + IntegerText(length);
    if (first > last) return "Position 1 > Position 2";
    return "";
}

}  // namespace

std::string FractionateTitle(const std::string& sequence_file_name) {
    return "Fractionate: " + sequence_file_name;
}

std::string ProposedFractions(int length) {
    return "1 - " + std::to_string(length);
}

CheckedAnswer<std::vector<Fraction>> ParseFractions(const std::string& answer, int length) {
    std::vector<Fraction> fractions;
    for (std::size_t start = 0; start <= answer.size();) {
        std::size_t end = answer.find(',', start);
        if (end == std::string::npos) end = answer.size();
        const std::string item = Trim(std::string_view(answer).substr(start, end - start));
        start = end + 1;
        if (item.empty()) continue;
        const std::size_t minus = item.find('-');
        if (minus == std::string::npos) return {std::nullopt, "Missing Minus Sign"};
        // Rounded half to even, but kept in double so that huge positions are compared, not cast.
        const double first = std::nearbyint(LeadingNumber(std::string_view(item).substr(0, minus)));
        const double last = std::nearbyint(LeadingNumber(std::string_view(item).substr(minus + 1)));
        std::string refusal = FractionRefusal(first, last, length);
        if (!refusal.empty()) return {std::nullopt, std::move(refusal)};
        fractions.push_back({static_cast<int>(first), static_cast<int>(last)});
    }
    return {std::move(fractions), ""};
}

std::optional<std::vector<Fraction>> AskFractions(Host& host, const std::string& sequence_file_name, int length) {
    for (;;) {
        const auto answer =
            host.AskInput(kFractionatePrompt, FractionateTitle(sequence_file_name), ProposedFractions(length));
        if (!answer || answer->empty()) return std::nullopt;
        CheckedAnswer<std::vector<Fraction>> checked = ParseFractions(*answer, length);
        if (checked.value) return checked.value;
        host.ShowMessage(checked.refusal, kMessageTitle);
    }
}

Outcome RunFractionate(Session& session, const FractionateParams& params) {
    const double start_time = session.Now();
    const int length = LoadInputSequence(session, params.input);
    if (length == 0) return Outcome::kRefused;
    Host& host = session.host();
    PrintEditStart(session, "Fractionate Sequence");
    host.PrintMainLine("Length =" + IntegerText(length));
    host.PrintMainLine("");

    for (const Fraction& fraction : params.fractions) {
        const std::string refusal = FractionRefusal(fraction.first, fraction.last, length);
        if (!refusal.empty()) throw SequenceEditError(refusal);
    }
    const std::string& text = session.sequence().text;
    std::string content;
    long long new_length = 0;
    for (std::size_t i = 0; i < params.fractions.size(); ++i) {
        const Fraction& fraction = params.fractions[i];
        const int fraction_length = fraction.last - fraction.first + 1;
        host.PrintMainLine(std::to_string(i + 1) + ".Fraction:" + IntegerText(fraction.first) + " to " +
                           IntegerText(fraction.last) + ", length =" + IntegerText(fraction_length));
        new_length += fraction_length;
        content.append(text, static_cast<std::size_t>(fraction.first) - 1, static_cast<std::size_t>(fraction_length))
            .append("\r\n");
    }
    host.PrintMainLine("New Length =" + IntegerText(new_length));
    WriteEditFile(params.output_path, content);
    host.ShowFile(params.output_path);
    session.FinalNote(start_time);
    return Outcome::kCompleted;
}

}  // namespace tessarin
