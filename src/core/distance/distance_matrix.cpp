#include "distance/distance_matrix.h"

#include <algorithm>
#include <atomic>
#include <thread>

#include "grammar/grammar_complexity.h"
#include "session/parallel_for.h"

namespace tessarin {
namespace {

// One complexity to compute: text i followed by text j, or text i alone when j is 0.
struct Job {
    int i;
    int j;
};

// The pairs first: their texts are twice as long, and starting the longest jobs first keeps
// every thread busy to the end.
std::vector<Job> Jobs(int n) {
    std::vector<Job> jobs;
    jobs.reserve(static_cast<std::size_t>(n) * (n + 1) / 2);
    for (int i = 2; i <= n; ++i) {
        for (int j = 1; j < i; ++j)
            jobs.push_back(Job{i, j});
    }
    for (int i = 1; i <= n; ++i)
        jobs.push_back(Job{i, 0});
    return jobs;
}

std::string JobCaption(std::span<const std::string> names, const Job& job) {
    if (job.j == 0) return names[job.i - 1];
    return names[job.i - 1] + " & " + names[job.j - 1];
}

}  // namespace

std::optional<DistanceMatrix> FillDistanceMatrix(std::span<const std::string> texts, std::span<const std::string> names,
                                                 int threads, const ProgressFn& progress, const CancelFn& cancelled) {
    const int n = static_cast<int>(texts.size());
    const std::vector<Job> jobs = Jobs(n);
    if (jobs.empty()) return DistanceMatrix(n);
    std::vector<float> complexities(jobs.size(), 0.0F);
    const std::thread::id coordinator = std::this_thread::get_id();
    const auto total = static_cast<float>(jobs.size());
    std::atomic<int> done{0};
    std::atomic<bool> stop{false};

    if (progress(JobCaption(names, jobs.front()), 0)) return std::nullopt;
    ParallelFor(static_cast<int>(jobs.size()), threads, [&](int t) {
        if (stop) return;
        const Job& job = jobs[t];
        const std::string caption = JobCaption(names, job);
        // Only the calling thread may drive the progress display; the others just poll for a cancel.
        const ProgressFn job_progress = [&](const std::string& text, float fraction) {
            if (std::this_thread::get_id() == coordinator && fraction < 1) {
                const float overall = std::clamp((static_cast<float>(done) + fraction) / total, 1e-4F, 0.9999F);
                if (progress(caption + text, overall)) stop = true;
            }
            if (cancelled()) stop = true;
            return stop.load();
        };
        const std::string text = job.j == 0 ? texts[job.i - 1] : texts[job.i - 1] + texts[job.j - 1];
        const std::optional<float> complexity = GrammarComplexityOfText(text, Method::kNvogram, job_progress);
        if (!complexity) {
            stop = true;
            return;
        }
        complexities[t] = *complexity;
        ++done;
    });
    progress("", 1);
    if (stop) return std::nullopt;

    std::vector<double> single(n + 1, 0.0);
    for (std::size_t t = 0; t < jobs.size(); ++t) {
        if (jobs[t].j == 0) single[jobs[t].i] = complexities[t];
    }
    DistanceMatrix matrix(n);
    for (std::size_t t = 0; t < jobs.size(); ++t) {
        const auto [i, j] = jobs[t];
        const float both = complexities[t];
        if (j == 0 || both == 0) continue;
        matrix(i, j) = matrix(j, i) = static_cast<float>(2.0 - (single[i] + single[j]) / both);
    }
    return matrix;
}

}  // namespace tessarin
