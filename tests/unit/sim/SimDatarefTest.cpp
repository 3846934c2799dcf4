// The simulator's datarefs as the plug-in sees them through the SDK, and as scenarios drive them.
#include <XPLMDataAccess.h>

#include <set>
#include <string>
#include <vector>

#include "SimHostFixture.h"
#include "host/BuiltinDatarefs.h"

namespace sim::testing {
namespace {

class SimDatarefs : public SimHostTest {
 protected:
  static XPLMDataRef Find(const char* path) { return XPLMFindDataRef(path); }
  const std::vector<std::string>& events() { return host().Events(); }
  using Texts = std::vector<std::string>;
};

// ---- the built-in table ------------------------------------------------------------------------

TEST(SimBuiltinDatarefTable, HoldsEveryDatarefOnceUnderSim) {
  std::set<std::string> paths;
  for (const BuiltinDataref& row : BuiltinDatarefs()) {
    EXPECT_EQ(std::string(row.path).rfind("sim/", 0), 0u) << row.path;
    EXPECT_TRUE(paths.insert(row.path).second) << "duplicate " << row.path;
    const bool array = row.type == DatarefType::IntArray || row.type == DatarefType::FloatArray;
    EXPECT_EQ(array, row.length > 1) << row.path;
  }
  EXPECT_EQ(paths.size(), 247u);
}

TEST_F(SimDatarefs, EveryBuiltinIsFoundWithItsTypeAndWritability) {
  for (const BuiltinDataref& row : BuiltinDatarefs()) {
    XPLMDataRef ref = Find(row.path);
    ASSERT_NE(ref, nullptr) << row.path;
    EXPECT_EQ(XPLMCanWriteDataRef(ref), row.writable ? 1 : 0) << row.path;
    const auto decl = host().DescribeDataref(row.path);
    ASSERT_TRUE(decl.has_value());
    EXPECT_EQ(decl->type, row.type) << row.path;
    EXPECT_EQ(decl->length, row.length) << row.path;
  }
}

TEST_F(SimDatarefs, SpotChecksOfTypesAndLengths) {
  EXPECT_EQ(XPLMGetDataRefTypes(Find("sim/aircraft/prop/acf_en_type")), xplmType_IntArray);
  EXPECT_EQ(XPLMGetDatavi(Find("sim/aircraft/prop/acf_en_type"), nullptr, 0, 0), 16);
  EXPECT_EQ(XPLMCanWriteDataRef(Find("sim/aircraft/prop/acf_en_type")), 0);
  EXPECT_EQ(XPLMGetDatavi(Find("sim/cockpit/electrical/generator_on"), nullptr, 0, 0), 8);
  EXPECT_EQ(XPLMGetDatavi(Find("sim/cockpit/warnings/annunciators/fuel_transfer"), nullptr, 0, 0), 9);
  EXPECT_EQ(XPLMGetDatavf(Find("sim/cockpit2/switches/panel_brightness_ratio"), nullptr, 0, 0), 4);
  EXPECT_EQ(XPLMGetDatavf(Find("sim/flightmodel/engine/ENGN_N1_"), nullptr, 0, 0), 16);
  EXPECT_EQ(XPLMGetDataRefTypes(Find("sim/cockpit/radios/com1_freq_hz")), xplmType_Int);
  EXPECT_EQ(XPLMCanWriteDataRef(Find("sim/cockpit/radios/transponder_id")), 0);
  EXPECT_EQ(XPLMCanWriteDataRef(Find("sim/cockpit/autopilot/heading_mode")), 0);
  EXPECT_EQ(XPLMGetDataRefTypes(Find("sim/weather/aircraft/speed_sound_ms")), xplmType_Float);
}

// X-Plane 12 has dropped three names an older simulator had; a scenario that sets an older
// version gets them back as that simulator declared them, and keeps what it changed itself.
TEST_F(SimDatarefs, AnOlderSimulatorAddsTheNamesXPlane12Dropped) {
  const char* dropped[] = {"sim/flightmodel/controls/rot_trim", "sim/cockpit/autopilot/approach_selector",
                           "sim/graphics/colors/menu_bkgnd_rgb"};
  for (const char* path : dropped) EXPECT_EQ(Find(path), nullptr) << path;
  host().SetXPlaneVersion(12100);
  for (const char* path : dropped) EXPECT_EQ(Find(path), nullptr) << path;

  ASSERT_TRUE(host().AddDataref(DatarefDecl{"sim/cockpit/autopilot/approach_selector", DatarefType::Float, 1, false}));
  host().SetXPlaneVersion(11000);
  EXPECT_EQ(XPLMGetDataRefTypes(Find("sim/flightmodel/controls/rot_trim")), xplmType_Float);
  EXPECT_EQ(XPLMCanWriteDataRef(Find("sim/flightmodel/controls/rot_trim")), 1);
  EXPECT_EQ(XPLMGetDatavf(Find("sim/graphics/colors/menu_bkgnd_rgb"), nullptr, 0, 0), 3);
  EXPECT_EQ(XPLMCanWriteDataRef(Find("sim/graphics/colors/menu_bkgnd_rgb")), 0);
  EXPECT_EQ(XPLMGetDataRefTypes(Find("sim/cockpit/autopilot/approach_selector")), xplmType_Float)
      << "the scenario's own declaration stays";
  EXPECT_NE(Find("sim/weather/aircraft/speed_sound_ms"), nullptr) << "the X-Plane 12 names stay too";
}

TEST_F(SimDatarefs, StartsAsAPoweredParkedAircraft) {
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/electrical/battery_on")), 1);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/transponder_code")), 1200);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/com1_freq_hz")), 11850);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/adf1_stdby_freq_hz")), 245);
  EXPECT_EQ(XPLMGetDataf(Find("sim/cockpit/misc/barometer_setting")), 29.92f);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/autopilot/autopilot_mode")), 0);

  float volts[16] = {};
  ASSERT_EQ(XPLMGetDatavf(Find("sim/flightmodel/engine/ENGN_bat_volt"), volts, 0, 16), 16);
  for (float v : volts) EXPECT_EQ(v, 24.0f);
  float gear[10] = {};
  ASSERT_EQ(XPLMGetDatavf(Find("sim/aircraft/parts/acf_gear_deploy"), gear, 0, 10), 10);
  for (float g : gear) EXPECT_EQ(g, 1.0f);
  int fuelPumps[16] = {7};
  ASSERT_EQ(XPLMGetDatavi(Find("sim/cockpit/engine/fuel_pump_on"), fuelPumps, 0, 16), 16);
  for (int p : fuelPumps) EXPECT_EQ(p, 0);
}

