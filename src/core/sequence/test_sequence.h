#pragma once

#include <string>

#include "session/command.h"

namespace tessarin {

inline constexpr int kTestSequenceLength = 40000;
inline constexpr const char* kTestSequenceFileName = "test.txt";  // in the program's folder

// A random text of `length` symbols drawn uniformly from "ABCD" with the session's generator.
std::string RandomTestSequence(Session& session, int length);

// "Create Test Sequence": writes 40000 random symbols over ABCD as one line to "test.txt" in
// the program's folder, replacing any earlier file.
Outcome CreateTestSequence(Session& session);

}  // namespace tessarin
