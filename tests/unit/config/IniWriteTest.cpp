// The INI writer: whole files compared byte for byte after each write.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "IniTestSupport.h"
#include "base/IniFile.h"

namespace {

using drav_test::ReadBytes;
using drav_test::ScratchFolder;
using drav_test::WriteBytes;

class IniWriteTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.Made()); }

  void GivenFile(const std::string& bytes) { WriteBytes(path_, bytes); }
  bool Write(const char* section, const char* key, const char* value) {
    return drav::WriteIniValueAtPath(path_.string(), section, key, value);
  }
  std::string FileBytes() { return ReadBytes(path_).value_or("<no file>"); }
  bool TempFileLeft() {
    return std::filesystem::exists(std::filesystem::symlink_status(path_.string() + "_TMP"));
  }
  std::pair<bool, std::string> Read(const char* section, const char* key) {
    char value[drav::kIniValueSize];
    const bool found = drav::ReadIniValueAtPath(path_.string(), section, key, value, "DEF");
    return {found, value};
  }

  ScratchFolder folder_{"iniwrite"};
  std::filesystem::path path_ = folder_.Path() / "DRAV.INI";
};

// One write into a given file (or none) and the whole file after it. Every row's value
// reads back as written, and no temporary file is left behind.
struct WriteRow {
  const char* what;
  std::optional<std::string> before;
  const char* section;
  const char* key;
  const char* value;
  std::string after;
};

TEST_F(IniWriteTest, OneWriteGivesTheseBytes) {
  const std::string chunk(255, 'x');
  const std::string longLines = "[S]\n" + chunk + std::string(45, 'y') + "\nKey=" + std::string(251, 'z') + "\nA=1\n";
  const WriteRow rows[] = {
      {"missing file is created", std::nullopt, "GF46_1", "Function1", "COM1", "[GF46_1]\r\nFunction1=COM1\r\n"},
      {"key rewritten in place, text before it kept", "[S]\r\nA=1\r\n  xKey=old value\r\nB=2\r\n", "S", "Key", "new",
       "[S]\r\nA=1\r\n  xKey=new\r\nB=2\r\n"},
      {"first write turns every line end into CR LF", "; settings\n[S]\nA=1\nB=2\n\n[T]\nC=3", "S", "A", "9",
       "; settings\r\n[S]\r\nA=9\r\nB=2\r\n\r\n[T]\r\nC=3\r\n"},
      // CR, LF CR and CR LF end one line each; CR CR and LF LF leave an empty line between.
      {"paired line ends count once, repeated ones twice", "[S]\rA=1\n\rB=2\r\nC=3\r\rD=4\n\nE=5", "S", "C", "x",
       "[S]\r\nA=1\r\nB=2\r\nC=x\r\n\r\nD=4\r\n\r\nE=5\r\n"},
      {"duplicates dropped in this and later section copies",
       "[S]\r\nK=1\r\nX=a\r\nK=2\r\n[T]\r\nK=other-section\r\n[S]\r\nK=3\r\nY=b\r\n", "S", "K", "9",
       "[S]\r\nK=9\r\nX=a\r\n[T]\r\nK=other-section\r\n[S]\r\nY=b\r\n"},
      {"key only in a second copy is written to the first", "[S]\r\nA=1\r\n[T]\r\n[S]\r\nK=old\r\n", "S", "K", "new",
       "[S]\r\nA=1\r\nK=new\r\n[T]\r\n[S]\r\n"},
      {"missing section appended at the end, after a last line without line end", "[S]\r\nA=1", "NEW", "K", "v",
       "[S]\r\nA=1\r\n[NEW]\r\nK=v\r\n"},
      {"commented key lines left alone", "[S]\r\n;K=commented\r\n;[x]\r\nK=1\r\n", "S", "K", "2",
       "[S]\r\n;K=commented\r\n;[x]\r\nK=2\r\n"},
      {"a commented key is no key", "[S]\r\n;K=commented\r\n[T]\r\n", "S", "K", "3",
       "[S]\r\n;K=commented\r\nK=3\r\n[T]\r\n"},
      // The reader would take "[T] B=2" as S's key line; the writer never changes or drops another
      // section's line, so it ends S there and the key goes in before it.
      {"section line holding the key never rewritten", "[S]\r\nA=1\r\n[T] B=2\r\nB=3\r\n", "S", "B", "9",
       "[S]\r\nA=1\r\nB=9\r\n[T] B=2\r\nB=3\r\n"},
      {"keys with blanks or other case are not the key", "[S]\r\nK = spaced\r\nk=lower\r\nK1=longer\r\n", "S", "K",
       "v", "[S]\r\nK = spaced\r\nk=lower\r\nK1=longer\r\nK=v\r\n"},
      // A 300-character line becomes 255 + 45; a line of exactly 255 stays one line.
      {"long lines written back as their chunks", longLines, "S", "A", "2",
       "[S]\r\n" + chunk + "\r\n" + std::string(45, 'y') + "\r\nKey=" + std::string(251, 'z') + "\r\nA=2\r\n"},
      {"key in a remainder chunk rewritten", "[S]\r\n" + chunk + "Key=old\r\n", "S", "Key", "new",
       "[S]\r\n" + chunk + "\r\nKey=new\r\n"},
  };
  for (const WriteRow& row : rows) {
    SCOPED_TRACE(row.what);
    std::filesystem::remove(path_);
    if (row.before) GivenFile(*row.before);
    EXPECT_TRUE(Write(row.section, row.key, row.value));
    EXPECT_EQ(FileBytes(), row.after);
    EXPECT_EQ(Read(row.section, row.key), std::make_pair(true, std::string(row.value)));
    EXPECT_FALSE(TempFileLeft());
  }
}

