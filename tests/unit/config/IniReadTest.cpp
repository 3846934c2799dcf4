// The INI reader on files of its own: matching rules, line ends, long lines, defaults.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

// A file and what reading it answers: the value found, or nullptr for "not found, the default".
struct Lookup {
  const char* section;
  const char* key;
  const char* value;
};

struct ReadRow {
  const char* what;
  std::string file;
  std::vector<Lookup> lookups;
};

TEST_F(IniReadTest, FilesAnswerTheseLookups) {
  const std::string tail = "tail" + std::string(37, 'y');
  const ReadRow rows[] = {
      {"a key matches only with its equals sign and in its exact case",
       "[GF46_1]\r\nFunction10=ten\r\nFunction1=one\r\nBlank = spaced\r\nlower=small\r\nPath=a=b=c\r\n",
       {{"GF46_1", "Function1", "one"},  // Function10's line does not hold "Function1="
        {"GF46_1", "Function10", "ten"},
        {"GF46_1", "Blank", nullptr},
        {"GF46_1", "Lower", nullptr},
        {"gf46_1", "lower", nullptr},
        {"GF46_1", "Path", "a=b=c"}}},  // the value starts after the key's own '='
      {"key and section tag may stand anywhere in their line", "junk [CONFIG] trailing\n  xxSetting=found\n",
       {{"CONFIG", "Setting", "found"}, {"CONFIG", "xxSetting", "found"}}},
      {"a value keeps inner and trailing blanks", "[S]\r\nKey=  a  b  \r\nTab=\tx\t\r\nEmpty=\r\n",
       {{"S", "Key", "  a  b  "}, {"S", "Tab", "\tx\t"}, {"S", "Empty", ""}}},
      {"comment lines are skipped and do not end the section",
       "[S]\r\n;Key=commented\r\n; [T]\r\nKey=live\r\n;Only=commented\r\n", {{"S", "Key", "live"}, {"S", "Only", nullptr}}},
      {"a section ends at the next line starting with a bracket", "[S]\r\nA=1\r\n[T] B=2\r\nC=3\r\n [U]\r\nD=4\r\n",
       {{"S", "A", "1"},
        {"S", "C", nullptr},
        {"S", "B", "2"},  // a line is tested for the key before it can end the section
        {"T", "C", "3"},
        {"T", "D", "4"}}},  // " [U]" does not start with '[', so T goes on
      {"only the first section copy and the first key line count",
       "[S]\r\nA=first\r\nA=second\r\n[T]\r\nX=1\r\n[S]\r\nA=third\r\nB=only-in-second-copy\r\n",
       {{"S", "A", "first"}, {"S", "B", nullptr}}},
      {"mixed line ends and no final line end", "[A]\rK=1\n\r[B]\r\nK=2\nL=3\r\rM=4",
       {{"A", "K", "1"}, {"B", "K", "2"}, {"B", "L", "3"}, {"B", "M", "4"}}},
      // 255 filler characters, then the key: the key starts the second chunk.
      {"a long line is read as chunks of 255",
       "[S]\n" + std::string(255, 'x') + "Key=" + tail + "\nNext=1\n",
       {{"S", "Key", tail.c_str()}, {"S", "Next", "1"}}},
      {"a key split by the chunk boundary is not found", "[S]\n" + std::string(253, 'x') + "Key=v\n",
       {{"S", "Key", nullptr}}},
      {"a remainder chunk starting with a bracket ends the section", "[S]\n" + std::string(255, 'x') + "[T]\nK=1\n",
       {{"S", "K", nullptr}, {"T", "K", "1"}}},
      {"embedded NUL bytes do not hide later lines", std::string("[S]\nJunk=a\0b\nKey=ok\n", 20),
       {{"S", "Key", "ok"}, {"S", "Junk", "a"}}},  // the C string ends at the NUL
  };
  for (const ReadRow& row : rows) {
    SCOPED_TRACE(row.what);
    GivenFile(row.file);
    for (const Lookup& lookup : row.lookups) {
      const bool found = lookup.value != nullptr;
      EXPECT_EQ(Read(lookup.section, lookup.key), std::make_pair(found, std::string(found ? lookup.value : "DEF")))
          << "[" << lookup.section << "] " << lookup.key;
    }
  }
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

TEST_F(IniReadTest, LineOfExactly255IsReadWholeAndALongerValueIsCutAtTheChunk) {
  // "Key=" and 251 characters fill one chunk exactly; the writer tests show it stays one line.
  const std::string value(251, 'v');
  GivenFile("[S]\r\nKey=" + value + "\r\nNext=2\r\n");
  EXPECT_EQ(Value("S", "Key"), value);
  EXPECT_EQ(Value("S", "Next"), "2");
  GivenFile("[S]\nKey=" + std::string(400, 'v') + "\n");
  EXPECT_EQ(Value("S", "Key"), value);
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

TEST_F(IniReadTest, MissingFileGivesTheDefaultAndCreatesNothing) {
  EXPECT_EQ(Read("S", "Key", "fallback"), std::make_pair(false, std::string("fallback")));
  EXPECT_FALSE(std::filesystem::exists(path_));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(IniReadTest, DefaultIsCopiedSafely) {
  EXPECT_EQ(Read("S", "Key", nullptr), std::make_pair(false, std::string()));
  const std::string longDefault(1000, 'd');
  EXPECT_EQ(Read("S", "Key", longDefault.c_str()).second, std::string(255, 'd'));
}

}  // namespace
