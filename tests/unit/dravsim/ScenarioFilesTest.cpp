// The plug-in folder's files: `file` blocks, `expect ini` through the plug-in's INI reader,
// `expect file` and `expect log`.
#include <gtest/gtest.h>

#include <fstream>

#include "DravsimTestSupport.h"

namespace dravsim::testing {
namespace {

class ScenarioFilesTest : public ScenarioTest {
 protected:
  void WriteRaw(const char* name, const std::string& bytes) {
    std::ofstream(PluginFolder() / name, std::ios::binary) << bytes;
  }
};

TEST_F(ScenarioFilesTest, ExpectIniFindsValuesAndTellsEmptyFromAbsent) {
  const ScenarioResult result = Run(
      "ini\n"
      "[CONFIG]\n"
      "Name=two words\n"
      "Empty=\n"
      "end\n"
      "expect ini CONFIG Name = \"two words\"\n"
      "expect ini CONFIG Empty = \"\"\n"
      "expect ini CONFIG Empty absent\n"
      "expect ini CONFIG Missing = \"\"\n"
      "expect ini CONFIG Missing absent\n"
      "expect ini OTHER Name absent\n"
      "expect ini CONFIG Name = two\n");
  EXPECT_EQ(result.passed, 4) << Output();
  EXPECT_EQ(result.failed, 3);
  EXPECT_EQ(Output(),
            "test.scn:8: FAIL ini [CONFIG] Empty absent; found Empty = \"\"\n"
            "test.scn:9: FAIL ini [CONFIG] Missing = \"\"; found no such key\n"
            "test.scn:12: FAIL ini [CONFIG] Name = \"two\"; found \"two words\"\n");
}

TEST_F(ScenarioFilesTest, ExpectIniWithoutAFileFindsNoKey) {
  const ScenarioResult result = Run(
      "expect ini CONFIG Any absent\n"
      "expect ini CONFIG Any = x y\n");  // a value with blanks must be quoted
  EXPECT_EQ(result.passed, 1);
  EXPECT_EQ(result.errors, 1);
}

TEST_F(ScenarioFilesTest, ExpectFileComparesLinesWhateverTheirLineEnds) {
  WriteRaw("crlf.txt", "first\r\nsecond\r\n");
  WriteRaw("noend.txt", "first\nsecond");
  const ScenarioResult result = Run(
      "expect file crlf.txt\n"
      "first\n"
      "second\n"
      "end\n"
      "expect file noend.txt\n"
      "first\n"
      "second\n"
      "end\n");
  EXPECT_EQ(result.passed, 2) << Output();
  EXPECT_EQ(result.Failures(), 0);
}

TEST_F(ScenarioFilesTest, ExpectFileShowsTheFirstDifference) {
  WriteRaw("a.txt", "one\ntwo\n");
  const ScenarioResult result = Run(
      "expect file a.txt\n"
      "one\n"
      "TWO\n"
      "end\n"
      "expect file a.txt\n"
      "one\n"
      "end\n"
      "expect file a.txt\n"
      "one\n"
      "two\n"
      "three\n"
      "end\n"
      "expect file missing.txt\n"
      "end\n"
      "expect file ../outside.txt\n"
      "end\n");
  EXPECT_EQ(result.failed, 4);
  EXPECT_EQ(result.errors, 1);
  EXPECT_EQ(Output(),
            "test.scn:1: FAIL file a.txt line 2 \"TWO\"; found \"two\"\n"
            "test.scn:5: FAIL file a.txt the end after 1 lines; found line 2 \"two\"\n"
            "test.scn:8: FAIL file a.txt line 3 \"three\"; found the end after 2 lines\n"
            "test.scn:13: FAIL file missing.txt with 0 lines; found no such file\n"
            "test.scn:15: ERROR expect file: the file name \"../outside.txt\" must stay inside "
            "the plug-in folder\n");
}

TEST_F(ScenarioFilesTest, FileBlockRoundTripsThroughExpectFile) {
  const ScenarioResult result = Run(
      "file assignments/unit1.ini\n"
      "  keeps its indentation\n"
      "end\n"
      "expect file assignments/unit1.ini\n"
      "  keeps its indentation\n"
      "end\n"
      "file /etc/drav.txt\n"
      "end\n");
  EXPECT_EQ(result.passed, 1) << Output();
  EXPECT_EQ(result.errors, 1);
  EXPECT_TRUE(Contains(Output(), "test.scn:7: ERROR file: the file name \"/etc/drav.txt\""));
}

TEST_F(ScenarioFilesTest, MissingLogHasNoLines) {
  const ScenarioResult result = Run(
      "expect no-log \"+++ LOGGING STARTED +++\"\n"
      "expect log \"+++ LOGGING STARTED +++\"\n");
  EXPECT_EQ(result.passed, 1);
  EXPECT_EQ(Output(),
            "test.scn:2: FAIL log line \"+++ LOGGING STARTED +++\"; found an empty log\n");
}

TEST_F(ScenarioFilesTest, LogLinesMatchWholeLines) {
  WriteRaw("DRAVLog.txt", "+++ LOGGING STARTED +++\r\nDrav plugin 2.63 (MR).\r\n");
  const ScenarioResult result = Run(
      "expect log \"Drav plugin 2.63 (MR).\"\n"
      "expect log \"Drav plugin\"\n"
      "expect no-log \"+++ LOGGING STARTED +++\"\n");
  EXPECT_EQ(result.passed, 1);
  EXPECT_EQ(Output(),
            "test.scn:2: FAIL log line \"Drav plugin\"; found 2 log lines without it, the last "
            "\"Drav plugin 2.63 (MR).\"\n"
            "test.scn:3: FAIL no log line \"+++ LOGGING STARTED +++\"; found it at line 1\n");
}

}  // namespace
}  // namespace dravsim::testing