TEST_F(SimDatarefs, UnknownPathsAreNotFound) {
  EXPECT_EQ(Find("sim/no/such/dataref"), nullptr);
  EXPECT_EQ(Find("x737/systems/afds/plugin_status"), nullptr);
  EXPECT_EQ(Find(""), nullptr);
  EXPECT_EQ(Find(nullptr), nullptr);
  EXPECT_EQ(Find("sim/cockpit/radios/com1_freq_hz "), nullptr);
  EXPECT_FALSE(host().HasDataref("sim/no/such/dataref"));
}

// ---- reading and writing through the SDK -------------------------------------------------------

TEST_F(SimDatarefs, ScalarWritesAreStoredAndRecorded) {
  XPLMSetDatai(Find("sim/cockpit/radios/transponder_code"), 7700);
  XPLMSetDataf(Find("sim/cockpit/misc/barometer_setting"), 30.01f);
  XPLMSetDataf(Find("sim/flightmodel/controls/flaprqst"), 1.0f);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/transponder_code")), 7700);
  EXPECT_EQ(XPLMGetDataf(Find("sim/cockpit/misc/barometer_setting")), 30.01f);
  EXPECT_EQ(events(), (Texts{"dataref-write sim/cockpit/radios/transponder_code 7700",
                                    "dataref-write sim/cockpit/misc/barometer_setting 30.01",
                                    "dataref-write sim/flightmodel/controls/flaprqst 1"}));
}

TEST_F(SimDatarefs, DoubleDatarefsKeepDoublePrecision) {
  ASSERT_TRUE(host().AddDataref({"x737/test/double", DatarefType::Double, 1, true}));
  XPLMDataRef ref = Find("x737/test/double");
  XPLMSetDatad(ref, 0.1);
  EXPECT_EQ(XPLMGetDatad(ref), 0.1);
  EXPECT_EQ(XPLMGetDataf(ref), 0.0f);  // no conversion between types
  EXPECT_EQ(events(), (Texts{"dataref-write x737/test/double 0.1"}));
}

