#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "support/temp_folder.h"

namespace tessarin::testing {

struct ProgramResult {
    int status = -1;
    std::string out;
    std::string err;
};

// Runs a shell command line with stdin closed and captures stdout, stderr and the exit status.
inline ProgramResult RunProgram(const std::string& command_line) {
    TempFolder capture;
    const std::string shell = command_line + " </dev/null >" + capture.Path("out") + " 2>" + capture.Path("err");
    const int raw = std::system(shell.c_str());
    ProgramResult result;
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    result.out = capture.Read("out");
    result.err = capture.Read("err");
    return result;
}

// A word quoted for the shell.
inline std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word)
        quoted += (c == '\'') ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace tessarin::testing
