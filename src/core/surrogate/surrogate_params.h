#pragma once

#include <filesystem>

#include "grammar/method.h"
#include "logfile/tsv_table.h"
#include "surrogate/surrogate_options.h"

namespace tessarin {

// What the surrogate runs need, chosen by the front ends before a run.
struct SurrogateParams {
    std::filesystem::path input;
    int count = 100;  // surrogates to make
    Preserve preserve = Preserve::kSymbols;
    bool uniform = false;              // every arrangement that keeps the counts equally likely
    bool entropy = false;              // ensemble run: compare subword entropies
    bool exceptional = false;          // ensemble run: compare the frequencies of repeated words
    int max_length = 0;                // longest word of the entropies and the word list
    Method method = Method::kNvogram;  // grammar method of the complexities
    TableOutput table;                 // ensemble run: each surrogate's figures as a table, besides the log
};

}  // namespace tessarin
