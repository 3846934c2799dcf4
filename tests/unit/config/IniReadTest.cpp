// The INI reader on files of its own: matching rules, line ends, long lines, defaults.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "IniTestSupport.h"
#include "base/IniFile.h"

namespace {

using drav_test::ScratchFolder;
using drav_test::WriteBytes;

class IniReadTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.Made()); }

  void GivenFile(const std::string& bytes) { WriteBytes(path_, bytes); }

  // (found, value) of one read with the default "DEF".
  std::pair<bool, std::string> Read(const char* section, const char* key,
                                    const char* defaultValue = "DEF") {
    char value[drav::kIniValueSize];
    const bool found = drav::ReadIniValueAtPath(path_.string(), section, key, value, defaultValue);
    return {found, value};
  }
  std::string Value(const char* section, const char* key) { return Read(section, key).second; }

  ScratchFolder folder_{"iniread"};
  std::filesystem::path path_ = folder_.Path() / "DRAV.INI";
};

TEST_F(IniReadTest, KeyMatchesOnlyWithEqualsSignAndExactCase) {
  GivenFile(
      "[GF46_1]\r\n"
      "Function10=ten\r\n"
      "Function1=one\r\n"
      "Blank = spaced\r\n"
      "lower=small\r\n"
      "Path=a=b=c\r\n");
  EXPECT_EQ(Value("GF46_1", "Function1"), "one");  // Function10's line does not hold "Function1="
  EXPECT_EQ(Value("GF46_1", "Function10"), "ten");
  EXPECT_EQ(Read("GF46_1", "Blank"), std::make_pair(false, std::string("DEF")));
  EXPECT_EQ(Value("GF46_1", "Lower"), "DEF");
  EXPECT_EQ(Value("gf46_1", "lower"), "DEF");
  EXPECT_EQ(Value("GF46_1", "Path"), "a=b=c");  // the value starts after the key's own '='
}

TEST_F(IniReadTest, KeyAndSectionTagMayStandAnywhereInTheirLine) {
  GivenFile(
      "junk [CONFIG] trailing\n"
      "  xxSetting=found\n");
  EXPECT_EQ(Read("CONFIG", "Setting"), std::make_pair(true, std::string("found")));
  EXPECT_EQ(Value("CONFIG", "xxSetting"), "found");
}

TEST_F(IniReadTest, ValueKeepsInnerAndTrailingSpaces) {
  GivenFile("[S]\r\nKey=  a  b  \r\nTab=\tx\t\r\nEmpty=\r\n");
  EXPECT_EQ(Value("S", "Key"), "  a  b  ");
  EXPECT_EQ(Value("S", "Tab"), "\tx\t");
  EXPECT_EQ(Read("S", "Empty"), std::make_pair(true, std::string()));
}

TEST_F(IniReadTest, CommentLinesAreSkippedAndDoNotEndTheSection) {
  GivenFile(
      "[S]\r\n"
      ";Key=commented\r\n"
      "; [T]\r\n"
      "Key=live\r\n"
      ";Only=commented\r\n");
  EXPECT_EQ(Value("S", "Key"), "live");
  EXPECT_EQ(Read("S", "Only").first, false);
}

TEST_F(IniReadTest, SectionEndsAtTheNextLineStartingWithBracket) {
  GivenFile(
      "[S]\r\n"
      "A=1\r\n"
      "[T] B=2\r\n"
      "C=3\r\n"
      " [U]\r\n"
      "D=4\r\n");
  EXPECT_EQ(Value("S", "A"), "1");
  EXPECT_EQ(Value("S", "C"), "DEF");
  EXPECT_EQ(Value("S", "B"), "2");  // a line is tested for the key before it can end the section
  EXPECT_EQ(Value("T", "C"), "3");
  EXPECT_EQ(Value("T", "D"), "4");  // " [U]" does not start with '[', so T goes on
}

TEST_F(IniReadTest, OnlyTheFirstSectionCopyAndTheFirstKeyLineCount) {
  GivenFile(
      "[S]\r\n"
      "A=first\r\n"
      "A=second\r\n"
      "[T]\r\n"
      "X=1\r\n"
      "[S]\r\n"
      "A=third\r\n"
      "B=only-in-second-copy\r\n");
  EXPECT_EQ(Value("S", "A"), "first");
  EXPECT_EQ(Read("S", "B"), std::make_pair(false, std::string("DEF")));
}

TEST_F(IniReadTest, AllLineEndKindsReadTheSame) {
  const char* const endings[] = {"\n", "\r", "\r\n", "\n\r"};
  for (const char* end : endings) {
    const std::string e = end;
    GivenFile("[A]" + e + "K=1" + e + "[B]" + e + "K=2" + e + "L= two " + e);
    SCOPED_TRACE(::testing::PrintToString(e));
    EXPECT_EQ(Value("A", "K"), "1");
    EXPECT_EQ(Value("B", "K"), "2");
    EXPECT_EQ(Value("B", "L"), " two ");
    EXPECT_EQ(Value("A", "L"), "DEF");
  }
}

