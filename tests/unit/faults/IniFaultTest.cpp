// DRAV.INI as the pilot's disk may leave it: very many lines, enormous lines, binary garbage, no
// line end at the end; and writes that cannot complete. A write that fails must leave the old file
// exactly as it was and no half-written file behind, since the file holds every assignment.
//
// The tests run as root in CI, where permission bits do not stop a write. The failures are made in
// ways that stop root too: a folder where the temporary file must go, a folder where the file
// itself should be, a regular file where a folder should be, and /dev/full (a device on which every
// write fails with "no space left").
#include <gtest/gtest.h>
#ifndef _WIN32
#include <unistd.h>
#endif

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>

#include "../config/IniTestSupport.h"
#include "base/IniFile.h"

namespace {

// Whether permission bits stop this process writing: not for root, and a read-only folder on
// Windows does not stop files being made in it.
bool PermissionsStopWrites() {
#ifdef _WIN32
  return false;
#else
  return geteuid() != 0;
#endif
}

using drav_test::ReadBytes;
using drav_test::ScratchFolder;
using drav_test::WriteBytes;

class IniFaultTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.Made()); }

  bool Write(const char* section, const char* key, const char* value) {
    return drav::WriteIniValueAtPath(path_.string(), section, key, value);
  }
  // The value found (with "DEF" as the default), checked to end inside the caller's 256 bytes.
  std::string Read(const char* section, const char* key) {
    char value[drav::kIniValueSize];
    std::memset(value, 'Z', sizeof value);
    drav::ReadIniValueAtPath(path_.string(), section, key, value, "DEF");
    EXPECT_LT(strnlen(value, sizeof value), sizeof value) << "the value must end inside the buffer";
    return std::string(value, strnlen(value, sizeof value));
  }
  std::string FileBytes() { return ReadBytes(path_).value_or("<no file>"); }
  bool TempFileLeft() {
    return std::filesystem::exists(std::filesystem::symlink_status(path_.string() + "_TMP"));
  }

  ScratchFolder folder_{"inifault"};
  std::filesystem::path path_ = folder_.Path() / "DRAV.INI";
};

// ---- files of unusual shape ---------------------------------------------------------------------

TEST_F(IniFaultTest, TenThousandLinesAreReadToTheEndAndRewrittenLineForLine) {
  std::string file = "[GFDIO_1]\r\n";
  for (int i = 0; i < 10000; ++i) file += "InputFunction" + std::to_string(i) + "=LANDING_LTS\r\n";
  WriteBytes(path_, file);
  EXPECT_EQ(Read("GFDIO_1", "InputFunction9999"), "LANDING_LTS");

  ASSERT_TRUE(Write("GFDIO_1", "InputFunction5000", "TAXI_LTS"));
  std::string expected = file;
  const std::string old = "InputFunction5000=LANDING_LTS";
  expected.replace(expected.find(old), old.size(), "InputFunction5000=TAXI_LTS");
  EXPECT_EQ(FileBytes(), expected);
  EXPECT_EQ(Read("GFDIO_1", "InputFunction9999"), "LANDING_LTS");
}

TEST_F(IniFaultTest, LinesOf100000CharactersAreReadAsChunksAndKeptWhole) {
  const std::string huge(100000, 'x');
  // 100000 = 392 x 255 + 40: the key after the long line is on a line of its own.
  WriteBytes(path_, "[S]\r\n" + huge + "\r\nKey=v\r\n" + huge + "Tail=t\r\n");
  EXPECT_EQ(Read("S", "Key"), "v");
  // The second long line's last chunk is 40 x's and "Tail=t": a key line of its own.
  EXPECT_EQ(Read("S", "Tail"), "t");

  ASSERT_TRUE(Write("S", "Key", "w"));
  const std::string bytes = FileBytes();
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 'x'), 200000) << "no character of a long line is lost";
  EXPECT_EQ(Read("S", "Key"), "w");
  EXPECT_EQ(Read("S", "Tail"), "t");
}

TEST_F(IniFaultTest, BinaryGarbageReadsAsDefaultsAndTakesAWrite) {
  std::mt19937 random(7);  // the same garbage on every run: NULs, line ends, brackets and all
  std::string garbage(64 * 1024, '\0');
  for (char& c : garbage) c = static_cast<char>(random() & 0xFF);
  WriteBytes(path_, garbage);
  EXPECT_EQ(Read("GF46_1", "Function1"), "DEF");

  ASSERT_TRUE(Write("GF46_1", "Function1", "COM1_DUAL"));
  EXPECT_EQ(Read("GF46_1", "Function1"), "COM1_DUAL");
  ASSERT_TRUE(Write("GF46_1", "Function1", "NAV1_DUAL"));  // and is rewritten in place
  EXPECT_EQ(Read("GF46_1", "Function1"), "NAV1_DUAL");
}

