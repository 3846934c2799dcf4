// Dataref bindings against the simulator host: how a read value becomes a state, what a write puts
// into the simulator (one event per element written), and the avionic value access.
#include <XPLMDataAccess.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "../sim/SimHostFixture.h"
#include "functions/DatarefBinding.h"
#include "functions/FunctionObjects.h"

namespace drav {
namespace {

constexpr const char* kFuelPumps = "sim/cockpit/engine/fuel_pump_on";                // int[16]
constexpr const char* kLandingLights = "sim/cockpit2/switches/landing_lights_switch";  // float[16]
constexpr const char* kBattery = "sim/cockpit/electrical/battery_on";                 // int, 1 at start
constexpr const char* kParkBrake = "sim/flightmodel/controls/parkbrake";              // float
constexpr const char* kAutopilotState = "sim/cockpit/autopilot/autopilot_state";     // int
constexpr const char* kCom1 = "sim/cockpit/radios/com1_freq_hz";                      // int, 11850
constexpr const char* kBarometer = "sim/cockpit/misc/barometer_setting";              // float, 29.92
constexpr const char* kMissing = "sim/no/such/dataref";

using Texts = std::vector<std::string>;

class DatarefBindingTest : public sim::testing::SimHostTest {
 protected:
  static DatarefBinding Bind(const char* path, float onValue, float offValue, float compareMode,
                             std::int32_t valueType, std::int32_t offset = 0, std::int32_t count = 1) {
    DatarefBinding binding;
    InitBinding(binding, onValue, offValue, compareMode, path, valueType, offset, count);
    return binding;
  }
  static void Set(const char* path, double value) { ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)); }
  static void SetElements(const char* path, int first, int last, double value) {
    ASSERT_TRUE(host().SetDatarefValue(path, first, last, value));
  }
  static double Get(const char* path, int index = -1) { return host().GetDatarefValue(path, index).value_or(-999); }
  static const Texts& Events() { return host().Events(); }
  static std::string Write(const std::string& path, const std::string& value) {
    return "dataref-write " + path + " " + value;
  }
  static Texts ElementWrites(const std::string& path, int first, int last, const std::string& value) {
    Texts texts;
    for (int i = first; i <= last; ++i) texts.push_back(Write(path + "[" + std::to_string(i) + "]", value));
    return texts;
  }
};

// ---- InitBinding -----------------------------------------------------------------------------------

using DatarefBindingInit = DatarefBindingTest;

TEST_F(DatarefBindingInit, StoresTheFieldsAndFindsTheDataref) {
  DatarefBinding binding = Bind(kParkBrake, 1.0f, 0.25f, kCompareAtLeast, kFloatScalar, 0, 1);
  EXPECT_EQ(binding.dataref, XPLMFindDataRef(kParkBrake));
  EXPECT_NE(binding.dataref, nullptr);
  EXPECT_EQ(binding.onValue, 1.0f);
  EXPECT_EQ(binding.offValue, 0.25f);
  EXPECT_EQ(binding.compareMode, kCompareAtLeast);
  EXPECT_EQ(binding.valueType, kFloatScalar);
  EXPECT_EQ(binding.state, 0);
  EXPECT_EQ(binding.intBuffer, nullptr);
  EXPECT_EQ(binding.floatBuffer, nullptr);
  EXPECT_TRUE(Events().empty());
}

TEST_F(DatarefBindingInit, ArrayTypesGetABufferOfTheirOwnKind) {
  DatarefBinding ints = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 2, 8);
  EXPECT_NE(ints.dataref, nullptr);
  EXPECT_NE(ints.intBuffer, nullptr);
  EXPECT_EQ(ints.floatBuffer, nullptr);
  EXPECT_EQ(ints.offset, 2);
  EXPECT_EQ(ints.count, 8);

  DatarefBinding floats = Bind(kLandingLights, 1, 0, kCompareEqual, kFloatArray, 0, 16);
  EXPECT_NE(floats.dataref, nullptr);
  EXPECT_NE(floats.floatBuffer, nullptr);
  EXPECT_EQ(floats.intBuffer, nullptr);
}

