#include "generate/signal_source.h"

namespace tessarin {

int CoordinateCount(SignalSource source) {
    switch (source) {
        case SignalSource::kHenonMap:
            return 2;
        case SignalSource::kLorenzSystem:
            return 3;
        default:
            return 1;
    }
}

int SourceCode(SignalSource source, int coordinate) {
    switch (source) {
        case SignalSource::kWhiteNoise:
            return 0;
        case SignalSource::kExponentialNoise:
            return 1;
        case SignalSource::kGaussianNoise:
            return 2;
        case SignalSource::kLogisticMap:
            return 3;
        case SignalSource::kHenonMap:
            return 4 + coordinate;
        case SignalSource::kLorenzSystem:
            return 6 + coordinate;
        case SignalSource::kSineWave:
            return 9;
        case SignalSource::kBernoulli:
            return 10;
    }
    return 0;
}

std::string SourceFileWord(SignalSource source) {
    static constexpr const char* kWords[kSignalSourceCount] = {
        "White", "Exponent", "Gaussian", "Logistic", "Henon", "Lorenz", "Sinewave", "Bernoulli",
    };
    return kWords[static_cast<int>(source)];
}

}  // namespace tessarin
