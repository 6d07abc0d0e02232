#include "surrogate/permute_edge_lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "sequence/alphabet.h"
#include "surrogate/surrogate_shuffler.h"
#include "surrogate/verify_pairs.h"
#include "surrogate/walk_edge_lists.h"

namespace tessarin {
namespace {

// Records what a reordering shows and asks; answers the questions from a script (then No).
struct Recorder {
    std::vector<std::string> statuses;
    std::vector<std::string> questions;
    std::vector<bool> answers;

    ShuffleCallbacks Callbacks() {
        return {[this](const std::string& status) {
                    statuses.push_back(status);
                    return false;
                },
                [this](const std::string& question) {
                    questions.push_back(question);
                    const bool yes = questions.size() <= answers.size() && answers[questions.size() - 1];
                    return yes;
                }};
    }
};

// Two vertices where an exchange in vertex 1's list is all but impossible: the last list keeps the
// huge cursor a walk might have left in its slot 0, and the draw k runs up to it.
EdgeLists RarelyExchangingLists() {
    return {{0, 1, 2}, {0, 2, 2}, {1000000000}};
}

TEST(PermuteEdgeListsTest, AsksEveryMillionRoundsAndStopsOnNo) {
    EdgeLists lists = RarelyExchangingLists();
    Recorder recorder;
    recorder.answers = {true, false};
    std::int64_t rounds = 0;
    RandomGenerator random(3);
    EXPECT_EQ(PermuteEdgeLists(lists, rounds, random, recorder.Callbacks()), PermuteOutcome::kCancelled);
    EXPECT_EQ(rounds, 2000000);
    EXPECT_EQ(recorder.questions,
              (std::vector<std::string>{"No Surrogate Found During 1000000 Permutations - Continue?",
                                        "No Surrogate Found During 2000000 Permutations - Continue?"}));
    ASSERT_EQ(recorder.statuses.size(), 2000U);
    EXPECT_EQ(recorder.statuses.front(), "Permutation: 1000");
}

TEST(PermuteEdgeListsTest, GivesUpWhenTheRoundCounterReachesItsMaximum) {
    EdgeLists lists = RarelyExchangingLists();
    Recorder recorder;
    std::int64_t rounds = kMaximumRounds - 5;  // as if the search had already run that long
    RandomGenerator random(3);
    EXPECT_EQ(PermuteEdgeLists(lists, rounds, random, recorder.Callbacks()), PermuteOutcome::kGaveUp);
    EXPECT_EQ(rounds, kMaximumRounds);
}

TEST(PermuteEdgeListsTest, ACancelSeenAtTheStatusEndsTheSearch) {
    EdgeLists lists = RarelyExchangingLists();
    std::int64_t rounds = 0;
    RandomGenerator random(3);
    const ShuffleCallbacks cancel{[](const std::string&) { return true; }, [](const std::string&) { return true; }};
    EXPECT_EQ(PermuteEdgeLists(lists, rounds, random, cancel), PermuteOutcome::kCancelled);
    EXPECT_EQ(rounds, 1000);
}

// "ABAC": A lists B then C. With C first the walk reaches C, which has no edge, two symbols early.
TEST(WalkEdgeListsTest, AWalkAgainstTheLastEdgeRuleRunsOutOfEdges) {
    EdgeLists lists = BuildPairLists(Encode(BuildAlphabet("ABAC"), "ABAC"), 3);
    std::swap(lists[1][1], lists[1][2]);
    const Walk walk = WalkPairLists(lists);
    EXPECT_EQ(walk.outcome, WalkOutcome::kEdgeListExhausted);
    EXPECT_EQ(walk.sequence, (std::vector<std::int32_t>{0, 1, 3, 0, 0}));
    EXPECT_FALSE(VerifyPairs(Encode(BuildAlphabet("ABAC"), "ABAC"), walk.sequence, 3));
    EXPECT_EQ(lists[1][0], 2);  // the cursors stay where the walk left them
}

TEST(WalkEdgeListsTest, ATriplesWalkStopsAtPairsThatDoNotOverlap) {
    EdgeLists lists{{0, 1, 2}, {0, 2}, {0}};
    const PairWords pair_words{{}, {1, 2}, {3, 1}};  // AB followed by CA
    const Walk walk = WalkTripleLists(lists, pair_words);
    EXPECT_EQ(walk.outcome, WalkOutcome::kOverlapMismatch);
    EXPECT_EQ(walk.sequence, (std::vector<std::int32_t>{0, 1, 2, 0}));
}

// All orders of a text with its first symbol and pair counts, by brute force.
std::vector<std::string> EulerianArrangements(std::string text) {
    const auto pairs = [](const std::string& s) {
        std::map<std::string, int> counts;
        for (std::size_t p = 0; p + 1 < s.size(); ++p)
            ++counts[s.substr(p, 2)];
        return counts;
    };
    const auto wanted = pairs(text);
    const char first = text[0];
    std::vector<std::string> found;
    std::sort(text.begin(), text.end());
    do {
        if (text[0] == first && pairs(text) == wanted) found.push_back(text);
    } while (std::next_permutation(text.begin(), text.end()));
    return found;
}

// The uniform shuffle reaches every arrangement that keeps the pair counts about equally often:
// a chi-square test at a fixed seed (9 degrees of freedom: 30 lies beyond the 99.9th percentile).
TEST(UniformShuffleTest, EveryPairArrangementIsAboutEquallyLikely) {
    const std::string text = "ABCACBAB";
    const std::vector<std::string> arrangements = EulerianArrangements(text);
    ASSERT_EQ(arrangements.size(), 10U);
    const Alphabet alphabet = BuildAlphabet(text);
    SurrogateShuffler shuffler(Encode(alphabet, text), alphabet.Size(), Preserve::kPairs, true);
    RandomGenerator random(11);
    const ShuffleCallbacks none{[](const std::string&) { return false; }, [](const std::string&) { return true; }};
    std::map<std::string, int> seen;
    constexpr int kDraws = 10000;
    for (int i = 0; i < kDraws; ++i) {
        const SurrogateDraw draw = shuffler.Next(random, none);
        std::string surrogate;
        for (std::size_t p = 1; p < draw.sequence.size(); ++p)
            surrogate.push_back(alphabet.Letter(draw.sequence[p]));
        ++seen[surrogate];
    }
    double chi_square = 0;
    const double expected = static_cast<double>(kDraws) / arrangements.size();
    for (const std::string& arrangement : arrangements)
        chi_square += (seen[arrangement] - expected) * (seen[arrangement] - expected) / expected;
    EXPECT_EQ(seen.size(), arrangements.size());  // nothing outside the arrangements
    EXPECT_LT(chi_square, 30.0);
}

}  // namespace
}  // namespace tessarin