TEST_F(IniFaultTest, LastLineWithoutLineEndIsReadAndANewKeyGoesOnALineOfItsOwn) {
  WriteBytes(path_, "[S]\r\nA=1");
  EXPECT_EQ(Read("S", "A"), "1");
  ASSERT_TRUE(Write("S", "B", "2"));
  EXPECT_EQ(FileBytes(), "[S]\r\nA=1\r\nB=2\r\n");
  WriteBytes(path_, "[S]");  // the section tag alone, not ended
  ASSERT_TRUE(Write("S", "A", "3"));
  EXPECT_EQ(FileBytes(), "[S]\r\nA=3\r\n");
}

// ---- writes that cannot complete ----------------------------------------------------------------

const std::string kOriginal = "[CONFIG]\r\nGRP48ReverseFix=1\r\n[GF46_1]\r\nFunction1=COM1_DUAL\r\n";

TEST_F(IniFaultTest, TemporaryFileThatCannotBeCreatedLeavesTheOriginal) {
  WriteBytes(path_, kOriginal);
  std::filesystem::create_directory(path_.string() + "_TMP");  // even root cannot open it as a file
  EXPECT_FALSE(Write("GF46_1", "Function1", "NAV1_DUAL"));
  EXPECT_EQ(FileBytes(), kOriginal);
  EXPECT_TRUE(std::filesystem::is_directory(path_.string() + "_TMP")) << "nothing of ours is removed";
}

TEST_F(IniFaultTest, FullDiskLeavesTheOriginalAndNoTemporaryFile) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this machine";
  WriteBytes(path_, kOriginal);
  // The temporary file is /dev/full: every write to it fails once flushed, as on a full disk.
  std::filesystem::create_symlink("/dev/full", path_.string() + "_TMP");
  for (int attempt = 0; attempt < 3; ++attempt) {  // a pilot who keeps trying
    EXPECT_FALSE(Write("GF46_1", "Function1", "NAV1_DUAL"));
    EXPECT_EQ(FileBytes(), kOriginal);
    EXPECT_FALSE(TempFileLeft()) << "the failed temporary file is removed";
    std::filesystem::create_symlink("/dev/full", path_.string() + "_TMP");
  }
}

TEST_F(IniFaultTest, FileThatIsAFolderIsNotReplaced) {
  std::filesystem::create_directory(path_);
  WriteBytes(path_ / "inside", "kept");
  EXPECT_FALSE(Write("GF46_1", "Function1", "NAV1_DUAL"));
  EXPECT_TRUE(std::filesystem::is_directory(path_));
  EXPECT_EQ(ReadBytes(path_ / "inside").value_or(""), "kept");
  EXPECT_FALSE(TempFileLeft());
  EXPECT_EQ(Read("GF46_1", "Function1"), "DEF");
}

TEST_F(IniFaultTest, FolderThatIsAFileCreatesNothing) {
  const std::filesystem::path notAFolder = folder_.Path() / "plugins";
  WriteBytes(notAFolder, "a file");
  path_ = notAFolder / "DRAV.INI";
  EXPECT_FALSE(Write("GF46_1", "Function1", "NAV1_DUAL"));
  EXPECT_EQ(ReadBytes(notAFolder).value_or(""), "a file");
  EXPECT_EQ(Read("GF46_1", "Function1"), "DEF");
}

TEST_F(IniFaultTest, ReadOnlyFolderLeavesTheOriginalForOrdinaryUsers) {
  if (!PermissionsStopWrites()) GTEST_SKIP() << "permissions do not stop this process";
  WriteBytes(path_, kOriginal);
  using std::filesystem::perms;
  std::filesystem::permissions(folder_.Path(), perms::owner_read | perms::owner_exec);
  const bool written = Write("GF46_1", "Function1", "NAV1_DUAL");
  std::filesystem::permissions(folder_.Path(), perms::owner_all);
  EXPECT_FALSE(written);
  EXPECT_EQ(FileBytes(), kOriginal);
  EXPECT_FALSE(TempFileLeft());
}

}  // namespace
