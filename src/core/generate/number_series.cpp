#include "generate/number_series.h"

#include "common/safe_sqrt.h"

namespace tessarin {

SeriesStatistics StatisticsAccumulator::Result() const {
    SeriesStatistics statistics;
    statistics.count = count_;
    statistics.minimum = minimum_;
    statistics.maximum = maximum_;
    if (count_ == 0) return statistics;
    statistics.mean = sum_ / count_;
    statistics.deviation = SafeSqrt(sum_of_squares_ / count_ - statistics.mean * statistics.mean);
    return statistics;
}

}  // namespace tessarin
