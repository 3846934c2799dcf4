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
           "show [2]",                        // nothing to show
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

}  // namespace
}  // namespace drav
