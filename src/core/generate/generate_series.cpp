#include "generate/generate_series.h"

#include <cmath>
#include <string>

namespace tessarin {
namespace {

// Progress is reported once per this many values: the caption changes at most every 0.1 s anyway.
constexpr int kProgressStride = 4096;

// One value per call. Map states are single values; each step is computed in double from them
// and stored back in single precision.
class SignalGenerator {
  public:
    SignalGenerator(const GenerateParams& params, RandomGenerator& random, GaussianState& gaussian)
        : code_(SourceCode(params.source, params.coordinate)),
          r_(params.logistic_r),
          n_(params.bernoulli_n),
          p_(params.bernoulli_p),
          random_(random),
          gaussian_(gaussian) {
        // The start states are drawn in this order, each once per run.
        if (code_ == 3) {
            x_ = Uniform();
        } else if (code_ == 4 || code_ == 5) {
            x_ = static_cast<float>(2 * random_.Next() - 1);
            y_ = static_cast<float>(2 * random_.Next() - 1);
        } else if (code_ >= 6 && code_ <= 8) {
            x_ = static_cast<float>(60 * random_.Next() - 30);
            y_ = static_cast<float>(80 * random_.Next() - 40);
            z_ = static_cast<float>(50 * random_.Next());
        } else if (code_ == 9 && params.sine_period != 0) {
            w_ = 8 * std::atan(1.0) / params.sine_period;
        }
    }

    // Value i (1-based).
    float Value(int i) {
        switch (code_) {
            case 0:
                return Uniform();
            case 1:
                return static_cast<float>(-std::log(1 - random_.Next()));
            case 2:
                return GaussianValue(random_, gaussian_);
            case 3:
                x_ = static_cast<float>(static_cast<double>(r_) * x_ * (1.0 - x_));
                return x_;
            case 4:
            case 5:
                HenonStep();
                return code_ == 4 ? x_ : y_;
            case 6:
            case 7:
            case 8:
                LorenzStep();
                return code_ == 6 ? x_ : (code_ == 7 ? y_ : z_);
            case 9:
                return static_cast<float>(std::sin(w_ * (i - 1)));
            default:
                return BernoulliCount();
        }
    }

  private:
    float Uniform() { return static_cast<float>(random_.Next()); }

    // The new x uses the old x and y; the new y is the old x.
    void HenonStep() {
        const float x = static_cast<float>(1.0 - 1.4 * x_ * x_ + 0.3 * y_);
        y_ = x_;
        x_ = x;
    }

    // One Euler step of dt = 0.01 with s = 10, r = 28, b = 8/3; every increment from the old state.
    void LorenzStep() {
        constexpr double kDt = 0.01;
        const double x = x_;
        const double y = y_;
        const double z = z_;
        const double dx = kDt * 10 * (y - x);
        const double dy = ((28 - z) * x - y) * kDt;
        const double dz = (x * y - z * 8 / 3) * kDt;
        x_ = static_cast<float>(x + dx);
        y_ = static_cast<float>(y + dy);
        z_ = static_cast<float>(z + dz);
    }

    float BernoulliCount() {
        int successes = 0;
        for (int t = 1; t <= n_; ++t) {
            if (random_.Next() < p_) ++successes;
        }
        return static_cast<float>(successes);
    }

    int code_;
    float r_;
    int n_;
    double p_;
    RandomGenerator& random_;
    GaussianState& gaussian_;
    float x_ = 0;
    float y_ = 0;
    float z_ = 0;
    double w_ = 0;
};

}  // namespace

std::optional<NumberSeries> GenerateSeries(const GenerateParams& params, RandomGenerator& random,
                                           GaussianState& gaussian, const ProgressFn& progress) {
    SignalGenerator generator(params, random, gaussian);
    NumberSeries series;
    series.values.resize(static_cast<std::size_t>(params.length));
    StatisticsAccumulator statistics;
    const double length = params.length;
    for (int i = 1; i <= params.length; ++i) {
        if ((i - 1) % kProgressStride == 0 && progress("Generating..", static_cast<float>((i - 1) / length))) {
            return std::nullopt;
        }
        const float value = generator.Value(i);
        if (!std::isfinite(value)) {
            progress("", 1);
            throw SeriesOverflowError("Overflow: the " + SourceFileWord(params.source) +
                                      " series leaves the range of single-precision numbers at value " +
                                      std::to_string(i));
        }
        series.values[static_cast<std::size_t>(i - 1)] = value;
        statistics.Add(value);
    }
    progress("", 1);
    series.statistics = statistics.Result();
    return series;
}

}  // namespace tessarin
