#include "surrogate/surrogate_options.h"

namespace tessarin {

Preserve PreserveFromOptions(int options) {
    if ((options & kPreserveTriples) != 0) return Preserve::kTriples;
    if ((options & kPreservePairs) != 0) return Preserve::kPairs;
    return Preserve::kSymbols;
}

std::string PreservationLine(Preserve preserve) {
    switch (preserve) {
        case Preserve::kTriples:
            return "Preserve: Triples, Pairs and Symbols";
        case Preserve::kPairs:
            return "Preserve: Pairs and Symbols";
        case Preserve::kSymbols:
            break;
    }
    return "Preserve: Only Symbols";
}

}  // namespace tessarin
