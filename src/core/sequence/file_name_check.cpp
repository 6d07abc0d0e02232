#include "sequence/file_name_check.h"

#include "sequence/sequence_file.h"

namespace tessarin {

std::optional<std::string> FileNameRefusal(const std::string& name, const FileNameRules& rules) {
    if (name.find_first_not_of(' ') == std::string::npos) return "No valid filename.";
    if (rules.refuse_spaces && name.find(' ') != std::string::npos) return "Please don't use filenames with spaces.";
    if (rules.max_base_length > 0 && static_cast<int>(FileBaseName(name).size()) > rules.max_base_length) {
        return "Please don't use filenames with more than " + std::to_string(rules.max_base_length) + " characters.";
    }
    return std::nullopt;
}

}  // namespace tessarin
