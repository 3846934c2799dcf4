// The log file: switches, line format, bit dumps, appending, and two threads logging at once.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "../config/PluginFolderSupport.h"
#include "base/Log.h"

namespace {

#ifdef _WIN32
const std::string kEnd = "\r\n";
#else
const std::string kEnd = "\n";
#endif

class LogTest : public drav_test::PluginFolderTest {
 protected:
  LogTest() : PluginFolderTest("log") {}
  void EnableLog() { drav::gDebug.DebugEnabled = 1; }
};

TEST_F(LogTest, MasterSwitchOffWritesNothingAnywhere) {
  drav::gDebug.DebugEnabled = 0;
  drav::gDebug.DebugViewEnabled = 1;
  ::testing::internal::CaptureStderr();
  drav::LogLine("line");
  drav::LogFormat("value %d", 1);
  drav::LogBits16("bits", 1);
  drav::LogBits32("bits", 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_FALSE(LogExists());
}

TEST_F(LogTest, AnyNonZeroMasterSwitchLogs) {
  drav::gDebug.DebugEnabled = 2;
  drav::LogLine("+++ LOGGING STARTED +++");
  drav::LogFormat("GFP8_Module::HandleInput -  Button = %d, Value = %d", 3, 1);
  EXPECT_EQ(LogText(), "+++ LOGGING STARTED +++" + kEnd +
                           "GFP8_Module::HandleInput -  Button = 3, Value = 1" + kEnd);
}

TEST_F(LogTest, LinesAreAppendedNeverTruncated) {
  drav_test::WriteBytes(LogPath(), "from an earlier run" + kEnd);
  EnableLog();
  drav::LogLine("first");
  drav::LogLine("");
  drav::LogLine("second");
  EXPECT_EQ(LogText(), "from an earlier run" + kEnd + "first" + kEnd + kEnd + "second" + kEnd);
}

TEST_F(LogTest, MirrorGoesToTheDebuggerOutputOnlyWhenSwitchedOn) {
#ifdef _WIN32
  GTEST_SKIP() << "the mirror goes to OutputDebugStringA there; WindowsPlatformTest watches it";
#endif
  EnableLog();
  ::testing::internal::CaptureStderr();
  drav::LogLine("quiet");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");

  drav::gDebug.DebugViewEnabled = 1;
  ::testing::internal::CaptureStderr();
  drav::LogLine("mirrored");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "mirrored" + kEnd);
  EXPECT_EQ(LogText(), "quiet" + kEnd + "mirrored" + kEnd);
}

TEST_F(LogTest, BitDumps) {
  EnableLog();
  drav::LogBits16("GFP8_Module::GetButton - BtnState", 1);
  drav::LogBits16("b16", 0x8004);
  drav::LogBits16("b16", 0x10000);  // only bits 0 to 15 show
  drav::LogBits32("GFDIO_Module::GetButton - BtnState", 1);
  drav::LogBits32("b32", 0x80000002u);
  EXPECT_EQ(LogText(), "GFP8_Module::GetButton - BtnState = 1" + std::string(15, '0') + kEnd +
                           "b16 = 0010000000000001" + kEnd +  //
                           "b16 = " + std::string(16, '0') + kEnd +
                           "GFDIO_Module::GetButton - BtnState = " + std::string(31, '0') + "1" +
                           kEnd + "b32 = 1" + std::string(29, '0') + "10" + kEnd);
}

TEST_F(LogTest, LongTextIsCutTo510Characters) {
  EnableLog();
  const std::string longText(600, 'a');
  drav::LogLine(longText.c_str());
  drav::LogFormat("%s%s", longText.c_str(), "tail");
  const std::string cut = std::string(drav::kLogLineMax, 'a') + kEnd;
  EXPECT_EQ(LogText(), cut + cut);
}

TEST_F(LogTest, NullTextAndLabelDoNotCrash) {
  EnableLog();
  drav::LogLine(nullptr);
  drav::LogBits16(nullptr, 3);
  EXPECT_EQ(LogText(), kEnd + " = 1100000000000000" + kEnd);
}

TEST_F(LogTest, UnwritableLogLosesLinesQuietly) {
  EnableLog();
  std::filesystem::create_directory(LogPath());
  drav::LogLine("lost");
  EXPECT_TRUE(std::filesystem::is_directory(LogPath()));
  std::filesystem::remove(LogPath());
  drav::LogLine("kept");
  EXPECT_EQ(LogText(), "kept" + kEnd);
}

TEST_F(LogTest, LinesFromTwoThreadsNeverInterleave) {
  EnableLog();
  constexpr int kLinesPerThread = 500;
  // Long lines make a torn write likely if the appends were not serialised.
  auto logLines = [](char tag) {
    for (int n = 0; n < kLinesPerThread; ++n) {
      drav::LogFormat("%c %04d %s", tag, n, std::string(300, tag).c_str());
    }
  };
  std::thread mainLike(logLines, 'M');
  std::thread inputLike(logLines, 'I');
  mainLike.join();
  inputLike.join();

  const std::vector<std::string> lines = drav_test::SplitLines(LogText());
  ASSERT_EQ(lines.size(), 2u * kLinesPerThread);
  int next['Z'] = {};
  for (const std::string& line : lines) {
    ASSERT_EQ(line.size(), 7u + 300u) << line;
    const char tag = line[0];
    ASSERT_TRUE(tag == 'M' || tag == 'I') << line;
    const int n = std::stoi(line.substr(2, 4));
    EXPECT_EQ(n, next[static_cast<int>(tag)]++) << "lines of one thread out of order";
    EXPECT_EQ(line.substr(7), std::string(300, tag)) << line;
  }
  EXPECT_EQ(next[static_cast<int>('M')], kLinesPerThread);
  EXPECT_EQ(next[static_cast<int>('I')], kLinesPerThread);
}

}  // namespace

