#include "generate/sort_with_progress.h"

#include <algorithm>
#include <cstddef>

namespace tessarin {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

}  // namespace

bool SortWithProgress(std::vector<float>& values, const ProgressFn& progress) {
    const std::size_t n = values.size();
    const std::size_t blocks = (n + kBlockSize - 1) / kBlockSize;
    int merge_passes = 0;
    for (std::size_t width = kBlockSize; width < n; width *= 2)
        ++merge_passes;
    // Every pass, the block sorts included, moves all n values once.
    const double total = static_cast<double>(n) * (1 + merge_passes);
    double done = 0;
    const auto report = [&] { return progress("Sorting..", static_cast<float>(done / total)); };

    for (std::size_t b = 0; b < blocks; ++b) {
        if (report()) return false;
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(b * kBlockSize);
        const auto last = values.begin() + static_cast<std::ptrdiff_t>(std::min(n, (b + 1) * kBlockSize));
        std::sort(first, last);
        done += static_cast<double>(last - first);
    }
    std::vector<float> merged(n);
    for (std::size_t width = kBlockSize; width < n; width *= 2) {
        for (std::size_t start = 0; start < n; start += 2 * width) {
            if (report()) return false;
            const std::size_t middle = std::min(n, start + width);
            const std::size_t end = std::min(n, start + 2 * width);
            std::merge(values.begin() + static_cast<std::ptrdiff_t>(start),
                       values.begin() + static_cast<std::ptrdiff_t>(middle),
                       values.begin() + static_cast<std::ptrdiff_t>(middle),
                       values.begin() + static_cast<std::ptrdiff_t>(end),
                       merged.begin() + static_cast<std::ptrdiff_t>(start));
            done += static_cast<double>(end - start);
        }
        values.swap(merged);
    }
    progress("", 1);
    return true;
}

}  // namespace tessarin