TEST_F(SimDatarefs, ReadingOrWritingAsAnotherTypeDoesNothing) {
  XPLMDataRef intRef = Find("sim/cockpit/radios/com1_freq_hz");
  XPLMDataRef floatRef = Find("sim/cockpit/misc/barometer_setting");
  XPLMDataRef floatArray = Find("sim/flightmodel/engine/ENGN_bat_volt");
  EXPECT_EQ(XPLMGetDataf(intRef), 0.0f);
  EXPECT_EQ(XPLMGetDatad(intRef), 0.0);
  EXPECT_EQ(XPLMGetDatai(floatRef), 0);
  EXPECT_EQ(XPLMGetDatavi(floatArray, nullptr, 0, 0), 0);
  int sink[4] = {};
  EXPECT_EQ(XPLMGetDatavi(floatArray, sink, 0, 4), 0);
  EXPECT_EQ(XPLMGetDatab(intRef, sink, 0, sizeof sink), 0);

  XPLMSetDataf(intRef, 123.0f);
  XPLMSetDatai(floatRef, 31);
  int ints[2] = {5, 5};
  XPLMSetDatavi(floatArray, ints, 0, 2);
  EXPECT_EQ(XPLMGetDatai(intRef), 11850);
  EXPECT_EQ(XPLMGetDataf(floatRef), 29.92f);
  EXPECT_TRUE(events().empty());
}

TEST_F(SimDatarefs, WritesToReadOnlyDatarefsAreIgnored) {
  XPLMSetDatai(Find("sim/cockpit/radios/transponder_id"), 1);
  int types[2] = {2, 2};
  XPLMSetDatavi(Find("sim/aircraft/prop/acf_en_type"), types, 0, 2);
  XPLMSetDataf(Find("sim/weather/sigma"), 0.5f);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/transponder_id")), 0);
  EXPECT_EQ(host().GetDatarefValue("sim/aircraft/prop/acf_en_type", 0), 0.0);
  EXPECT_TRUE(events().empty());
  EXPECT_FALSE(host().WriteDatarefAsOtherPlugin("sim/weather/sigma", -1, 0.5));
}

TEST_F(SimDatarefs, ArrayReadsAreClampedToTheArray) {
  ASSERT_TRUE(host().SetDatarefValue("sim/flightmodel/engine/ENGN_thro", 14, 15, 0.75));
  XPLMDataRef ref = Find("sim/flightmodel/engine/ENGN_thro");
  float out[8] = {-1, -1, -1, -1, -1, -1, -1, -1};
  EXPECT_EQ(XPLMGetDatavf(ref, out, 14, 8), 2);
  EXPECT_EQ(out[0], 0.75f);
  EXPECT_EQ(out[1], 0.75f);
  EXPECT_EQ(out[2], -1.0f);  // nothing written past the copied values
  EXPECT_EQ(XPLMGetDatavf(ref, out, 16, 8), 0);
  EXPECT_EQ(XPLMGetDatavf(ref, out, -1, 8), 0);
  EXPECT_EQ(XPLMGetDatavf(ref, out, 0, 0), 0);
  EXPECT_EQ(XPLMGetDatavf(ref, out, 0, -3), 0);
  EXPECT_EQ(XPLMGetDatavf(ref, nullptr, 5, 2), 16);  // a null buffer asks for the length
}

TEST_F(SimDatarefs, ArrayWritesAreClampedAndRecordedPerElement) {
  XPLMDataRef ref = Find("sim/cockpit/engine/ignition_on");
  int values[5] = {3, 2, 9, 9, 9};
  XPLMSetDatavi(ref, values, 14, 5);  // only elements 14 and 15 exist
  XPLMSetDatavi(ref, values, 16, 1);
  XPLMSetDatavi(ref, values, -1, 2);
  XPLMSetDatavi(ref, nullptr, 0, 2);
  XPLMSetDatavi(ref, values, 0, 0);
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/engine/ignition_on", 14), 3.0);
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/engine/ignition_on", 15), 2.0);
  EXPECT_EQ(events(), (Texts{"dataref-write sim/cockpit/engine/ignition_on[14] 3",
                                    "dataref-write sim/cockpit/engine/ignition_on[15] 2"}));

  host().ClearEvents();
  float mixture[2] = {0.25f, 0.1f};
  XPLMSetDatavf(Find("sim/flightmodel/engine/ENGN_mixt"), mixture, 0, 2);
  EXPECT_EQ(events(), (Texts{"dataref-write sim/flightmodel/engine/ENGN_mixt[0] 0.25",
                                    "dataref-write sim/flightmodel/engine/ENGN_mixt[1] 0.1"}));
}

