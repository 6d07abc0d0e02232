#pragma once

#include <vector>

namespace tessarin {

// Count, mean and root-mean-square deviation of a series (the sums behind them in double), and
// its minimum and maximum as stored single values.
struct SeriesStatistics {
    int count = 0;
    double mean = 0;
    double deviation = 0;
    float minimum = 1e38F;
    float maximum = -1e38F;
};

// A real-valued series, generated or read from a file, with its statistics.
struct NumberSeries {
    std::vector<float> values;
    SeriesStatistics statistics;
};

// Gathers the statistics value by value, as the series is built.
class StatisticsAccumulator {
  public:
    void Add(float value) {
        ++count_;
        sum_ += value;
        sum_of_squares_ += static_cast<double>(value) * value;
        if (value < minimum_) minimum_ = value;
        if (value > maximum_) maximum_ = value;
    }

    // Count, mean, deviation, minimum and maximum of the values added so far.
    SeriesStatistics Result() const;

  private:
    int count_ = 0;
    double sum_ = 0;
    double sum_of_squares_ = 0;
    float minimum_ = 1e38F;
    float maximum_ = -1e38F;
};

}  // namespace tessarin
