// The panel commands as a scenario uses them: their words, their ERROR lines, and the checks of
// what was sent, on virtual units that the device layer has not opened (no plug-in runs here).
#include <gtest/gtest.h>

#include <string>

#include "DravsimTestSupport.h"
#include "dravsim/CommandTable.h"
#include "dravsim/PanelBoard.h"

namespace dravsim::testing {
namespace {

class PanelCommandsTest : public ScenarioTest {};

TEST_F(PanelCommandsTest, PanelWordsAreCommandsNow) {
  for (const char* line : {"plug GF-P8 as a", "hid-device 1 2 as b", "unplug a", "replug a",
                           "feature a 4 = 00", "fail a read on", "report a 00", "press a 1",
                           "release a 1", "switch a 1 on", "turn a A 1", "lever a A 1",
                           "selector a 1 1", "expect sent a output 00", "expect sent-count a 0",
                           "expect no-sent a", "expect display a 1 \"x\"", "expect leds a 0",
                           "expect colour a 1 0 0 0", "expect brightness a 0",
                           "expect units GF-P8 0", "show"}) {
    const ScenarioResult result = RunWithoutPlugin(line);
    EXPECT_EQ(Output().find("not yet available"), std::string::npos) << line << "\n" << Output();
    (void)result;
  }
}

TEST_F(PanelCommandsTest, PlugChecksItsWords) {
  const ScenarioResult result = RunWithoutPlugin(
      "plug GF-P8 as p\n"
      "plug GF-P8 as p\n"
      "plug GF-XX as x\n"
      "plug GF-P8 q\n"
      "plug GF-MCPPro as pro version 0x0200 serial \"A 1\"\n"
      "plug GF-MCP as m version 70000\n"
      "plug GF-MCP as m2 colour red\n"
      "plug GF-MCP as m3 version\n");
  EXPECT_EQ(result.errors, 6) << Output();
  EXPECT_TRUE(Contains(Output(), "test.scn:2: ERROR plug: a unit named \"p\" is already plugged"));
  EXPECT_TRUE(Contains(Output(), "test.scn:3: ERROR plug: unknown model \"GF-XX\""));
  EXPECT_TRUE(Contains(Output(), "test.scn:4: ERROR plug: usage: plug MODEL as NAME"));
  EXPECT_TRUE(Contains(Output(), "test.scn:6: ERROR plug: bad number \"70000\""));
  EXPECT_TRUE(Contains(Output(), "test.scn:7: ERROR plug: usage"));
  EXPECT_TRUE(Contains(Output(), "test.scn:8: ERROR plug: usage"));
}

TEST_F(PanelCommandsTest, UnknownUnitsAndWordsThatDoNotFitTheModel) {
  const ScenarioResult result = RunWithoutPlugin(
      "plug GF-P8 as p\n"
      "plug GF-T8 as t\n"
      "hid-device 0x046D 0xC52B as mouse\n"
      "press nobody 1\n"          // 4
      "switch p 1 on\n"           // 5: a P8 has buttons
      "press t 1\n"               // 6: a T8 has switches
      "turn p A 1\n"              // 7
      "lever p A 10\n"            // 8
      "selector p 1 1\n"          // 9
      "press p 9\n"               // 10
      "switch t 1 maybe\n"        // 11
      "report p 00 01 02\n"       // 12: longer than 2 bytes
      "report p zz\n"             // 13
      "press mouse 1\n"           // 14
      "report mouse 00\n"         // 15
      "fail p sideways on\n"      // 16
      "feature p 4 00 01\n"       // 17
      "unplug nobody\n");         // 18
  EXPECT_EQ(result.errors, 15) << Output();
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "test.scn:4: ERROR press: unknown unit \"nobody\""));
  EXPECT_TRUE(Contains(out, "test.scn:5: ERROR switch: a GF-P8 has no switches"));
  EXPECT_TRUE(Contains(out, "test.scn:6: ERROR press: a GF-T8 has no push buttons"));
  EXPECT_TRUE(Contains(out, "test.scn:7: ERROR turn: a GF-P8 has no encoders"));
  EXPECT_TRUE(Contains(out, "test.scn:8: ERROR lever: a GF-P8 has no levers"));
  EXPECT_TRUE(Contains(out, "test.scn:9: ERROR selector: a GF-P8 has no selector"));
  EXPECT_TRUE(Contains(out, "test.scn:10: ERROR press: a GF-P8 input 9 is not one of 1..8"));
  EXPECT_TRUE(Contains(out, "test.scn:11: ERROR switch: expected on or off"));
  EXPECT_TRUE(Contains(out, "test.scn:12: ERROR report: the report has 3 bytes; p reads 2"));
  EXPECT_TRUE(Contains(out, "test.scn:13: ERROR report: bytes are two-digit hex words"));
  EXPECT_TRUE(Contains(out, "test.scn:14: ERROR press: mouse is not a panel of the family"));
  EXPECT_TRUE(Contains(out, "test.scn:15: ERROR report: mouse is not a panel of the family"));
  EXPECT_TRUE(Contains(out, "test.scn:16: ERROR fail: usage"));
  EXPECT_TRUE(Contains(out, "test.scn:17: ERROR feature: usage"));
  EXPECT_TRUE(Contains(out, "test.scn:18: ERROR unplug: unknown unit \"nobody\""));
}