TEST_F(SimDatarefs, BadHandlesReadAsZeroAndIgnoreWrites) {
  void* garbage = reinterpret_cast<void*>(static_cast<std::uintptr_t>(0x1234));
  for (XPLMDataRef bad : {static_cast<XPLMDataRef>(nullptr), garbage}) {
    EXPECT_EQ(XPLMGetDatai(bad), 0);
    EXPECT_EQ(XPLMGetDataf(bad), 0.0f);
    EXPECT_EQ(XPLMGetDatavi(bad, nullptr, 0, 0), 0);
    EXPECT_EQ(XPLMIsDataRefGood(bad), 0);
    EXPECT_EQ(XPLMGetDataRefTypes(bad), xplmType_Unknown);
    XPLMSetDatai(bad, 1);
  }
  EXPECT_TRUE(events().empty());
}

TEST_F(SimDatarefs, RemovedDatarefsHandleGoesBadAndComesBackWithTheDataref) {
  ASSERT_TRUE(host().AddDataref({"x737/systems/test", DatarefType::Int, 1, true}));
  XPLMDataRef ref = Find("x737/systems/test");
  ASSERT_NE(ref, nullptr);
  host().RemoveDataref("x737/systems/test");
  EXPECT_EQ(Find("x737/systems/test"), nullptr);
  EXPECT_EQ(XPLMIsDataRefGood(ref), 0);
  XPLMSetDatai(ref, 5);
  EXPECT_EQ(XPLMGetDatai(ref), 0);
  EXPECT_TRUE(events().empty());

  ASSERT_TRUE(host().AddDataref({"x737/systems/test", DatarefType::Int, 1, true}));
  EXPECT_EQ(Find("x737/systems/test"), ref);
  EXPECT_EQ(XPLMIsDataRefGood(ref), 1);
}

TEST_F(SimDatarefs, HandlesFromBeforeAResetAreBad) {
  XPLMDataRef old = Find("sim/cockpit/electrical/battery_on");
  host().Reset(root());
  EXPECT_EQ(XPLMIsDataRefGood(old), 0);
  EXPECT_EQ(XPLMGetDatai(old), 0);
  EXPECT_EQ(XPLMIsDataRefGood(Find("sim/cockpit/electrical/battery_on")), 1);
}

// ---- the host's interface ----------------------------------------------------------------------

TEST_F(SimDatarefs, AddDatarefValidatesAndReplaces) {
  EXPECT_FALSE(host().AddDataref({"", DatarefType::Int, 1, true}));
  EXPECT_FALSE(host().AddDataref({"x737/bad", DatarefType::IntArray, 0, true}));
  EXPECT_FALSE(host().HasDataref("x737/bad"));
  ASSERT_TRUE(host().AddDataref({"x737/arr", DatarefType::FloatArray, 4, false}));
  EXPECT_EQ(XPLMGetDatavf(Find("x737/arr"), nullptr, 0, 0), 4);
  EXPECT_EQ(XPLMCanWriteDataRef(Find("x737/arr")), 0);
  // Replacing a built-in changes its type and zeroes it.
  ASSERT_TRUE(host().AddDataref({"sim/cockpit/radios/com1_freq_hz", DatarefType::Float, 1, true}));
  EXPECT_EQ(XPLMGetDataRefTypes(Find("sim/cockpit/radios/com1_freq_hz")), xplmType_Float);
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/radios/com1_freq_hz"), 0.0);
}

TEST_F(SimDatarefs, SetDatarefValueCoversScalarsElementsAndRanges) {
  const std::string path = "sim/cockpit2/switches/landing_lights_switch";
  EXPECT_TRUE(host().SetDatarefValue(path, -1, -1, 0.5));
  EXPECT_TRUE(host().SetDatarefValue(path, 2, 4, 1.0));
  EXPECT_EQ(host().GetDatarefValue(path, 0), 0.5);
  EXPECT_EQ(host().GetDatarefValue(path, 2), 1.0);
  EXPECT_EQ(host().GetDatarefValue(path, 4), 1.0);
  EXPECT_EQ(host().GetDatarefValue(path, 5), 0.5);
  EXPECT_EQ(host().GetDatarefValue(path, 15), 0.5);
  EXPECT_FALSE(host().GetDatarefValue(path, 16).has_value());
  EXPECT_FALSE(host().SetDatarefValue(path, 15, 16, 1.0));
  EXPECT_FALSE(host().SetDatarefValue(path, 4, 2, 1.0));
  EXPECT_FALSE(host().SetDatarefValue("sim/no/such", -1, -1, 1.0));
  // Values take the dataref's own type; no event for the scenario's own settings.
  EXPECT_TRUE(host().SetDatarefValue("sim/cockpit/radios/nav1_freq_hz", -1, -1, 11170.9));
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/nav1_freq_hz")), 11170);
  EXPECT_TRUE(events().empty());
}