TEST_F(DatarefBindingInit, UnusableInputBindsNothing) {
  EXPECT_EQ(Bind(kMissing, 1, 0, kCompareEqual, kIntScalar).dataref, nullptr);
  EXPECT_EQ(Bind(nullptr, 1, 0, kCompareEqual, kIntScalar).dataref, nullptr);
  EXPECT_EQ(Bind(kBattery, 1, 0, kCompareEqual, 7).dataref, nullptr);
  EXPECT_EQ(Bind(kBattery, 1, 0, kCompareEqual, -1).dataref, nullptr);
  for (std::int32_t count : {0, -1, 65, std::numeric_limits<std::int32_t>::max()}) {
    DatarefBinding ints = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, count);
    EXPECT_EQ(ints.dataref, nullptr) << count;
    EXPECT_EQ(ints.intBuffer, nullptr) << count;
    DatarefBinding floats = Bind(kLandingLights, 1, 0, kCompareEqual, kFloatArray, 0, count);
    EXPECT_EQ(floats.dataref, nullptr) << count;
    EXPECT_EQ(floats.floatBuffer, nullptr) << count;
  }
  // The largest range still accepted.
  EXPECT_NE(Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 64).dataref, nullptr);
}

TEST_F(DatarefBindingInit, ABindingWithAnAbsurdCountNeverWrites) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 100000);
  binding.state = 1;
  WriteBinding(binding, 1);
  EXPECT_EQ(ReadBinding(binding), 0);
  EXPECT_EQ(binding.state, 1);
  EXPECT_TRUE(Events().empty());
}

TEST_F(DatarefBindingInit, RebuildingStartsOver) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 8);
  binding.state = 1;
  InitBinding(binding, 1, 0, kCompareEqual, kBattery, kIntScalar, 0, 1);
  EXPECT_EQ(binding.state, 0);
  EXPECT_EQ(binding.intBuffer, nullptr);
  EXPECT_EQ(binding.dataref, XPLMFindDataRef(kBattery));

  InitBinding(binding, 1, 0, kCompareEqual, kMissing, kIntScalar, 0, 1);
  EXPECT_EQ(binding.dataref, nullptr);
}

// ---- ReadBinding -----------------------------------------------------------------------------------

using DatarefBindingRead = DatarefBindingTest;

TEST_F(DatarefBindingRead, AtLeastModeOnAFloat) {
  DatarefBinding binding = Bind(kParkBrake, 1.0f, 0.0f, kCompareAtLeast, kFloatScalar);
  const std::pair<double, int> cases[] = {{1.0, 1}, {1.7, 1}, {0.99, 0}, {0.0, 0}, {-5.0, 0}};
  for (const auto& [value, state] : cases) {
    Set(kParkBrake, value);
    EXPECT_EQ(ReadBinding(binding), state) << value;
    EXPECT_EQ(binding.state, state) << value;
  }
}

TEST_F(DatarefBindingRead, GreaterModeExcludesTheOnValue) {
  DatarefBinding binding = Bind(kParkBrake, 0.5f, 0.0f, kCompareGreater, kFloatScalar);
  Set(kParkBrake, 0.5);
  EXPECT_EQ(ReadBinding(binding), 0);
  Set(kParkBrake, 0.51);
  EXPECT_EQ(ReadBinding(binding), 1);

  DatarefBinding ints = Bind(kAutopilotState, 0, 0, kCompareGreater, kIntScalar);
  Set(kAutopilotState, 0);
  EXPECT_EQ(ReadBinding(ints), 0);
  Set(kAutopilotState, 1);
  EXPECT_EQ(ReadBinding(ints), 1);
}

TEST_F(DatarefBindingRead, EqualModeOnAnIntMatchesOnlyTheExactValue) {
  DatarefBinding binding = Bind(kAutopilotState, 21, 0, kCompareEqual, kIntScalar);
  const std::pair<double, int> cases[] = {{21, 1}, {20, 0}, {22, 0}, {-21, 0}, {0, 0}};
  for (const auto& [value, state] : cases) {
    Set(kAutopilotState, value);
    EXPECT_EQ(ReadBinding(binding), state) << value;
  }
}

