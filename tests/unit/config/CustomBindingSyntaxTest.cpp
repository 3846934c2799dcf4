// Reading a custom value: what each form means, where optional words stop, and every way a value
// can be malformed. A malformed value must read as nothing at all, never as part of a binding.
#include <gtest/gtest.h>

#include <string>

#include "config/AssignmentValues.h"
#include "functions/CustomBindingSyntax.h"
#include "functions/CustomBindings.h"

namespace drav {
namespace {

CustomBindingSpec Parsed(const char* value) {
  CustomBindingSpec spec;
  EXPECT_TRUE(ParseCustomBinding(value, &spec)) << value;
  return spec;
}

TEST(CustomBindingSyntaxTest, CommandsOnceInPairsAndHeld) {
  const CustomBindingSpec once = Parsed("cmd sim/autopilot/heading_sync");
  EXPECT_EQ(once.action, CustomAction::kCommandOnce);
  EXPECT_EQ(once.commands[0], "sim/autopilot/heading_sync");
  EXPECT_TRUE(once.commands[1].empty());
  EXPECT_FALSE(once.IsValueControl());

  const CustomBindingSpec pair = Parsed("  cmd\tsim/lights/landing_lights_on   sim/lights/landing_lights_off \r");
  EXPECT_EQ(pair.action, CustomAction::kCommandPair);
  EXPECT_EQ(pair.commands[1], "sim/lights/landing_lights_off");

  EXPECT_EQ(Parsed("hold sim/starters/engage_starter_1").action, CustomAction::kCommandHold);
}

TEST(CustomBindingSyntaxTest, WrittenDatarefsTakeAnElementAndAnOptionalOffValue) {
  const CustomBindingSpec set = Parsed("set sim/cockpit2/switches/panel_brightness_ratio[3] 0.75");
  EXPECT_EQ(set.action, CustomAction::kSetDataref);
  EXPECT_EQ(set.dataref.path, "sim/cockpit2/switches/panel_brightness_ratio");
  EXPECT_EQ(set.dataref.index, 3);
  EXPECT_FLOAT_EQ(set.onValue, 0.75f);
  EXPECT_FLOAT_EQ(set.offValue, 0.0f);

  const CustomBindingSpec toggle = Parsed("toggle sim/cockpit2/switches/beacon_on 2 -1e1");
  EXPECT_EQ(toggle.action, CustomAction::kToggleDataref);
  EXPECT_EQ(toggle.dataref.index, -1);
  EXPECT_FLOAT_EQ(toggle.onValue, 2.0f);
  EXPECT_FLOAT_EQ(toggle.offValue, -10.0f);
}

// The optional words of a clause end where the next keyword begins.
TEST(CustomBindingSyntaxTest, ALightFollowsAnyActionOrStandsAlone) {
  const CustomBindingSpec lit = Parsed("cmd sim/autopilot/heading lit sim/cockpit2/autopilot/heading_mode != 2");
  EXPECT_EQ(lit.action, CustomAction::kCommandOnce);
  ASSERT_TRUE(lit.hasLight);
  EXPECT_EQ(lit.light.path, "sim/cockpit2/autopilot/heading_mode");
  EXPECT_EQ(lit.compare, CustomCompare::kNotEqual);
  EXPECT_FLOAT_EQ(lit.lightValue, 2.0f);

  const CustomBindingSpec alone = Parsed("lit sim/cockpit2/annunciators/master_caution[0] > 0");
  EXPECT_EQ(alone.action, CustomAction::kNone);
  EXPECT_EQ(alone.compare, CustomCompare::kGreater);
  EXPECT_EQ(alone.light.index, 0);
  EXPECT_EQ(Parsed("set a/b 1 lit a/b < 0.5").compare, CustomCompare::kLess);
  EXPECT_EQ(Parsed("lit a/b == 1").compare, CustomCompare::kEqual);
}

TEST(CustomBindingSyntaxTest, StepsWithAndWithoutLimits) {
  const CustomBindingSpec free = Parsed("step sim/cockpit2/autopilot/altitude_dial_ft 100");
  EXPECT_EQ(free.action, CustomAction::kStepDataref);
  EXPECT_FALSE(free.limited);
  EXPECT_TRUE(free.IsValueControl());

  const CustomBindingSpec wraps = Parsed("step sim/cockpit2/autopilot/heading_dial_deg_mag_pilot 1 0 359 wrap");
  EXPECT_TRUE(wraps.limited);
  EXPECT_TRUE(wraps.wrap);
  EXPECT_FLOAT_EQ(wraps.minimum, 0.0f);
  EXPECT_FLOAT_EQ(wraps.maximum, 359.0f);

  const CustomBindingSpec shown = Parsed("step a/b 0.1 -1 1 show c/d[2] %06.2f");
  EXPECT_FALSE(shown.wrap);
  ASSERT_TRUE(shown.hasShow);
  EXPECT_EQ(shown.shown.index, 2);
  EXPECT_TRUE(shown.format.zeroPadded);
  EXPECT_EQ(shown.format.width, 6);
  EXPECT_EQ(shown.format.decimals, 2);
}

TEST(CustomBindingSyntaxTest, TurnsAndDisplays) {
  const CustomBindingSpec turn = Parsed("turn sim/autopilot/heading_up sim/autopilot/heading_down show a/b %3d");
  EXPECT_EQ(turn.action, CustomAction::kTurnCommands);
  EXPECT_EQ(turn.commands[1], "sim/autopilot/heading_down");
  EXPECT_EQ(turn.format.width, 3);
  EXPECT_FALSE(turn.format.zeroPadded);

  const CustomBindingSpec display = Parsed("show sim/cockpit2/gauges/indicators/airspeed_kts_pilot");
  EXPECT_EQ(display.action, CustomAction::kNone);
  EXPECT_TRUE(display.IsValueControl());
  EXPECT_EQ(display.format.width, 0);
  EXPECT_EQ(display.format.decimals, 0);
}

TEST(CustomBindingSyntaxTest, MalformedValuesReadAsNothing) {
  for (const char* value : {
           "cmd ",                            // no name
           "cmd a/b c/d e/f",                 // a third command
           "hold a/b c/d",                    // hold has one
           "set a/b",                         // no on value
           "set a/b one",                     // not a number
           "set a/b 1,5",                     // the locale's comma is no decimal point
           "set a/b nan",                     // nor is anything not finite
           "set a/b inf",
           "set a/b[] 1",                     // an empty index
           "set a/b[-1] 1",                   // a negative one
           "set a/b[4096] 1",                 // past any array
           "set a/b[2 1",                     // unclosed
           "set a/b[2]x 1",
           "set [2] 1",                       // no path
           "step a/b",                        // no delta
           "step a/b 1 0",                    // one limit
           "step a/b 1 10 0",                 // limits the wrong way round
           "step a/b 1 wrap",                 // wrapping without limits
           "turn a/b",                        // one way only
           "lit a/b 1",                       // no comparison
           "lit a/b >= 1",                    // not one of = != < >
           "lit a/b = x",
           "show a/b %10d",                   // wider than any display
           "show a/b %.7f",                   // more decimals than kept
           "show a/b %.2d",                   // whole numbers have none
           "show a/b %s",
           "show a/b %5.f",
           "show a/b 5d",
           "cmd a/b cmd c/d",                 // two actions
           "cmd a/b hold c/d",
           "cmd a/b step c/d 1",              // a switch's and an encoder's parts together
           "lit a/b = 1 show a/b",
           "set a/b 1 lit a/b = 1 lit a/b = 0",
           "cmd a\"b",                        // a quote is no part of a name
           "cmd a;b",                         // nor the list separator
           "cmd a/b 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16",  // too many words
       }) {
    CustomBindingSpec spec;
    EXPECT_TRUE(IsCustomBindingValue(value)) << value;
    EXPECT_FALSE(ParseCustomBinding(value, &spec)) << value;
  }
}

// The keyword and its blank make the custom syntax; catalogue names and anything else stay out.
TEST(CustomBindingSyntaxTest, OnlyAKeywordAndABlankMakeACustomValue) {
  for (const char* value : {"CMD a/b", "cmd", "cmdx a/b", "LANDING_LTS", "", "GF46_1_FUNC_COM1_ACTIVE", "nada"}) {
    EXPECT_FALSE(IsCustomBindingValue(value)) << value;
  }
  EXPECT_FALSE(IsCustomBindingValue(nullptr));
  EXPECT_FALSE(ParseCustomBinding(nullptr, nullptr));
  CustomBindingSpec spec;
  EXPECT_FALSE(ParseCustomBinding("LANDING_LTS", &spec));
}

// Resolving a value: the same text is always the same id, a catalogue suffix or radio name inside
// a custom value is not looked at, and a malformed custom value is nothing.
TEST(CustomBindingSyntaxTest, ResolvedValuesGetIdsOfTheirOwn) {
  const ResolvedAssignment first = ResolveAssignment("cmd x/GF46_2_FUNC_COM1_ACTIVE", AssignmentTarget::kRadioTested, 0);
  ASSERT_TRUE(IsCustomFunction(first.functionId));
  EXPECT_EQ(first.target.unit, -1);
  EXPECT_EQ(first.target.kind, -1);
  EXPECT_STREQ(CustomBindingText(first.functionId), "cmd x/GF46_2_FUNC_COM1_ACTIVE");
  EXPECT_EQ(ResolveAssignment("cmd x/GF46_2_FUNC_COM1_ACTIVE", AssignmentTarget::kNone, 0).functionId,
            first.functionId);
  const FunctionId other = ResolveAssignment("cmd x/other", AssignmentTarget::kNone, 0).functionId;
  EXPECT_TRUE(IsCustomFunction(other));
  EXPECT_NE(other, first.functionId);
  EXPECT_EQ(ResolveAssignment("cmd x/GF46_2_FUNC_COM1_ACTIVE y z", AssignmentTarget::kNone, 0).functionId, kNada);
  EXPECT_STREQ(CustomBindingText(kNada), "");
}

}  // namespace
}  // namespace drav
