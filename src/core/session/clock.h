#pragma once

#include <string>

namespace tessarin {

// Seconds since local midnight, with sub-second resolution; used for timing runs and seeding.
double SecondsSinceMidnight();

// The current local date and time as "YYYY-MM-DD HH:MM:SS", for report headers.
std::string DateTimeText();

}  // namespace tessarin
