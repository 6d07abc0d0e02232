#include "sequence/sequence_file.h"

#include <gtest/gtest.h>

#include "sequence/alphabet.h"
#include "sequence/sequence_summary.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::ScriptedHost;
using testing::TempFolder;

TEST(ReadTextFileTest, JoinsLinesAtEveryKindOfLineEndAndKeepsAllOtherBytes) {
    TempFolder folder;
    folder.Write("crlf.txt", "ACGT\r\nTTGA\r\n");
    folder.Write("lf.txt", "AC\n\nGT\n");
    folder.Write("cr.txt", "AC\rGT\r");
    folder.Write("mixed.txt", "a b\t \r\nX,1\n\xE9");
    EXPECT_EQ(ReadTextFile(folder.Folder(), "crlf.txt"), "ACGTTTGA");
    EXPECT_EQ(ReadTextFile(folder.Folder(), "lf.txt"), "ACGT");  // an empty line adds nothing
    EXPECT_EQ(ReadTextFile(folder.Folder(), "cr.txt"), "ACGT");
    EXPECT_EQ(ReadTextFile(folder.Folder(), "mixed.txt"), "a b\t X,1\xE9");  // blanks at line ends are symbols
    // A folder without its trailing separator still finds the file.
    EXPECT_EQ(ReadTextFile(folder.Path(""), "cr.txt"), "ACGT");
}

TEST(ReadTextFileTest, MissingFileGivesAnErrorNamingIt) {
    TempFolder folder;
    try {
        ReadTextFile(folder.Folder(), "absent.txt");
        FAIL() << "no error";
    } catch (const SequenceFileError& error) {
        EXPECT_NE(std::string(error.what()).find("absent.txt"), std::string::npos);
    }
}

TEST(FileBaseNameTest, CutsAtTheFirstDot) {
    EXPECT_EQ(FileBaseName("dna.txt"), "dna");
    EXPECT_EQ(FileBaseName("a.b.txt"), "a");
    EXPECT_EQ(FileBaseName("noext"), "noext");
    EXPECT_EQ(FileBaseName(".hidden"), "");
}

TEST(AlphabetTest, SymbolsNumberedInAscendingCharacterCode) {
    ScriptedHost host;
    Session session(host, "/tmp/");
    EXPECT_EQ(SequenceSummary(session, "BA", false), 2);
    EXPECT_EQ(EncodeSequence(session.sequence(), "BA"), (CodedSequence{0, 2, 1}));
    EXPECT_EQ(SequenceSummary(session, "xXa1", false), 4);
    EXPECT_EQ(std::string(session.sequence().alphabet.begin() + 1, session.sequence().alphabet.end()), "1Xax");
}

TEST(ChooseInputSequenceTest, LoadsTheChosenFileAndShowsIt) {
    TempFolder folder;
    folder.Write("dna.txt", "GATT\r\nACA\r\n");
    ScriptedHost host;
    Session session(host, folder.Folder());
    host.files.push_back({folder.Folder(), "dna.txt"});
    EXPECT_EQ(ChooseInputSequence(session), 7);
    EXPECT_EQ(session.sequence().text, "GATTACA");
    EXPECT_EQ(session.sequence().file_name, "dna.txt");
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_EQ(host.shown[0], "Input Sequence: dna.txt");
    // A cancelled dialog leaves no current sequence and shows nothing.
    EXPECT_EQ(ChooseInputSequence(session), 0);
    EXPECT_EQ(session.sequence().text, "");
    EXPECT_EQ(host.shown.size(), 1U);
}

}  // namespace
}  // namespace tessarin
