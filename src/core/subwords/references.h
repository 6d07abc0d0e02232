#pragma once

#include <string>
#include <vector>

#include "session/command.h"
#include "subwords/subword_command.h"

namespace tessarin {

// The background references: the literature behind each analysis and the definitions of the
// signal generators, in blocks of a heading and its underline, an empty line before each.
std::vector<std::string> ReferenceLines();

// Writes `lines` to "Reference.txt" in the program's folder, rewritten from the start each time.
void ReportReferences(Session& session, const std::vector<std::string>& lines);

// The Help menu's references command: writes the text and shows it. It reads no sequence.
Outcome RunReferences(Session& session, const SubwordParams& params);

}  // namespace tessarin
