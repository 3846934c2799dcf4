// The switch families and the autopilot state functions. Every member reads and writes with the
// family's on and off values and lights when the value equals the on value.
#include "functions/FamilyBindingTable.h"

#include <iterator>

#include "functions/DatarefBinding.h"

namespace drav {

namespace {

constexpr std::int32_t kIntA = kIntArray;
constexpr std::int32_t kFltA = kFloatArray;
constexpr std::int32_t kAllEight = 8;   // an ALL member switches elements 0..7
constexpr std::int32_t kNoAll = 0;      // the ALL member has no object here

constexpr FamilyScheme kEng = FamilyScheme::kEngines;
constexpr FamilyScheme kWcp = FamilyScheme::kFourEngines;

// Columns: first ids, scheme, numbered members with an object, ALL range (offset, count), path,
// type, on, off.
constexpr FamilyBindingRow kFamilies[] = {
    {{kFnENG_1_FUEL_RUN_CUTOFF}, kEng, 8, 0, kAllEight, "sim/flightmodel/engine/ENGN_mixt", kFltA, 1, 0},
    // ENG_ALL_FUEL_PUMP is FUEL_PUMP, ENG_ALL_GENERATOR is ALTERNATOR_MASTER (single bindings).
    {{kFnENG_1_FUEL_PUMP}, kEng, 8, 0, kNoAll, "sim/cockpit/engine/fuel_pump_on", kIntA, 1, 0},
    {{kFnENG_1_IGNITER}, kEng, 8, 0, kAllEight, "sim/cockpit/engine/igniters_on", kIntA, 1, 0},
    {{kFnENG_1_GENERATOR}, kEng, 8, 0, kNoAll, "sim/cockpit/electrical/generator_on", kIntA, 1, 0},
    // Only two inverters exist: engines 3..8 do nothing and ALL covers elements 0 and 1.
    {{kFnENG_1_INVERTER}, kEng, 2, 0, 2, "sim/cockpit/engine/inverter_on", kIntA, 1, 0},
    // Cowl flaps: only ALL, and "on" closes them (0), "off" opens them (1).
    {{kFnENG_1_COWL_FLAPS}, kEng, 0, 0, kAllEight, "sim/flightmodel/engine/ENGN_cowl", kFltA, 0, 1},
    // ENG_#_CARB_HEAT: only ALL, which is CARB_HEAT (single binding).
    {{kFnENG_1_FADEC}, kEng, 8, 0, kAllEight, "sim/cockpit/engine/fadec_on", kIntA, 1, 0},
    {{kFnENG_1_GOVERNOR}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/governor_on", kIntA, 1, 0},
    {{kFnENG_1_ANTI_ICE_ENGINE_AIR}, kEng, 8, 0, kAllEight, "sim/cockpit/switches/anti_ice_engine_air", kFltA, 1, 0},
    {{kFnENG_1_AFTERBURNER_ENABLED}, kEng, 8, 0, kAllEight,
     "sim/cockpit2/engine/actuators/afterburner_enabled", kIntA, 1, 0},
    {{kFnENG_1_AUTO_IGNITE_ON}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/auto_ignite_on", kIntA, 1, 0},
    {{kFnENG_1_PRIMER_ON}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/primer_on", kIntA, 1, 0},
    {{kFnENG_1_FIRE_EXTINGUISHER_ON}, kEng, 8, 0, kAllEight,
     "sim/cockpit2/engine/actuators/fire_extinguisher_on", kIntA, 1, 0},
    {{kFnSYS_1_BATTERY}, kEng, 8, 0, kAllEight, "sim/cockpit/electrical/battery_array_on", kIntA, 1, 0},
    // The magneto families: only ALL; the on values are the key positions off 0, left 1, right 2,
    // both 3.
    {{kFnENG_1_MAGNETO}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 3, 0},
    {{kFnENG_1_MAGNETO_LEFT}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 1, 0},
    {{kFnENG_1_MAGNETO_RIGHT}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 2, 0},
    {{kFnENG_1_MAGNETO_OFF}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 0, 0},
    // LANDING_LIGHTS_SWITCH_ALL is a single binding.
    {{kFnLANDING_LIGHTS_SWITCH01}, FamilyScheme::kLandingLights, 16, 0, kNoAll,
     "sim/cockpit2/switches/landing_lights_switch", kFltA, 1, 0},
    // The GF-WCP's engine annunciators. ALT_WARN, DC_GEN and GEN_OFF are three names of one light.
    {{kFnWCP_ENGN1_ALT_WARN, kFnWCP_ENGN1_DC_GEN, kFnWCP_ENGN1_GEN_OFF}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/generator_off", kIntA, 1, 0},
    {{kFnWCP_ENGN1_AUTO_FEATHER}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/auto_feather_arm", kIntA, 1, 0},
    // WCP_ENGN#_AUX_FUEL_PUMP is ENG_1_FUEL_PUMP .. ENG_4_FUEL_PUMP.
    {{kFnWCP_ENGN1_AUX_FUEL_PUMP}, kWcp, 4, 0, kNoAll, "sim/cockpit/engine/fuel_pump_on", kIntA, 1, 0},
    {{kFnWCP_ENGN1_BLEED_AIR_FAIL}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/bleed_air_fail", kIntA, 1, 0},
    {{kFnWCP_ENGN1_BLEED_AIR_OFF}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/bleed_air_off", kIntA, 1, 0},
    {{kFnWCP_ENGN1_ENG_FIRE}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/engine_fires", kIntA, 1, 0},
    {{kFnWCP_ENGN1_FUEL_PRESS_LOW}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/fuel_pressure_low", kIntA, 1, 0},
    {{kFnWCP_ENGN1_ICE_VANE}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/ice_vane_fail", kIntA, 1, 0},
    {{kFnWCP_ENGN1_IGNITER_ON}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/igniter_on", kIntA, 1, 0},
    {{kFnWCP_ENGN1_OIL_PRESS_LOW}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/oil_pressure_low", kIntA, 1, 0},
    // Lit while the ignition key is at START (4); switching it off returns the key to BOTH (3).
    {{kFnWCP_ENGN1_STARTER_ENERGISED}, kWcp, 4, 0, kNoAll, "sim/cockpit2/engine/actuators/ignition_key", kIntA, 4, 3},
    {{kFnWCP_ENGN1_OIL_TEMP_HIGH}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/oil_temperature_high", kIntA, 1, 0},
    {{kFnWCP_ENGN1_CHIP_DETECT}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/chip_detected", kIntA, 1, 0},
    {{kFnWCP_ENGN1_REVERSER_DEPLOYED}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/reverser_on", kIntA, 1, 0},
    {{kFnWCP_ENGN1_AFTERBURNER_ON}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/burner_on", kIntA, 1, 0},
    {{kFnWCP_ENGN1_N1_LOW}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/N1_low", kIntA, 1, 0},
    {{kFnWCP_ENGN1_N1_HIGH}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/N1_high", kIntA, 1, 0},
    {{kFnWCP_ENGN1_REVERSER_NOT_READY}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/reverser_not_ready", kIntA, 1, 0},
    {{kFnWCP_ENGN1_ICE_VANE_EXTENDED}, kWcp, 4, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/ice_vane_extend", kIntA, 1, 0},
    {{kFnWCP_FUEL_TANK1_TRANSFER}, FamilyScheme::kFuelTanks, 9, 0, kNoAll,
     "sim/cockpit/warnings/annunciators/fuel_transfer", kIntA, 1, 0},
};

// "drav/autopilot_state/" followed by the lower-case rest of each AP_STATE_ name, in id order. The
// last two name state bits that are not published, so those two functions find no dataref.
constexpr const char* kAutopilotStatePaths[] = {
    "drav/autopilot_state/auto_throttle_engage",
    "drav/autopilot_state/heading_hold_engage",
    "drav/autopilot_state/wing_leveler_engage",
    "drav/autopilot_state/airspeed_hold_with_pitch_engage",
    "drav/autopilot_state/vvi_climb_engage",
    "drav/autopilot_state/altitude_hold_armed",
    "drav/autopilot_state/flight_level_change_engage",
    "drav/autopilot_state/pitch_sync_engage",
    "drav/autopilot_state/fms_armed",
    "drav/autopilot_state/fms_engaged",
    "drav/autopilot_state/glideslope_armed",
    "drav/autopilot_state/glideslope_engaged",
    "drav/autopilot_state/fms_vnav_armed",
    "drav/autopilot_state/fms_vnav_engaged",
    "drav/autopilot_state/altitude_hold_engaged",
    "drav/autopilot_state/horizontal_toga_engaged",
    "drav/autopilot_state/vertical_toga_engaged",
    "drav/autopilot_state/vnav_armed",
    "drav/autopilot_state/vnav_engaged",
};

struct SchemeShape {
  std::int32_t size;       // ids in the family
  std::int32_t allMember;  // 0-based position of ALL, -1 when the scheme has none
};

constexpr SchemeShape ShapeOf(FamilyScheme scheme) {
  switch (scheme) {
    case FamilyScheme::kEngines: return {9, 8};
    case FamilyScheme::kFourEngines: return {4, -1};
    case FamilyScheme::kLandingLights: return {16, -1};
    case FamilyScheme::kFuelTanks: return {9, -1};
  }
  return {0, -1};
}

SwitchBinding MemberBinding(const FamilyBindingRow& row, std::int32_t offset, std::int32_t count) {
  return {row.path, row.valueType, offset, count, row.onValue, row.offValue, kReadEqual};
}

// The binding of member (0-based) of row's family; false for a member without object.
bool MemberOf(const FamilyBindingRow& row, std::int32_t member, SwitchBinding& out) {
  const SchemeShape shape = ShapeOf(row.scheme);
  if (member == shape.allMember) {
    if (row.allCount <= 0) return false;
    out = MemberBinding(row, row.allOffset, row.allCount);
    return true;
  }
  if (member >= row.numberedMembers) return false;
  out = MemberBinding(row, member, 1);
  return true;
}

bool FindAutopilotState(FunctionId id, SwitchBinding& out) {
  const FunctionId index = id - kFirstAutopilotState;
  if (index < 0 || index >= static_cast<FunctionId>(std::size(kAutopilotStatePaths))) return false;
  out = {kAutopilotStatePaths[index], kIntScalar, 0, 1, 1.0f, 0.0f, kReadEqual};
  return true;
}

}  // namespace

std::span<const FamilyBindingRow> FamilyBindingRows() { return kFamilies; }

std::span<const char* const> AutopilotStatePaths() { return kAutopilotStatePaths; }

// A linear search: it runs only when a function is built, never per frame.
bool FindFamilyBinding(FunctionId id, SwitchBinding& out) {
  if (FindAutopilotState(id, out)) return true;
  for (const FamilyBindingRow& row : kFamilies) {
    const std::int32_t size = ShapeOf(row.scheme).size;
    for (FunctionId first : row.firstIds) {
      if (first == kNada || id < first || id >= first + size) continue;
      return MemberOf(row, id - first, out);
    }
  }
  return false;
}

}  // namespace drav