TEST_F(DatarefBindingRead, EqualModeOnAFloatIsAnExactComparison) {
  DatarefBinding binding = Bind(kParkBrake, 0.5f, 0.0f, kCompareEqual, kFloatScalar);
  Set(kParkBrake, 0.5);
  EXPECT_EQ(ReadBinding(binding), 1);
  Set(kParkBrake, std::nextafter(0.5f, 1.0f));
  EXPECT_EQ(ReadBinding(binding), 0);
}

// Modes are stored as floats; a value that is none of 1 and 2 means equality.
TEST_F(DatarefBindingRead, AnUnknownModeComparesForEquality) {
  DatarefBinding binding = Bind(kAutopilotState, 3, 0, 1.5f, kIntScalar);
  Set(kAutopilotState, 4);
  EXPECT_EQ(ReadBinding(binding), 0);
  Set(kAutopilotState, 3);
  EXPECT_EQ(ReadBinding(binding), 1);
}

TEST_F(DatarefBindingRead, OnlyTheFirstElementOfAnIntRangeDecides) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 8);
  SetElements(kFuelPumps, 0, 0, 1);
  EXPECT_EQ(ReadBinding(binding), 1);
  SetElements(kFuelPumps, 0, 0, 0);
  SetElements(kFuelPumps, 1, 7, 1);
  EXPECT_EQ(ReadBinding(binding), 0);
}

TEST_F(DatarefBindingRead, TheRangeStartsAtItsOffset) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 3, 1);
  SetElements(kFuelPumps, 3, 3, 1);
  EXPECT_EQ(ReadBinding(binding), 1);
  SetElements(kFuelPumps, 3, 3, 0);
  SetElements(kFuelPumps, 0, 2, 1);
  SetElements(kFuelPumps, 4, 15, 1);
  EXPECT_EQ(ReadBinding(binding), 0);
}

TEST_F(DatarefBindingRead, FloatRangeWithAThreshold) {
  DatarefBinding binding = Bind(kLandingLights, 0.5f, 0.0f, kCompareAtLeast, kFloatArray, 4, 4);
  SetElements(kLandingLights, 4, 4, 0.75);
  EXPECT_EQ(ReadBinding(binding), 1);
  SetElements(kLandingLights, 4, 4, 0.25);
  SetElements(kLandingLights, 5, 7, 1.0);
  EXPECT_EQ(ReadBinding(binding), 0);
}

// A range the simulator cannot serve reads as 0, not as whatever the buffer held from before.
TEST_F(DatarefBindingRead, ARangePastTheEndReadsZero) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 4);
  SetElements(kFuelPumps, 0, 15, 1);
  ASSERT_EQ(ReadBinding(binding), 1);
  binding.offset = 16;
  EXPECT_EQ(ReadBinding(binding), 0);

  DatarefBinding zeroIsOn = Bind(kLandingLights, 0, 1, kCompareEqual, kFloatArray, 20, 4);
  SetElements(kLandingLights, 0, 15, 1.0);
  EXPECT_EQ(ReadBinding(zeroIsOn), 1);
}

// Part-way past the end: the simulator copies what it has, and element 0 of the range is real.
TEST_F(DatarefBindingRead, ARangeOverlappingTheEndStillReadsItsFirstElement) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 14, 8);
  SetElements(kFuelPumps, 14, 14, 1);
  EXPECT_EQ(ReadBinding(binding), 1);
}

TEST_F(DatarefBindingRead, AMissingDatarefLeavesTheStateAlone) {
  for (std::int32_t type : {kIntScalar, kFloatScalar, kIntArray, kFloatArray}) {
    DatarefBinding binding = Bind(kMissing, 0, 0, kCompareEqual, type, 0, 8);
    binding.state = 1;
    EXPECT_EQ(ReadBinding(binding), 0) << type;
    EXPECT_EQ(binding.state, 1) << type;
  }
}

TEST_F(DatarefBindingRead, ReadingNeverWrites) {
  DatarefBinding scalar = Bind(kBattery, 1, 0, kCompareEqual, kIntScalar);
  DatarefBinding range = Bind(kLandingLights, 1, 0, kCompareEqual, kFloatArray, 0, 16);
  EXPECT_EQ(ReadBinding(scalar), 1);
  EXPECT_EQ(ReadBinding(range), 0);
  EXPECT_TRUE(Events().empty());
}