TEST_F(SimDatarefs, AnotherPluginsWritesAreNotEvents) {
  EXPECT_TRUE(host().WriteDatarefAsOtherPlugin("sim/cockpit/radios/com2_freq_hz", -1, 12800));
  EXPECT_TRUE(host().WriteDatarefAsOtherPlugin("sim/cockpit/engine/fuel_pump_on", 3, 1));
  EXPECT_FALSE(host().WriteDatarefAsOtherPlugin("sim/cockpit/engine/fuel_pump_on", 16, 1));
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/radios/com2_freq_hz")), 12800);
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/engine/fuel_pump_on", 3), 1.0);
  EXPECT_TRUE(events().empty());
}

// ---- datarefs that plug-ins publish --------------------------------------------------------------

struct IntCell {
  int value = 0;
  int reads = 0;
  int writes = 0;
};

IntCell gReadSide, gWriteSide;  // distinct refcons prove which one each accessor gets

int ReadCell(void* refcon) {
  auto* cell = static_cast<IntCell*>(refcon);
  ++cell->reads;
  return cell->value;
}
void WriteCell(void* refcon, int value) {
  auto* cell = static_cast<IntCell*>(refcon);
  ++cell->writes;
  cell->value = value;
}

XPLMDataRef RegisterIntCell(const char* path, int writable) {
  return XPLMRegisterDataAccessor(path, xplmType_Int, writable, ReadCell, WriteCell, nullptr, nullptr,
                                  nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                  nullptr, &gReadSide, &gWriteSide);
}

class SimPluginDatarefs : public SimDatarefs {
 protected:
  void SetUp() override {
    SimDatarefs::SetUp();
    gReadSide = IntCell{};
    gWriteSide = IntCell{};
  }
};

TEST_F(SimPluginDatarefs, AccessorsRunWithTheirOwnRefcons) {
  XPLMDataRef ref = RegisterIntCell("test/drav/switch", 1);
  ASSERT_NE(ref, nullptr);
  EXPECT_EQ(Find("test/drav/switch"), ref);
  EXPECT_EQ(XPLMGetDataRefTypes(ref), xplmType_Int);
  EXPECT_EQ(XPLMCanWriteDataRef(ref), 1);

  gReadSide.value = 42;
  EXPECT_EQ(XPLMGetDatai(ref), 42);
  EXPECT_EQ(gReadSide.reads, 1);
  XPLMSetDatai(ref, 7);
  EXPECT_EQ(gWriteSide.value, 7);
  EXPECT_EQ(gWriteSide.writes, 1);
  EXPECT_EQ(gReadSide.writes, 0);
  EXPECT_EQ(XPLMGetDataf(ref), 0.0f);  // no float reader
  EXPECT_TRUE(events().empty());       // the plug-in's own dataref: not a simulator write
}

TEST_F(SimPluginDatarefs, TheHostReadsAndWritesThroughTheAccessors) {
  RegisterIntCell("test/drav/switch", 1);
  gReadSide.value = 3;
  EXPECT_EQ(host().GetDatarefValue("test/drav/switch"), 3.0);
  EXPECT_TRUE(host().HasDataref("test/drav/switch"));
  const auto decl = host().DescribeDataref("test/drav/switch");
  ASSERT_TRUE(decl.has_value());
  EXPECT_EQ(decl->type, DatarefType::Int);
  EXPECT_TRUE(host().WriteDatarefAsOtherPlugin("test/drav/switch", -1, 1));
  EXPECT_EQ(gWriteSide.value, 1);
  EXPECT_EQ(gWriteSide.writes, 1);
  EXPECT_FALSE(host().SetDatarefValue("test/drav/switch", -1, -1, 5));  // not the simulator's
  EXPECT_TRUE(events().empty());
}

TEST_F(SimPluginDatarefs, ReadOnlyPluginDatarefsRefuseWrites) {
  XPLMDataRef ref = RegisterIntCell("test/drav/status", 0);
  XPLMSetDatai(ref, 9);
  EXPECT_FALSE(host().WriteDatarefAsOtherPlugin("test/drav/status", -1, 9));
  EXPECT_EQ(gWriteSide.writes, 0);
}