TEST_F(PanelCommandsTest, AReportToAUnitTheLayerHasNotOpenedIsAnErrorNotAHang) {
  const ScenarioResult result = RunWithoutPlugin(
      "plug GF-P8 as p\n"
      "press p 1\n"
      "report p 00 01\n");
  EXPECT_EQ(result.errors, 2) << Output();
  EXPECT_TRUE(Contains(Output(), "test.scn:2: ERROR press: p is not open in the device layer"));
}

TEST_F(PanelCommandsTest, HotPlugWordsFollowThePlugState) {
  const ScenarioResult result = RunWithoutPlugin(
      "plug GF-P8 as p\n"
      "replug p\n"    // still plugged
      "unplug p\n"
      "unplug p\n"    // already gone
      "replug p\n"
      "feature p 4 = 00 81\n"
      "fail p write on\n"
      "fail p write off\n");
  EXPECT_EQ(result.errors, 2) << Output();
  EXPECT_TRUE(Contains(Output(), "test.scn:2: ERROR replug: p is still plugged"));
  EXPECT_TRUE(Contains(Output(), "test.scn:4: ERROR unplug: p is not plugged"));
}

TEST_F(PanelCommandsTest, ChecksOfSentReportsOnAUnitNothingWasSentTo) {
  const ScenarioResult result = RunWithoutPlugin(
      "plug GF-MCP as mcp\n"
      "plug GF-WCP as wcp\n"
      "expect no-sent mcp\n"                      // pass
      "expect sent-count mcp 0\n"                 // pass
      "expect units GF-MCP 0\n"                   // pass: no layer running
      "expect sent mcp feature 0d 05\n"           // FAIL
      "expect display mcp 1 \"HDG\"\n"            // FAIL
      "expect leds mcp 5\n"                       // FAIL
      "expect brightness mcp 7\n"                 // FAIL
      "expect colour wcp 1 100 0 0\n"             // FAIL
      "expect display mcp 6 \"x\"\n"              // ERROR: five displays
      "expect colour mcp 1 0 0 0\n"               // ERROR
      "expect brightness wcp 1\n"                 // ERROR
      "expect units GF-MCP 5\n"                   // ERROR: four slots
      "expect units GF-TPM 0\n"                   // ERROR
      "expect sent mcp input 00\n");              // ERROR
  EXPECT_EQ(result.passed, 3) << Output();
  EXPECT_EQ(result.failed, 5) << Output();
  EXPECT_EQ(result.errors, 6) << Output();
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "test.scn:6: FAIL sent mcp feature [0d 05]; found nothing sent"));
  EXPECT_TRUE(Contains(out, "test.scn:7: FAIL display mcp 1 \"HDG\"; found nothing sent to it"));
  EXPECT_TRUE(Contains(out, "test.scn:8: FAIL leds mcp 0x5; found no light report sent"));
  EXPECT_TRUE(Contains(out, "test.scn:12: ERROR expect colour: mcp (GF-MCP) has no coloured lights"));
  EXPECT_TRUE(Contains(out, "test.scn:13: ERROR expect brightness: wcp (GF-WCP) has no brightness report"));
  EXPECT_TRUE(Contains(out, "test.scn:15: ERROR expect units: unknown model \"GF-TPM\""));
}

TEST_F(PanelCommandsTest, ShowDrawsEveryUnitOrOne) {
  Run("show\nplug GF-MCP as mcp\nplug GF-P8 as p\nshow p\nshow\nshow nobody\n", false);
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "(no units plugged)"));
  EXPECT_TRUE(Contains(out, "p (GF-P8), not open"));
  EXPECT_TRUE(Contains(out, "mcp (GF-MCP), not open\n  display 1: (dark)"));
  EXPECT_TRUE(Contains(out, "  display 5: (dark)\n"));
  EXPECT_TRUE(Contains(out, "ERROR show: unknown unit \"nobody\""));
}

TEST(PanelBoardTest, PathsAreUpperCaseAndUniquePerName) {
  EXPECT_EQ(VirtualUnitPath(0x09F3, 0x0020, "left"), "\\\\?\\HID#VID_09F3&PID_0020#DRAVSIM_LEFT");
  EXPECT_EQ(VirtualUnitPath(0x046D, 0xC52B, "m"), "\\\\?\\HID#VID_046D&PID_C52B#DRAVSIM_M");
  EXPECT_EQ(FindPanelModelByName("GF-MCPPro")->moduleType, 12u);
  EXPECT_EQ(FindPanelModelByName("gf-p8"), nullptr);
}

}  // namespace
}  // namespace dravsim::testing
