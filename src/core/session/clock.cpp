#include "session/clock.h"

#include <chrono>
#include <ctime>

namespace tessarin {
namespace {

std::tm LocalNow(double* fraction_of_second) {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    if (fraction_of_second != nullptr) {
        const auto since_second = now - std::chrono::system_clock::from_time_t(seconds);
        *fraction_of_second = std::chrono::duration<double>(since_second).count();
    }
    std::tm local{};
    localtime_r(&seconds, &local);
    return local;
}

}  // namespace

double SecondsSinceMidnight() {
    double fraction = 0;
    const std::tm local = LocalNow(&fraction);
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + fraction;
}

std::string DateTimeText() {
    const std::tm local = LocalNow(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return text;
}

}  // namespace tessarin