TEST_F(IniWriteTest, EmptyValueRemovesAnExistingKey) {
  GivenFile("[S]\r\nA=1\r\nK=2\r\nB=3\r\n[T]\r\nK=4\r\n");
  EXPECT_TRUE(Write("S", "K", ""));
  EXPECT_EQ(FileBytes(), "[S]\r\nA=1\r\nB=3\r\n[T]\r\nK=4\r\n");
  EXPECT_EQ(Read("S", "K"), std::make_pair(false, std::string("DEF")));
}

TEST_F(IniWriteTest, EmptyValueForAMissingKeyStoresTheBarePrefix) {
  GivenFile("[S]\r\nA=1\r\n[T]\r\nB=2\r\n");
  EXPECT_TRUE(Write("S", "K", ""));
  EXPECT_EQ(FileBytes(), "[S]\r\nA=1\r\nK=\r\n[T]\r\nB=2\r\n");
  EXPECT_EQ(Read("S", "K"), std::make_pair(true, std::string()));
  // The next empty write finds the key and removes it.
  EXPECT_TRUE(Write("S", "K", ""));
  EXPECT_EQ(FileBytes(), "[S]\r\nA=1\r\n[T]\r\nB=2\r\n");
}

TEST_F(IniWriteTest, NewKeyGoesAtTheEndOfItsSection) {
  GivenFile("[S]\r\nA=1\r\n;note\r\n[T]\r\nB=2\r\n");
  EXPECT_TRUE(Write("S", "K", "v"));
  EXPECT_TRUE(Write("T", "K", "w"));
  EXPECT_EQ(FileBytes(), "[S]\r\nA=1\r\n;note\r\nK=v\r\n[T]\r\nB=2\r\nK=w\r\n");
}

TEST_F(IniWriteTest, ValuesReadBackAsWritten) {
  EXPECT_TRUE(Write("S", "Spaces", "  a  b  "));
  EXPECT_TRUE(Write("S", "Equals", "x=y"));
  EXPECT_TRUE(Write("T", "Number", "42"));
  EXPECT_EQ(Read("S", "Spaces").second, "  a  b  ");
  EXPECT_EQ(Read("S", "Equals").second, "x=y");
  EXPECT_EQ(Read("T", "Number").second, "42");
  const std::string once = FileBytes();
  EXPECT_TRUE(Write("S", "Spaces", "  a  b  "));
  EXPECT_EQ(FileBytes(), once);
}

TEST_F(IniWriteTest, ValueStopsAtItsFirstLineEnd) {
  EXPECT_TRUE(Write("S", "K", "one\r\n[Injected]\nX=1"));
  EXPECT_EQ(FileBytes(), "[S]\r\nK=one\r\n");
}

TEST_F(IniWriteTest, FailedWriteLeavesTheOriginalUntouched) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this machine";
  const std::string original = "[S]\nK=1\n";
  GivenFile(original);
  // Writes into the temp file go to /dev/full and fail once they are flushed.
  std::filesystem::create_symlink("/dev/full", path_.string() + "_TMP");
  EXPECT_FALSE(Write("S", "K", "2"));
  EXPECT_EQ(FileBytes(), original);
  EXPECT_FALSE(TempFileLeft());
  EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST_F(IniWriteTest, UnreadableFileIsNotReplaced) {
  std::filesystem::create_directory(path_);  // opens, but every read fails
  EXPECT_FALSE(Write("S", "K", "v"));
  EXPECT_TRUE(std::filesystem::is_directory(path_));
  EXPECT_FALSE(TempFileLeft());
}

TEST_F(IniWriteTest, NullArgumentsChangeNothing) {
  GivenFile("[S]\r\nK=1\r\n");
  EXPECT_FALSE(Write(nullptr, "K", "v"));
  EXPECT_FALSE(Write("S", nullptr, "v"));
  EXPECT_FALSE(Write("S", "K", nullptr));
  EXPECT_EQ(FileBytes(), "[S]\r\nK=1\r\n");
}

TEST_F(IniWriteTest, MissingFolderCreatesNothing) {
  const std::filesystem::path missing = folder_.Path() / "absent" / "DRAV.INI";
  EXPECT_FALSE(drav::WriteIniValueAtPath(missing.string(), "S", "K", "v"));
  EXPECT_FALSE(std::filesystem::exists(missing.parent_path()));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

}  // namespace