// ---- WriteBinding ----------------------------------------------------------------------------------

using DatarefBindingWrite = DatarefBindingTest;

TEST_F(DatarefBindingWrite, TheStateChoosesTheValueUnlessForced) {
  DatarefBinding binding = Bind(kAutopilotState, 7, 3, kCompareEqual, kIntScalar);
  binding.state = 1;
  WriteBinding(binding, 0);
  binding.state = 0;
  WriteBinding(binding, 0);
  WriteBinding(binding, 1);
  EXPECT_EQ(Events(), (Texts{Write(kAutopilotState, "7"), Write(kAutopilotState, "3"),
                             Write(kAutopilotState, "7")}));
  EXPECT_EQ(binding.state, 0);
}

TEST_F(DatarefBindingWrite, IntValuesTruncateTowardZero) {
  DatarefBinding binding = Bind(kBattery, -1.7f, 0.5f, kCompareEqual, kIntScalar);
  binding.state = 0;
  WriteBinding(binding, 0);
  EXPECT_EQ(Get(kBattery), 0);
  WriteBinding(binding, 1);
  EXPECT_EQ(Get(kBattery), -1);
  EXPECT_EQ(Events(), (Texts{Write(kBattery, "0"), Write(kBattery, "-1")}));
}

TEST_F(DatarefBindingWrite, IntValuesOutsideTheIntRangeSaturate) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float inf = std::numeric_limits<float>::infinity();
  const std::pair<float, std::string> cases[] = {
      {1e10f, "2147483647"}, {-1e10f, "-2147483648"}, {inf, "2147483647"}, {-inf, "-2147483648"}, {nan, "0"},
      {2147483648.0f, "2147483647"}, {-2147483648.0f, "-2147483648"},
  };
  for (const auto& [value, written] : cases) {
    host().ClearEvents();
    DatarefBinding binding = Bind(kAutopilotState, value, 0, kCompareEqual, kIntScalar);
    WriteBinding(binding, 1);
    EXPECT_EQ(Events(), Texts{Write(kAutopilotState, written)}) << value;
  }
}

TEST_F(DatarefBindingWrite, FloatScalar) {
  DatarefBinding binding = Bind(kParkBrake, 0.75f, 0.0f, kCompareAtLeast, kFloatScalar);
  binding.state = 1;
  WriteBinding(binding, 0);
  EXPECT_EQ(Get(kParkBrake), 0.75);
  binding.state = 0;
  WriteBinding(binding, 0);
  EXPECT_EQ(Events(), (Texts{Write(kParkBrake, "0.75"), Write(kParkBrake, "0")}));
}

TEST_F(DatarefBindingWrite, AnIntRangeWritesEveryElementOnceAndReadsBackElementZero) {
  DatarefBinding binding = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 8);
  binding.state = 1;
  WriteBinding(binding, 0);
  EXPECT_EQ(Events(), ElementWrites(kFuelPumps, 0, 7, "1"));
  EXPECT_EQ(Get(kFuelPumps, 8), 0);

  binding.state = 0;
  EXPECT_EQ(ReadBinding(binding), 1);
  SetElements(kFuelPumps, 0, 0, 0);
  EXPECT_EQ(ReadBinding(binding), 0);
}

TEST_F(DatarefBindingWrite, AnIntRangeTruncatesEveryElement) {
  DatarefBinding binding = Bind(kFuelPumps, 1.9f, -0.9f, kCompareEqual, kIntArray, 4, 2);
  binding.state = 1;
  WriteBinding(binding, 0);
  binding.state = 0;
  WriteBinding(binding, 0);
  Texts expected = ElementWrites(kFuelPumps, 4, 5, "1");
  for (const std::string& text : ElementWrites(kFuelPumps, 4, 5, "0")) expected.push_back(text);
  EXPECT_EQ(Events(), expected);
  EXPECT_EQ(Get(kFuelPumps, 3), 0);
  EXPECT_EQ(Get(kFuelPumps, 6), 0);
}

