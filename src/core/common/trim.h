#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// `text` without the leading and trailing characters that occur in `blanks`.
inline std::string Trim(std::string_view text, std::string_view blanks = " ") {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

}  // namespace tessarin