TEST_F(SimPluginDatarefs, APathCanBeRegisteredOnlyOnce) {
  EXPECT_NE(RegisterIntCell("test/drav/switch", 1), nullptr);
  EXPECT_EQ(RegisterIntCell("test/drav/switch", 1), nullptr);
  EXPECT_EQ(RegisterIntCell("sim/cockpit/electrical/battery_on", 1), nullptr);
  EXPECT_EQ(RegisterIntCell("", 1), nullptr);
  EXPECT_EQ(XPLMGetDatai(Find("sim/cockpit/electrical/battery_on")), 1);
}

TEST_F(SimPluginDatarefs, UnregisteringRemovesTheDatarefAndReRegisteringRevivesTheHandle) {
  XPLMDataRef ref = RegisterIntCell("test/drav/switch", 1);
  XPLMUnregisterDataAccessor(ref);
  EXPECT_EQ(Find("test/drav/switch"), nullptr);
  EXPECT_EQ(XPLMIsDataRefGood(ref), 0);
  EXPECT_EQ(XPLMGetDatai(ref), 0);
  XPLMSetDatai(ref, 1);
  EXPECT_EQ(gReadSide.reads + gWriteSide.writes, 0);  // accessors are gone
  XPLMUnregisterDataAccessor(ref);                      // twice: harmless

  EXPECT_EQ(RegisterIntCell("test/drav/switch", 1), ref);
  EXPECT_EQ(XPLMIsDataRefGood(ref), 1);
  // The simulator's own datarefs cannot be unregistered.
  XPLMUnregisterDataAccessor(Find("sim/cockpit/electrical/battery_on"));
  EXPECT_NE(Find("sim/cockpit/electrical/battery_on"), nullptr);
}

// A float array published by a plug-in, recording the arguments its accessors get.
struct FloatArrayCell {
  float values[4] = {0.5f, 1.5f, 2.5f, 3.5f};
  int lastOffset = -99;
  int lastCount = -99;
};
FloatArrayCell gArray;

int ReadArray(void* refcon, float* out, int offset, int max) {
  auto* cell = static_cast<FloatArrayCell*>(refcon);
  if (out == nullptr) return 4;
  int n = 0;
  for (int i = offset; i < 4 && n < max; ++i) out[n++] = cell->values[i];
  return n;
}
void WriteArray(void* refcon, float* in, int offset, int count) {
  auto* cell = static_cast<FloatArrayCell*>(refcon);
  cell->lastOffset = offset;
  cell->lastCount = count;
  for (int i = 0; i < count && offset + i < 4; ++i) cell->values[offset + i] = in[i];
}

TEST_F(SimPluginDatarefs, ArrayAccessorsGetTheCallersArguments) {
  gArray = FloatArrayCell{};
  XPLMDataRef ref = XPLMRegisterDataAccessor("test/drav/levers", xplmType_FloatArray, 1, nullptr,
                                             nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                             nullptr, ReadArray, WriteArray, nullptr, nullptr,
                                             &gArray, &gArray);
  EXPECT_EQ(XPLMGetDatavf(ref, nullptr, 0, 0), 4);
  float out[2] = {};
  EXPECT_EQ(XPLMGetDatavf(ref, out, 2, 2), 2);
  EXPECT_EQ(out[1], 3.5f);
  float in[1] = {9.0f};
  XPLMSetDatavf(ref, in, 3, 1);
  EXPECT_EQ(gArray.lastOffset, 3);
  EXPECT_EQ(gArray.values[3], 9.0f);

  EXPECT_EQ(host().GetDatarefValue("test/drav/levers", 1), 1.5);
  EXPECT_EQ(host().GetDatarefValue("test/drav/levers"), 0.5);  // element 0
  EXPECT_TRUE(host().WriteDatarefAsOtherPlugin("test/drav/levers", 2, 7.0));
  EXPECT_EQ(gArray.lastOffset, 2);
  EXPECT_EQ(gArray.lastCount, 1);
  EXPECT_EQ(gArray.values[2], 7.0f);
  const auto decl = host().DescribeDataref("test/drav/levers");
  ASSERT_TRUE(decl.has_value());
  EXPECT_EQ(decl->type, DatarefType::FloatArray);
  EXPECT_EQ(decl->length, 4);
}

}  // namespace
}  // namespace sim::testing