TEST_F(DatarefBindingWrite, AFloatRangeWritesTheSameValueToEveryElement) {
  DatarefBinding binding = Bind(kLandingLights, 0.75f, 0.0f, kCompareAtLeast, kFloatArray, 0, 16);
  WriteBinding(binding, 1);
  EXPECT_EQ(Events(), ElementWrites(kLandingLights, 0, 15, "0.75"));
  host().ClearEvents();
  binding.state = 0;
  WriteBinding(binding, 0);
  EXPECT_EQ(Events(), ElementWrites(kLandingLights, 0, 15, "0"));
}

// The binding does not check the range against the array; the simulator writes what fits.
TEST_F(DatarefBindingWrite, ARangePastTheEndIsLeftToTheSimulator) {
  DatarefBinding overlapping = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 12, 8);
  WriteBinding(overlapping, 1);
  EXPECT_EQ(Events(), ElementWrites(kFuelPumps, 12, 15, "1"));

  host().ClearEvents();
  DatarefBinding beyond = Bind(kLandingLights, 1, 0, kCompareEqual, kFloatArray, 40, 4);
  WriteBinding(beyond, 1);
  DatarefBinding negative = Bind(kLandingLights, 1, 0, kCompareEqual, kFloatArray, -3, 4);
  WriteBinding(negative, 1);
  EXPECT_TRUE(Events().empty());
}

TEST_F(DatarefBindingWrite, AMissingDatarefIsNeverWritten) {
  for (std::int32_t type : {kIntScalar, kFloatScalar, kIntArray, kFloatArray}) {
    DatarefBinding binding = Bind(kMissing, 1, 0, kCompareEqual, type, 0, 8);
    binding.state = 1;
    WriteBinding(binding, 0);
    WriteBinding(binding, 1);
    EXPECT_EQ(binding.state, 1) << type;
  }
  EXPECT_TRUE(Events().empty());
}

// ---- copies ----------------------------------------------------------------------------------------

using DatarefBindingCopy = DatarefBindingTest;

TEST_F(DatarefBindingCopy, ACopyOwnsItsBuffer) {
  auto original = std::make_unique<DatarefBinding>(Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 8));
  original->intBuffer[3] = 42;
  const DatarefBinding copy(*original);
  ASSERT_NE(copy.intBuffer, nullptr);
  EXPECT_NE(copy.intBuffer.get(), original->intBuffer.get());
  EXPECT_EQ(copy.intBuffer[3], 42);
  original->intBuffer[3] = 0;
  EXPECT_EQ(copy.intBuffer[3], 42);
  EXPECT_EQ(copy.dataref, original->dataref);
  EXPECT_EQ(copy.count, 8);

  // The copy works on its own once the original is gone.
  original.reset();
  DatarefBinding survivor = copy;
  WriteBinding(survivor, 1);
  EXPECT_EQ(Events(), ElementWrites(kFuelPumps, 0, 7, "1"));
  EXPECT_EQ(ReadBinding(survivor), 1);
}

TEST_F(DatarefBindingCopy, AssignmentReplacesTheBuffer) {
  DatarefBinding target = Bind(kFuelPumps, 1, 0, kCompareEqual, kIntArray, 0, 2);
  {
    const DatarefBinding source = Bind(kLandingLights, 0.5f, 0, kCompareAtLeast, kFloatArray, 0, 16);
    target = source;
    EXPECT_NE(target.floatBuffer.get(), source.floatBuffer.get());
  }
  EXPECT_EQ(target.intBuffer, nullptr);
  ASSERT_NE(target.floatBuffer, nullptr);
  WriteBinding(target, 1);
  EXPECT_EQ(Events(), ElementWrites(kLandingLights, 0, 15, "0.5"));

  const DatarefBinding& alias = target;
  target = alias;
  ASSERT_NE(target.floatBuffer, nullptr);
  EXPECT_EQ(target.count, 16);

  target = Bind(kBattery, 1, 0, kCompareEqual, kIntScalar);
  EXPECT_EQ(target.floatBuffer, nullptr);
}

