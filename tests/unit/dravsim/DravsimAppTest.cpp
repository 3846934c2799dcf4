// dravsim as a program: its command line, several files each in a fresh simulator with one
// closing line, --root, interactive input, and the built-in demo against the real plug-in.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "DravsimTestSupport.h"
#include "dravsim/DravPlugin.h"
#include "dravsim/DravsimApp.h"

namespace dravsim::testing {
namespace {

std::optional<DravsimOptions> Parse(std::vector<std::string_view> args, std::string& error) {
  return ParseCommandLine(args, error);
}

TEST(DravsimCommandLine, OptionsAndFiles) {
  std::string error;
  const auto options = Parse({"--quiet", "a.scn", "--root", "/tmp/x", "b.scn"}, error);
  ASSERT_TRUE(options) << error;
  EXPECT_TRUE(options->quiet);
  EXPECT_FALSE(options->interactive);
  EXPECT_EQ(options->root, std::filesystem::path("/tmp/x"));
  EXPECT_EQ(options->files, (std::vector<std::string>{"a.scn", "b.scn"}));

  const auto none = Parse({}, error);
  ASSERT_TRUE(none);
  EXPECT_TRUE(none->files.empty());  // the demo
  EXPECT_FALSE(none->root);
}

TEST(DravsimCommandLine, BadCommandLinesAreRefused) {
  std::string error;
  EXPECT_FALSE(Parse({"--root"}, error));
  EXPECT_EQ(error, "--root needs a folder");
  EXPECT_FALSE(Parse({"--loud"}, error));
  EXPECT_EQ(error, "unknown option --loud");
  EXPECT_FALSE(Parse({"--interactive", "a.scn"}, error));
  const auto stdinFile = Parse({"-"}, error);  // a lone dash is a file name, not an option
  ASSERT_TRUE(stdinFile);
  EXPECT_EQ(stdinFile->files, (std::vector<std::string>{"-"}));
}

class DravsimAppTest : public ScenarioTest {
 protected:
  void SetUp() override {
    ScenarioTest::SetUp();
    files_.emplace(std::nullopt);
  }

  std::string WriteScenario(const std::string& name, const std::string& text) {
    const std::filesystem::path path = files_->Path() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }

  int RunApp(const DravsimOptions& options, const std::string& input = "",
             bool prompt = false) {
    std::istringstream in(input);
    const DravsimIo io{in, out_, prompt};
    return RunDravsim(options, io, FakePlugin::EntryPoints());
  }

