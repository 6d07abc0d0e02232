#include "subwords/references.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/subwords/subword_session.h"

namespace tessarin {
namespace {

class ReferencesTest : public testing::SubwordSessionTest {
  protected:
    std::vector<std::string> Text() {
        EXPECT_EQ(RunReferences(session_), Outcome::kCompleted);
        return ReportLines("Reference.txt");
    }
};

// Catches underlines of the wrong length: literature headings are underlined in full, the four
// generator headings one character short.
TEST_F(ReferencesTest, UnderlinesMatchTheirHeadings) {
    const std::vector<std::string> lines = Text();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0], "Background References of TESSARIN");
    int literature = 0;
    int generators = 0;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        const std::string& heading = lines[i];
        if (lines[i + 1].empty() || lines[i + 1].find_first_not_of('=') != std::string::npos) continue;
        EXPECT_TRUE(lines[i - 1].empty()) << "no empty line before " << heading;
        const bool generator = heading.find(" is defined as:") != std::string::npos;
        EXPECT_EQ(lines[i + 1].size(), heading.size() - (generator ? 1 : 0)) << heading;
        ++(generator ? generators : literature);
    }
    EXPECT_EQ(literature, 8);
    EXPECT_EQ(generators, 4);
}

// Catches an e-mail or web address in the text, and a second run appending a second copy.
TEST_F(ReferencesTest, HoldsNoAddressAndIsRewrittenEachTime) {
    const std::vector<std::string> first = Text();
    for (const std::string& line : first) {
        EXPECT_EQ(line.find('@'), std::string::npos) << line;
        EXPECT_EQ(line.find("http"), std::string::npos) << line;
        EXPECT_EQ(line.find("www"), std::string::npos) << line;
    }
    EXPECT_EQ(Text(), first);
    EXPECT_EQ(host_.shown, (std::vector<std::string>{folder_.Path("Reference.txt"), folder_.Path("Reference.txt")}));
}

}  // namespace
}  // namespace tessarin
