// Reads under an IniReadSnapshot find exactly what reads of the file on disk find, over files that
// exercise every line rule; the copy follows writes made through the reader and nothing else.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "PluginFolderSupport.h"
#include "base/IniFile.h"

namespace {

class IniSnapshotTest : public drav_test::PluginFolderTest {
 protected:
  IniSnapshotTest() : PluginFolderTest("inisnapshot") {}

  static std::string Read(const char* section, const char* key) {
    return drav::ReadIniString(drav::kConfigFileName, section, key, "<default>");
  }
};

struct Probe {
  const char* section;
  const char* key;
};

TEST_F(IniSnapshotTest, FindsWhatTheFileOnDiskGivesUnderEveryLineRule) {
  const std::string longValue(300, 'v');  // cut into a 255 chunk and a remainder
  const std::vector<std::string> files = {
      "",
      "[A]\r\nK=1\r\n[B]\r\nK=2\r\n",
      "[A]\nK=1\r[B]\n\rK=2",                                  // LF, CR, LF CR, no final line end
      "[A]\r\nK=first\r\nK=second\r\n[A]\r\nK=third\r\n",      // duplicates: the first wins
      "x[A]x\r\nK=tag inside a line\r\n[B] K=on the tag line\r\n",
      "[A]\r\nK=" + longValue + "\r\n" + std::string(255, 'k') + "\r\nL=after\r\n",
      std::string("[A]\r\nK=\x01\xff\x00z\r\n", 13),            // binary bytes and a NUL
      ";[A]\r\nK=commented tag opens the section\r\n",
      // Keys are found anywhere in a line, after any '=', never in a comment.
      "[A]\r\nXK=end of a longer key\r\nK=later line\r\n",
      "[A]\r\n;K=comment\r\na=b K=x=after a later equals sign\r\n",
      "[A]\r\n[B] L=on the next section's tag line\r\nK=beyond the section\r\n",
      "[[A]]\r\nK=brackets around the tag\r\n[A\r\n[B]]K=2\r\n",
      "K=before any section\r\n[A]",
  };
  const std::vector<Probe> probes = {{"A", "K"}, {"B", "K"}, {"A", "L"},  {"A", "Missing"},
                                     {"C", "K"}, {"A", "K=x"}, {"[A", "K"}, {"B]", "K"}};
  for (const std::string& file : files) {
    GivenIni(file);
    std::vector<std::string> fromDisk;
    for (const Probe& probe : probes) fromDisk.push_back(Read(probe.section, probe.key));
    const drav::IniReadSnapshot snapshot;
    for (std::size_t i = 0; i < probes.size(); ++i) {
      EXPECT_EQ(Read(probes[i].section, probes[i].key), fromDisk[i])
          << "file " << ::testing::PrintToString(file) << ", [" << probes[i].section << "] " << probes[i].key;
    }
  }
}

TEST_F(IniSnapshotTest, ReadsComeFromTheCopyUntilTheLastSnapshotEnds) {
  GivenIni("[A]\r\nK=old\r\n");
  {
    const drav::IniReadSnapshot outer;
    GivenIni("[A]\r\nK=changed behind the reader's back\r\n");
    EXPECT_EQ(Read("A", "K"), "old") << "the copy stands for the file during a load";
    {
      const drav::IniReadSnapshot inner;
      EXPECT_EQ(Read("A", "K"), "old") << "a nested snapshot keeps the outer copy";
    }
    EXPECT_EQ(Read("A", "K"), "old");
  }
  EXPECT_EQ(Read("A", "K"), "changed behind the reader's back") << "afterwards the file is read again";
}

// One load after another: each snapshot reads the file again, and an index made for other bytes
// (the same length, another value; a file that went away; another file) must never answer. Within a
// load the questions jump between sections and key lengths, as the loader's do.
TEST_F(IniSnapshotTest, EachSnapshotAnswersFromTheFileAsItIsThen) {
  const std::string other = (PluginFolder() / "OTHER.INI").string();
  auto load = [&](const char* expectedK) {
    const drav::IniReadSnapshot snapshot;
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(Read("A", "K"), expectedK);
      EXPECT_EQ(Read("A", "LL"), "a-ll");
      EXPECT_EQ(Read("B", "K"), "b-k");
      EXPECT_EQ(Read("A", "K"), expectedK) << "after another section";
      EXPECT_EQ(Read("B", "LL"), "<default>");
    }
  };
  GivenIni("[A]\r\nK=1\r\nLL=a-ll\r\n[B]\r\nK=b-k\r\n");
  load("1");
  load("1");
  GivenIni("[A]\r\nK=2\r\nLL=a-ll\r\n[B]\r\nK=b-k\r\n");  // one byte differs
  load("2");
  std::filesystem::remove(IniPath());
  {
    const drav::IniReadSnapshot snapshot;
    EXPECT_EQ(Read("A", "K"), "<default>") << "the file went away";
  }
  // The other file takes the slot in between, with bytes of its own.
  drav_test::WriteBytes(other, "[A]\r\nK=other\r\n");
  {
    const drav::IniReadSnapshot snapshot(drav::IniPath{other});
    char value[drav::kIniValueSize];
    drav::ReadIniValueAtPath(other, "A", "K", value, "<default>");
    EXPECT_EQ(std::string(value), "other");
  }
  GivenIni("[A]\r\nK=3\r\nLL=a-ll\r\n[B]\r\nK=b-k\r\n");
  load("3");
}

TEST_F(IniSnapshotTest, WritesThroughTheReaderRefreshTheCopy) {
  const drav::IniReadSnapshot snapshot;  // taken while there is no file at all
  EXPECT_EQ(Read("A", "K"), "<default>");
  drav::WriteIniValue(drav::kConfigFileName, "A", "K", "written");
  EXPECT_EQ(Read("A", "K"), "written");
  drav::WriteIniValue(drav::kConfigFileName, "A", "K", "");
  EXPECT_EQ(Read("A", "K"), "<default>") << "an empty value removed the key";
}

}  // namespace