// ---- X-Plane's Log.txt ---------------------------------------------------------------------------

class SimLogTest : public LogTest {
 protected:
  void SetUp() override {
    LogTest::SetUp();
    drav::ResetSimLog();
  }
  void TearDown() override {
    drav::ResetSimLog();
    LogTest::TearDown();
  }
  // XPLMDebugString's file: what X-Plane keeps in its own folder, written as given.
  std::string SimLogText() const {
    return drav_test::ReadBytes(PluginFolder().parent_path().parent_path().parent_path() / "Log.txt").value_or("");
  }
};

TEST_F(SimLogTest, LinesArePrefixedEndedAndCutWhateverTheDebugSwitchesSay) {
  drav::SimLogLine("panels found: GF-46 Unit 1.");
  drav::SimLogFormat("%s at %d", "value", 3);
  drav::SimLogLine(std::string(600, 'x').c_str());
  drav::SimLogLine(nullptr);
  EXPECT_EQ(SimLogText(), "DRAV: panels found: GF-46 Unit 1.\nDRAV: value at 3\nDRAV: " + std::string(510, 'x') +
                              "\nDRAV: \n");
  EXPECT_FALSE(LogExists());  // the plug-in's own log stays off
}

TEST_F(SimLogTest, EachUnknownFunctionIsToldOnceAndAFloodIsCut) {
  drav::SimLogUnknownFunction("GFP8_1", "Function4", "LANDING_LITES");
  drav::SimLogUnknownFunction("GFP8_1", "Function4", "LANDING_LITES");  // the unit loaded again
  drav::SimLogUnknownFunction("GFP8_2", "Function4", "LANDING_LITES");  // another unit: told
  EXPECT_EQ(SimLogText(),
            "DRAV: DRAV.INI [GFP8_1] Function4 = LANDING_LITES names no function; the control does nothing.\n"
            "DRAV: DRAV.INI [GFP8_2] Function4 = LANDING_LITES names no function; the control does nothing.\n");
  for (int key = 0; key < 100; ++key) drav::SimLogUnknownFunction("GFDIO_1", "Input" + std::to_string(key), "X");
  const std::string text = SimLogText();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 33);
  EXPECT_NE(text.find("further values that name no function are not listed"), std::string::npos);
  drav::ResetSimLog();  // the next start tells them again
  drav::SimLogUnknownFunction("GFP8_1", "Function4", "LANDING_LITES");
  const std::string again = SimLogText();
  EXPECT_EQ(std::count(again.begin(), again.end(), '\n'), 34);
}

TEST_F(SimLogTest, PermissionDeniedNamesTheUdevRuleAndOtherReasonsAreGivenAsTheyAre) {
  drav::SimLogUnopenedPanel("GF-46", "/dev/hidraw3", "permission denied");
  drav::SimLogUnopenedPanel("GF-P8", "\\\\?\\HID#VID_09F3&PID_0020", "access denied");
  EXPECT_EQ(SimLogText(),
            "DRAV: GF-46 at /dev/hidraw3 could not be opened: permission denied. Install the udev rule "
            "70-drav-panels.rules (see docs/install.md) and plug the panel in again.\n"
            "DRAV: GF-P8 at \\\\?\\HID#VID_09F3&PID_0020 could not be opened: access denied.\n");
}
