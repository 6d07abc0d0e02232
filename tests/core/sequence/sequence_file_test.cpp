#include "sequence/sequence_file.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(ReadTextFile(folder.Path("crlf.txt")), "ACGTTTGA");
    EXPECT_EQ(ReadTextFile(folder.Path("lf.txt")), "ACGT");  // an empty line adds nothing
    EXPECT_EQ(ReadTextFile(folder.Path("cr.txt")), "ACGT");
    EXPECT_EQ(ReadTextFile(folder.Path("mixed.txt")), "a b\t X,1\xE9");  // blanks at line ends are symbols
}

TEST(ReadTextFileTest, MissingFileGivesAnErrorNamingIt) {
    TempFolder folder;
    try {
        ReadTextFile(folder.Path("absent.txt"));
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

// Catches a folder read as a sequence (a stream error with no name) and a loaded file not made current.
TEST(LoadInputSequenceTest, LoadsTheFileAndRefusesAFolderByName) {
    TempFolder folder;
    folder.Write("dna.txt", "GATT\r\nACA\r\n");
    ScriptedHost host;
    Session session(host, folder.Folder());
    EXPECT_EQ(LoadInputSequence(session, folder.Path("dna.txt")), 7);
    EXPECT_EQ(session.sequence().text, "GATTACA");
    EXPECT_EQ(session.sequence().Path(), folder.Path("dna.txt"));
    EXPECT_EQ(host.shown, std::vector<std::string>{"Input Sequence: dna.txt"});
    try {
        LoadInputSequence(session, folder.Folder());
        FAIL() << "a folder was read as a sequence";
    } catch (const SequenceFileError& error) {
        EXPECT_NE(std::string(error.what()).find("is a folder"), std::string::npos) << error.what();
    }
}

}  // namespace
}  // namespace tessarin