  std::optional<ScenarioFolder> files_;
  std::ostringstream out_;
};

TEST_F(DravsimAppTest, EachFileRunsInAFreshSimulatorAndOneLineSumsThemUp) {
  DravsimOptions options;
  options.quiet = true;
  options.files = {
      WriteScenario("one.scn",
                    "ini\n[CONFIG]\nA=1\nend\n"
                    "dataref sim/cockpit/radios/com1_freq_hz = 1\n"
                    "boot\n"
                    "expect ini CONFIG A = 1\n"),
      WriteScenario("two.scn",
                    "expect ini CONFIG A absent\n"
                    "expect dataref sim/cockpit/radios/com1_freq_hz = 11850\n"
                    "expect no-event \"plugin start\"\n"
                    "boot\n"),
  };
  EXPECT_EQ(RunApp(options), 0);
  EXPECT_EQ(out_.str(), "4 passed, 0 failed\n");
  // The first file's plug-in was shut down before the second booted its own.
  EXPECT_EQ(FakePlugin::calls, (std::vector<std::string>{"start", "enable", "disable", "stop",
                                                         "start", "enable", "disable", "stop"}));
}

TEST_F(DravsimAppTest, FailuresAndErrorsOfAllFilesMakeTheExitCodeOne) {
  DravsimOptions options;
  options.quiet = true;
  const std::string failing = WriteScenario("fail.scn", "expect no-window\nexpect window \"x\"\n");
  const std::string missing = (files_->Path() / "missing.scn").string();
  options.files = {failing, missing};
  EXPECT_EQ(RunApp(options), 1);
  EXPECT_EQ(out_.str(), failing + ":2: FAIL window \"x\"; found no window\n" + missing +
                            ": ERROR cannot read the file\n1 passed, 2 failed\n");
}

TEST_F(DravsimAppTest, TemporaryFoldersAreRemovedAndAGivenRootIsKept) {
  DravsimOptions options;
  options.quiet = true;
  options.files = {WriteScenario("ini.scn", "ini\n[DEBUG]\nDebugEnabled=1\nend\n")};
  EXPECT_EQ(RunApp(options), 0);
  EXPECT_FALSE(std::filesystem::exists(host().Root()));

  options.root = files_->Path() / "xplane";
  EXPECT_EQ(RunApp(options), 0);
  EXPECT_EQ(ReadFileBytes(*options.root / "Resources" / "plugins" / "DRAV" / "DRAV.INI"),
            "[DEBUG]\nDebugEnabled=1\n");
}

TEST_F(DravsimAppTest, InteractiveReadsCommandsAndBlocksFromTheInput) {
  DravsimOptions options;
  options.interactive = true;
  const int code = RunApp(options,
                          "file note.txt\n"
                          "hello\n"
                          "end\n"
                          "expect file note.txt\n"
                          "hello\n"
                          "end\n"
                          "expect window \"none\"\n",
                          /*prompt=*/true);
  EXPECT_EQ(code, 1);
  // A person at a terminal is greeted with a few example commands before the first prompt.
  const std::string out = out_.str();
  const std::size_t firstPrompt = out.find("> ");
  ASSERT_NE(firstPrompt, std::string::npos);
  EXPECT_NE(out.substr(0, firstPrompt).find("plug GF-P8 as box"), std::string::npos) << out;
  EXPECT_EQ(out.substr(firstPrompt),
            "> ... ... "
            "  file note.txt  -> 1 lines written to note.txt\n"
            "> ... ... "
            "  expect file note.txt  -> ok\n"
            "> stdin:7: FAIL window \"none\"; found no window\n"
            "> \n"
            "1 passed, 1 failed\n");
}

TEST_F(DravsimAppTest, InteractiveWithoutATerminalShowsNoPrompt) {
  DravsimOptions options;
  options.interactive = true;
  options.quiet = true;
  EXPECT_EQ(RunApp(options, "frame\nexpect no-window\n"), 0);
  EXPECT_EQ(out_.str(), "1 passed, 0 failed\n");
}

// With the panels made by another program, a scenario that plugs one of its own is set aside with
// the reason, not run against a board that does not exist.
TEST_F(DravsimAppTest, PlatformPanelsAreMadeElsewhereSoAPlugSetsTheScenarioAside) {
  std::string error;
  const auto parsed = Parse({"--hid", "platform", "a.scn"}, error);
  ASSERT_TRUE(parsed) << error;
  EXPECT_TRUE(parsed->platform);
  EXPECT_FALSE(parsed->uhid);
  EXPECT_FALSE(Parse({"--hid", "wine"}, error));
  EXPECT_EQ(error, "--hid needs virtual, uhid or platform");

  DravsimOptions options = *parsed;
  options.quiet = true;
  options.files = {WriteScenario("plug.scn", "boot\nplug GF-P8 as p8\nexpect units GF-P8 1\n")};
  RunApp(options);
  EXPECT_NE(out_.str().find("plug.scn:2: SKIPPED with --hid platform the panels are made by another program"),
            std::string::npos)
      << out_.str();
  EXPECT_EQ(out_.str().find("FAIL"), std::string::npos) << out_.str();
}

// Needs the plug-in itself: the demo boots it, watches the splash window come and go and checks
// what it logs.
TEST_F(DravsimAppTest, BuiltInDemoPassesWithTheRealPlugin) {
  DravsimOptions options;
  options.quiet = true;
  std::istringstream in;
  const DravsimIo io{in, out_, false};
  EXPECT_EQ(RunDravsim(options, io, DravPluginEntryPoints()), 0) << out_.str();
  const std::string out = out_.str();
  EXPECT_TRUE(out.ends_with(" passed, 0 failed\n")) << out;
  EXPECT_FALSE(out.starts_with("0 passed")) << out;
}

}  // namespace
}  // namespace dravsim::testing
