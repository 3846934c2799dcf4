// The runner's reporting: FAIL and ERROR lines with FILE:LINE, counts, going on after an error,
// blocks and their missing `end`, the commands that are not available yet, quiet and verbose.
#include <gtest/gtest.h>

#include <string>

#include "DravsimTestSupport.h"
#include "dravsim/CommandTable.h"

namespace dravsim::testing {
namespace {

class ScenarioRunnerTest : public ScenarioTest {};

TEST_F(ScenarioRunnerTest, CountsPassesFailuresAndErrorsSeparately) {
  const ScenarioResult result = Run(
      "expect dataref sim/cockpit/radios/com1_freq_hz = 11850\n"
      "expect dataref sim/cockpit/radios/com1_freq_hz = 1\n"
      "bogus\n"
      "expect no-window\n");
  EXPECT_EQ(result.passed, 2);
  EXPECT_EQ(result.failed, 1);
  EXPECT_EQ(result.errors, 1);
  EXPECT_EQ(result.Failures(), 2);
}

TEST_F(ScenarioRunnerTest, FailLineNamesFileLineExpectationAndFinding) {
  Run("# a comment line counts\n"
      "\n"
      "expect dataref sim/cockpit/radios/com1_freq_hz = 0x2E48   # 11848\n");
  EXPECT_EQ(Output(),
            "test.scn:3: FAIL dataref sim/cockpit/radios/com1_freq_hz = 0x2E48; found 11850\n");
}

TEST_F(ScenarioRunnerTest, UnknownCommandIsAnErrorAndTheScenarioGoesOn) {
  const ScenarioResult result = Run(
      "fly-to KSEA\n"
      "expect nothing-like-this\n"
      "expect\n"
      "\"frame\"\n"
      "dataref x737/after int = 3\n"
      "expect dataref x737/after = 3\n");
  EXPECT_EQ(Output(),
            "test.scn:1: ERROR unknown command \"fly-to\"\n"
            "test.scn:2: ERROR unknown check \"expect nothing-like-this\"\n"
            "test.scn:3: ERROR expect: what to expect is missing\n"
            "test.scn:4: ERROR unknown command \"frame\"\n");
  EXPECT_EQ(result.errors, 4);
  EXPECT_EQ(result.passed, 1);
}

TEST_F(ScenarioRunnerTest, LexerErrorsAndBadNumbersAreErrors) {
  const ScenarioResult result = Run(
      "echo \"unterminated\n"
      "frame ten\n"
      "frame \"3\"\n"
      "run -1\n"
      "frame 1 2\n"
      "sleep-ms 1.5\n");
  EXPECT_EQ(result.errors, 6);
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "test.scn:1: ERROR unterminated quote\n"));
  EXPECT_TRUE(Contains(out, "test.scn:2: ERROR frame: bad number \"ten\""));
  EXPECT_TRUE(Contains(out, "test.scn:3: ERROR frame: bad number \"3\""));
  EXPECT_TRUE(Contains(out, "test.scn:4: ERROR run: the time must be from 0"));
  EXPECT_TRUE(Contains(out, "test.scn:5: ERROR frame: usage: frame [N]\n"));
  EXPECT_TRUE(Contains(out, "test.scn:6: ERROR sleep-ms: bad number \"1.5\""));
  EXPECT_EQ(host().FrameNumber(), 0);
}

TEST_F(ScenarioRunnerTest, EveryCommandRowHasAHandlerAndAUniqueName) {
  const auto rows = AllCommands();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_NE(rows[i].handler, nullptr) << rows[i].name;
    EXPECT_FALSE(rows[i].usage.empty()) << rows[i].name;
    for (std::size_t j = i + 1; j < rows.size(); ++j) EXPECT_NE(rows[i].name, rows[j].name);
  }
}

TEST_F(ScenarioRunnerTest, IniBlockBecomesTheFileByteForByteWithLineFeeds) {
  const ScenarioResult result = Run(
      "ini\r\n"
      "; a comment, \"quotes\" and # stay\r\n"
      "[CONFIG]\r\n"
      "  Indented = yes  \r\n"
      "\r\n"
      "ShowCustomDatarefs=1\r\n"
      "  end  \r\n"
      "expect ini CONFIG ShowCustomDatarefs = 1\n");
  EXPECT_EQ(result.errors, 0) << Output();
  EXPECT_EQ(ReadFileBytes(PluginFolder() / "DRAV.INI"),
            "; a comment, \"quotes\" and # stay\n[CONFIG]\n  Indented = yes  \n\n"
            "ShowCustomDatarefs=1\n");
  EXPECT_EQ(result.passed, 1);
}

TEST_F(ScenarioRunnerTest, EmptyBlockWritesAnEmptyFile) {
  Run("ini\nend\nfile sub/empty.txt\nend\n");
  EXPECT_TRUE(std::filesystem::exists(PluginFolder() / "DRAV.INI"));
  EXPECT_EQ(ReadFileBytes(PluginFolder() / "DRAV.INI"), "");
  EXPECT_EQ(ReadFileBytes(PluginFolder() / "sub" / "empty.txt"), "");
}

TEST_F(ScenarioRunnerTest, MissingEndIsAnErrorAtTheBlocksLineAndWritesNothing) {
  const ScenarioResult result = Run(
      "frame\n"
      "ini\n"
      "[CONFIG]\n"
      "expect no-window\n");
  EXPECT_EQ(Output(), "test.scn:2: ERROR ini: missing end\n");
  EXPECT_EQ(result.errors, 1);
  EXPECT_EQ(result.passed, 0);  // the block took the rest of the file
  EXPECT_FALSE(std::filesystem::exists(PluginFolder() / "DRAV.INI"));
}

TEST_F(ScenarioRunnerTest, BlockWithBadWordsIsStillReadToItsEnd) {
  const ScenarioResult result = Run(
      "file\n"
      "bogus-inside-block\n"
      "end\n"
      "expect no-window\n");
  EXPECT_EQ(Output(), "test.scn:1: ERROR file: usage: file NAME ... end\n");
  EXPECT_EQ(result.errors, 1);
  EXPECT_EQ(result.passed, 1);
}

TEST_F(ScenarioRunnerTest, QuietPrintsOnlyProblemsAndVerboseTracesEveryCommand) {
  const std::string scenario =
      "echo hello \"big world\"\n"
      "frame 2   # two frames\n"
      "expect no-window\n";
  Run(scenario, /*quiet=*/false);
  const std::string verbose =
      "hello big world\n"
      "  frame 2  -> frame 2, 0.033 s; 0 window(s)\n"
      "  expect no-window  -> ok\n";
  EXPECT_EQ(Output(), verbose);
  Run(scenario, /*quiet=*/true);
  EXPECT_EQ(Output(), verbose);  // nothing more
}

}  // namespace
}  // namespace dravsim::testing
