// Function objects built from custom values, through the factory as the modules call it: what a
// display shows in the pilot's format, how far one report may turn a value, and a held command
// never left held when its control is bound to something else.
#include <string>

#include "FunctionTestSupport.h"
#include "functions/AvionicAdjust.h"
#include "functions/AvionicDisplay.h"
#include "functions/CustomBindings.h"
#include "base/OptionalXplmApi.h"

namespace drav::functiontest {
namespace {

constexpr const char* kValue = "test/custom/value";    // float
constexpr const char* kArray = "test/custom/array";    // int[4]
constexpr const char* kDouble = "test/custom/latitude";  // double only
constexpr const char* kCommand = "test/custom/starter";

class CustomBindingsTest : public FunctionTest {
 protected:
  void SetUp() override {
    FunctionTest::SetUp();
    ASSERT_TRUE(host().AddDataref(sim::DatarefDecl{kValue, sim::DatarefType::Float, 1, true}));
    ASSERT_TRUE(host().AddDataref(sim::DatarefDecl{kArray, sim::DatarefType::IntArray, 4, true}));
    ASSERT_TRUE(host().AddDataref(sim::DatarefDecl{kDouble, sim::DatarefType::Double, 1, true}));
    host().SetCommandKnown(kCommand, true);
    ASSERT_TRUE(LoadOptionalXplmApi());  // commands are found and run through the optional API
  }

  static FunctionId Id(const std::string& value) {
    const FunctionId id = InternCustomBinding(value.c_str());
    EXPECT_TRUE(IsCustomFunction(id)) << value;
    return id;
  }

  static AvionicFunction* Value(const std::string& value) {
    AvionicFunction* function = nullptr;
    SwitchFunction scratch;
    CreateFunction(Id(value), &function, scratch, -1, -1);
    return function;
  }

  static std::string Shown(const std::string& value, double simulatorValue) {
    SetValue(kValue, simulatorValue);
    AvionicFunction* function = Value(value);
    if (function == nullptr) return "(none)";
    FormatAvionicDisplay(*function);
    return function->text;
  }
};

TEST_F(CustomBindingsTest, DisplaysShowTheFormatWrittenWithinNineCharacters) {
  const std::string show = std::string("show ") + kValue;
  EXPECT_EQ(Shown(show + " %05.1f", -2.54), "-02.5");  // the sign counts in the width, as printf has it
  EXPECT_EQ(Shown(show + " %05.1f", 2.56), "002.6");
  EXPECT_EQ(Shown(show + " %4d", 87.6), "  88");
  EXPECT_EQ(Shown(show, -0.4), "-0");
  // A value wider than any display is cut, never written past the text.
  EXPECT_EQ(Shown(show + " %.6f", 123456.0), "123456.00");
  EXPECT_EQ(Shown("show test/custom/absent %3d", 1.0), "");
}

TEST_F(CustomBindingsTest, OneReportTurnsAValueAtMostSixtyFourDetents) {
  SetValue(kValue, 0.0);
  AvionicFunction* step = Value(std::string("step ") + kValue + " 0.5");
  ASSERT_NE(step, nullptr);
  AdjustAvionicFunction(step, 0, 1000, 0);
  EXPECT_FLOAT_EQ(static_cast<float>(*host().GetDatarefValue(kValue)), 32.0f);
  // The outer knob of a double knob counts ten detents.
  AdjustAvionicFunction(step, -1, 2, 0);
  EXPECT_FLOAT_EQ(static_cast<float>(*host().GetDatarefValue(kValue)), 28.0f);
}

TEST_F(CustomBindingsTest, AnArrayElementIsSteppedAlone) {
  AvionicFunction* step = Value(std::string("step ") + kArray + "[2] 1 0 3 wrap show " + kArray + "[2] %d");
  ASSERT_NE(step, nullptr);
  AdjustAvionicFunction(step, 0, -1, 0);
  EXPECT_EQ(*host().GetDatarefValue(kArray, 2), 3.0);
  EXPECT_EQ(*host().GetDatarefValue(kArray, 1), 0.0);
  EXPECT_STREQ(step->text, "3");
}

// A value the simulator keeps only as a double (a position, a time) is read and stepped as one.
TEST_F(CustomBindingsTest, ADoubleOnlyValueIsReadAndSteppedAsADouble) {
  SetValue(kDouble, 47.25);
  AvionicFunction* step = Value(std::string("step ") + kDouble + " 0.5 show " + kDouble + " %.2f");
  ASSERT_NE(step, nullptr);
  EXPECT_STREQ(step->text, "47.25");
  AdjustAvionicFunction(step, 0, 2, 0);
  EXPECT_DOUBLE_EQ(*host().GetDatarefValue(kDouble), 48.25);
  EXPECT_STREQ(step->text, "48.25");
}

TEST_F(CustomBindingsTest, AHeldCommandEndsWhenItsControlIsBoundElsewhere) {
  SwitchFunction record = Build(Id(std::string("hold ") + kCommand));
  EXPECT_EQ(Run(record, kActionOn), Events{"command-begin " + std::string(kCommand)});
  // A switch that reports its position again does not begin it twice.
  EXPECT_EQ(Run(record, kActionOn), Events{});
  host().ClearEvents();
  ClearFunction(record);
  EXPECT_EQ(host().Events(), Events{"command-end " + std::string(kCommand)});
  CreateFunction(kNada, nullptr, record, -1, -1);
  EXPECT_EQ(Run(record, kActionOff), Events{});
}

// A selector position reports its number, 0 for the first; being reported is what turns it on.
TEST_F(CustomBindingsTest, ASelectorPositionSetsItsValueWhateverItsNumber) {
  SwitchFunction record = Build(Id(std::string("set ") + kArray + "[1] 3 1"));
  Run(record, kActionSet, 0, 1);
  EXPECT_EQ(*host().GetDatarefValue(kArray, 1), 3.0);
  Run(record, kActionSet, 0, 0);
  EXPECT_EQ(*host().GetDatarefValue(kArray, 1), 1.0);
}

// A value meant for a knob does nothing on a button, and a button's on a knob.
TEST_F(CustomBindingsTest, AValueOfTheOtherKindOfControlBuildsNothing) {
  SwitchFunction record = Build(Id(std::string("step ") + kValue + " 1"));
  EXPECT_EQ(GetFunctionId(record), kNada);
  EXPECT_EQ(Run(record, kActionToggle), Events{});
  EXPECT_EQ(Value(std::string("cmd ") + kCommand), nullptr);
}

}  // namespace
}  // namespace drav::functiontest