TEST_F(IniReadTest, MixedLineEndsAndNoFinalLineEnd) {
  GivenFile("[A]\rK=1\n\r[B]\r\nK=2\nL=3\r\rM=4");
  EXPECT_EQ(Value("A", "K"), "1");
  EXPECT_EQ(Value("B", "K"), "2");
  EXPECT_EQ(Value("B", "L"), "3");
  EXPECT_EQ(Value("B", "M"), "4");
}

TEST_F(IniReadTest, LongLineIsReadAsChunksOf255) {
  // 255 filler characters, then the key: the key starts the second chunk.
  GivenFile("[S]\n" + std::string(255, 'x') + "Key=tail" + std::string(37, 'y') + "\nNext=1\n");
  EXPECT_EQ(Value("S", "Key"), "tail" + std::string(37, 'y'));
  EXPECT_EQ(Value("S", "Next"), "1");
}

TEST_F(IniReadTest, KeySplitByTheChunkBoundaryIsNotFound) {
  GivenFile("[S]\n" + std::string(253, 'x') + "Key=v\n");
  EXPECT_EQ(Value("S", "Key"), "DEF");
}

TEST_F(IniReadTest, RemainderChunkStartingWithBracketEndsTheSection) {
  GivenFile("[S]\n" + std::string(255, 'x') + "[T]\nK=1\n");
  EXPECT_EQ(Value("S", "K"), "DEF");
  EXPECT_EQ(Value("T", "K"), "1");
}

TEST_F(IniReadTest, LineOfExactly255IsReadWhole) {
  // "Key=" and 251 characters fill one chunk exactly; the writer tests show it stays one line.
  const std::string value(251, 'v');
  GivenFile("[S]\r\nKey=" + value + "\r\nNext=2\r\n");
  EXPECT_EQ(Value("S", "Key"), value);
  EXPECT_EQ(Value("S", "Next"), "2");
}

TEST_F(IniReadTest, OverlongValueIsCutAtTheChunk) {
  GivenFile("[S]\nKey=" + std::string(400, 'v') + "\n");
  EXPECT_EQ(Value("S", "Key"), std::string(251, 'v'));
}

TEST_F(IniReadTest, MissingFileGivesTheDefaultAndCreatesNothing) {
  EXPECT_EQ(Read("S", "Key", "fallback"), std::make_pair(false, std::string("fallback")));
  EXPECT_FALSE(std::filesystem::exists(path_));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(IniReadTest, MissingSectionOrKeyGivesTheDefault) {
  GivenFile("[S]\r\nKey=1\r\n");
  EXPECT_EQ(Read("T", "Key", "d1"), std::make_pair(false, std::string("d1")));
  EXPECT_EQ(Read("S", "Other", "d2"), std::make_pair(false, std::string("d2")));
  GivenFile("");
  EXPECT_EQ(Read("S", "Key", "d3"), std::make_pair(false, std::string("d3")));
}

TEST_F(IniReadTest, DefaultIsCopiedSafely) {
  EXPECT_EQ(Read("S", "Key", nullptr), std::make_pair(false, std::string()));
  const std::string longDefault(1000, 'd');
  EXPECT_EQ(Read("S", "Key", longDefault.c_str()).second, std::string(255, 'd'));
}

TEST_F(IniReadTest, BadArgumentsAndUnreadableFilesGiveTheDefault) {
  GivenFile("[S]\nKey=1\n");
  EXPECT_EQ(Read(nullptr, "Key"), std::make_pair(false, std::string("DEF")));
  EXPECT_EQ(Read("S", nullptr), std::make_pair(false, std::string("DEF")));
  EXPECT_FALSE(drav::ReadIniValueAtPath(path_.string(), "S", "Key", nullptr, "x"));

  const std::filesystem::path folderAsFile = folder_.Path() / "folder.ini";
  std::filesystem::create_directory(folderAsFile);
  char value[drav::kIniValueSize];
  EXPECT_FALSE(drav::ReadIniValueAtPath(folderAsFile.string(), "S", "Key", value, "d"));
  EXPECT_STREQ(value, "d");
}

TEST_F(IniReadTest, EmbeddedNulBytesDoNotHideLaterLines) {
  GivenFile(std::string("[S]\nJunk=a\0b\nKey=ok\n", 20));
  EXPECT_EQ(Value("S", "Key"), "ok");
  EXPECT_EQ(Value("S", "Junk"), "a");  // the C string ends at the NUL
}

}  // namespace
