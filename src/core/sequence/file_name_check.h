#pragma once

#include <optional>
#include <string>

namespace tessarin {

// What a file dialog's caller accepts as the name of a file it will write.
struct FileNameRules {
    bool refuse_spaces = true;
    int max_base_length = 0;  // longest name up to its first "."; 0 = no limit
};

// The message refusing a chosen file name, or nothing when the name is acceptable.
std::optional<std::string> FileNameRefusal(const std::string& name, const FileNameRules& rules);

}  // namespace tessarin