TEST_F(DatarefBindingCopy, FunctionRecordsCopyTheirBindingsDeeply) {
  SwitchFunction record;
  InitBinding(record.bindings[0], 1, 0, kCompareEqual, kFuelPumps, kIntArray, 0, 8);
  InitBinding(record.bindings[1], 1, 0, kCompareEqual, kLandingLights, kFloatArray, 0, 16);
  SwitchFunction copy = record;
  EXPECT_NE(copy.bindings[0].intBuffer.get(), record.bindings[0].intBuffer.get());
  EXPECT_NE(copy.bindings[1].floatBuffer.get(), record.bindings[1].floatBuffer.get());
  record = SwitchFunction{};
  WriteBinding(copy.bindings[1], 1);
  EXPECT_EQ(Events().size(), 16u);
}

// ---- avionic value access --------------------------------------------------------------------------

using AvionicValueAccess = DatarefBindingTest;

AvionicFunction AvionicOn(const char* path) {
  AvionicFunction function;
  function.dataref = XPLMFindDataRef(path);
  function.isFloat = IsFloatDataref(function.dataref);
  return function;
}

TEST_F(AvionicValueAccess, IntDatarefsReadAsFloatAndWriteTruncated) {
  AvionicFunction com1 = AvionicOn(kCom1);
  ASSERT_FALSE(com1.isFloat);
  EXPECT_EQ(GetAvionicValue(com1), 11850.0f);
  SetAvionicValue(com1, 12345.9f);
  SetAvionicValue(com1, -0.5f);
  EXPECT_EQ(Events(), (Texts{Write(kCom1, "12345"), Write(kCom1, "0")}));
}

TEST_F(AvionicValueAccess, FloatDatarefsKeepTheirFraction) {
  AvionicFunction barometer = AvionicOn(kBarometer);
  ASSERT_TRUE(barometer.isFloat);
  EXPECT_EQ(GetAvionicValue(barometer), 29.92f);
  SetAvionicValue(barometer, 30.01f);
  EXPECT_EQ(Get(kBarometer), static_cast<double>(30.01f));
  EXPECT_EQ(Events(), Texts{Write(kBarometer, "30.01")});
}

TEST_F(AvionicValueAccess, AMissingDatarefReadsZeroAndIsNeverWritten) {
  AvionicFunction missing = AvionicOn(kMissing);
  EXPECT_EQ(missing.dataref, nullptr);
  EXPECT_FALSE(missing.isFloat);
  EXPECT_EQ(GetAvionicValue(missing), 0.0f);
  SetAvionicValue(missing, 5.0f);
  missing.isFloat = true;
  EXPECT_EQ(GetAvionicValue(missing), 0.0f);
  SetAvionicValue(missing, 5.0f);
  EXPECT_TRUE(Events().empty());
}

int ReadSeven(void*) { return 7; }
float ReadSevenAndAHalf(void*) { return 7.5f; }
float lastFloatWritten = 0.0f;
void WriteFloat(void*, float value) { lastFloatWritten = value; }

TEST_F(AvionicValueAccess, OnlyTheFloatBitMakesADatarefFloat) {
  EXPECT_TRUE(IsFloatDataref(XPLMFindDataRef(kParkBrake)));
  EXPECT_FALSE(IsFloatDataref(XPLMFindDataRef(kBattery)));
  EXPECT_FALSE(IsFloatDataref(XPLMFindDataRef(kLandingLights)));  // a float array is not a float
  EXPECT_FALSE(IsFloatDataref(nullptr));
}

// A dataref offering both int and float access is used as float, fraction included.
TEST_F(AvionicValueAccess, ADatarefWithIntAndFloatAccessIsUsedAsFloat) {
  XPLMDataRef both = XPLMRegisterDataAccessor("drav/test/both", xplmType_Int | xplmType_Float, 1, ReadSeven,
                                              nullptr, ReadSevenAndAHalf, WriteFloat, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(both, nullptr);
  AvionicFunction function = AvionicOn("drav/test/both");
  EXPECT_TRUE(function.isFloat);
  EXPECT_EQ(GetAvionicValue(function), 7.5f);
  SetAvionicValue(function, 2.25f);
  EXPECT_EQ(lastFloatWritten, 2.25f);
  XPLMUnregisterDataAccessor(both);
}

}  // namespace
}  // namespace drav
