#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "support/run_program.h"

namespace tessarin::testing {

// A file of the test data (tests/data/<subfolder>/<name>), as bytes.
inline std::string ReadTestData(const std::string& subfolder, const std::string& name) {
    std::ifstream file(std::string(TESSARIN_TEST_DATA) + "/" + subfolder + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Runs the built command-line program with a fresh program folder, on sequence files of the test
// data copied into a fresh data folder, where their reports are written.
class CliTest : public ::testing::Test {
  protected:
    explicit CliTest(std::string data_subfolder = "") : data_subfolder_(std::move(data_subfolder)) {}

    ProgramResult Cli(const std::string& arguments) const {
        return RunProgram(std::string(TESSARIN_CLI) + " --program-dir " + Quoted(program_.Folder()) + " " + arguments);
    }
    std::string ReadData(const std::string& name) const { return ReadTestData(data_subfolder_, name); }
    // Copies a sequence file of the test data into the data folder; answers its quoted path.
    std::string Sequence(const std::string& name) const {
        data_.Write(name, ReadData(name));
        return Quoted(data_.Path(name));
    }
    // A report or output with the data folder, the date and time and the seconds needed replaced
    // by the placeholders of the expected files.
    std::string Masked(std::string text) const {
        const std::string folder = data_.Folder();
        for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
            text.replace(at, folder.size(), "{FOLDER}");
        text = std::regex_replace(text, std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"), "{DATE}");
        return std::regex_replace(text, std::regex("Time needed = [0-9.]+ sec"), "Time needed = {SECONDS} sec");
    }

    TempFolder program_;
    TempFolder data_;

  private:
    std::string data_subfolder_;
};

}  // namespace tessarin::testing
