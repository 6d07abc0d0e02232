#include "distance/current_text.h"

#include <optional>

#include "grammar/grammar_complexity.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"

namespace tessarin {

void SetCurrentText(Session& session, const std::string& text) {
    session.sequence().text = text;
    session.sequence().alphabet = BuildAlphabet(text);
}

float MeasureAsCurrentText(Session& session, const std::string& text) {
    SetCurrentText(session, text);
    const std::string caption_start = FileBaseName(session.sequence().file_name);
    const ProgressFn progress = [&session, &caption_start](const std::string& caption, float fraction) {
        return session.Busy(caption_start + caption, fraction);
    };
    // A cancelled computation counts as 0: the callers go on with it and say "User Abort" later.
    return GrammarComplexityOfText(text, Method::kNvogram, progress).value_or(0.0F);
}

}  // namespace tessarin
