#include "sequence/file_name_check.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

TEST(FileNameRefusalTest, RefusesEmptyNamesSpacesAndLongBaseNames) {
    const FileNameRules rules{true, 8};
    EXPECT_EQ(FileNameRefusal("", rules), "No valid filename.");
    EXPECT_EQ(FileNameRefusal("   ", rules), "No valid filename.");
    EXPECT_EQ(FileNameRefusal("my file.txt", rules), "Please don't use filenames with spaces.");
    EXPECT_EQ(FileNameRefusal("longername.txt", rules), "Please don't use filenames with more than 8 characters.");
    // The limit counts the name up to its first dot only.
    EXPECT_EQ(FileNameRefusal("eight888.a.very.long.extension", rules), std::nullopt);
    EXPECT_EQ(FileNameRefusal("my file.bmp", FileNameRules{false, 0}), std::nullopt);
}

}  // namespace
}  // namespace tessarin
