#include "cli/arguments.h"

#include <charconv>

namespace tessarin {

std::optional<std::string> Arguments::Option(const std::string& name) const {
    const auto found = options.find(name);
    if (found == options.end()) return std::nullopt;
    return found->second;
}

long long ParseInteger(const std::string& option, const std::string& text) {
    long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw UsageError(option + " takes a whole number, not '" + text + "'");
    }
    return value;
}

Arguments ParseArguments(const std::vector<std::string>& words, const std::set<std::string>& valued_options) {
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        auto value = [&]() -> const std::string& {
            if (i + 1 >= words.size()) throw UsageError(word + " needs a value");
            return words[++i];
        };
        if (word == "--help" || word == "-h") {
            arguments.help = true;
        } else if (word == "--seed") {
            const long long seed = ParseInteger(word, value());
            if (seed < 0) throw UsageError("--seed takes a whole number from 0 up");
            arguments.seed = static_cast<std::uint64_t>(seed);
        } else if (word == "--program-dir") {
            arguments.program_dir = value();
        } else if (word.rfind("--", 0) == 0) {
            if (valued_options.count(word) != 0) {
                arguments.options[word] = value();
            } else {
                arguments.flags.insert(word);
            }
        } else if (arguments.command.empty()) {
            arguments.command = word;
        } else {
            arguments.files.push_back(word);
        }
    }
    return arguments;
}

}  // namespace tessarin
