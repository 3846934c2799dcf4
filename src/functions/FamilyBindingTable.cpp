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
    {{244}, kEng, 8, 0, kAllEight, "sim/flightmodel/engine/ENGN_mixt", kFltA, 1, 0},  // ENG_#_FUEL_RUN_CUTOFF
    // ENG_ALL_FUEL_PUMP is FUEL_PUMP, ENG_ALL_GENERATOR is ALTERNATOR_MASTER (single bindings).
    {{262}, kEng, 8, 0, kNoAll, "sim/cockpit/engine/fuel_pump_on", kIntA, 1, 0},  // ENG_#_FUEL_PUMP
    {{271}, kEng, 8, 0, kAllEight, "sim/cockpit/engine/igniters_on", kIntA, 1, 0},  // ENG_#_IGNITER
    {{280}, kEng, 8, 0, kNoAll, "sim/cockpit/electrical/generator_on", kIntA, 1, 0},  // ENG_#_GENERATOR
    // Only two inverters exist: engines 3..8 do nothing and ALL covers elements 0 and 1.
    {{289}, kEng, 2, 0, 2, "sim/cockpit/engine/inverter_on", kIntA, 1, 0},  // ENG_#_INVERTER
    // Cowl flaps: only ALL, and "on" closes them (0), "off" opens them (1).
    {{298}, kEng, 0, 0, kAllEight, "sim/flightmodel/engine/ENGN_cowl", kFltA, 0, 1},  // ENG_#_COWL_FLAPS
    // ENG_#_CARB_HEAT: only ALL, which is CARB_HEAT (single binding).
    {{316}, kEng, 8, 0, kAllEight, "sim/cockpit/engine/fadec_on", kIntA, 1, 0},  // ENG_#_FADEC
    {{325}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/governor_on", kIntA, 1, 0},  // ENG_#_GOVERNOR
    // ENG_#_ANTI_ICE_ENGINE_AIR
    {{334}, kEng, 8, 0, kAllEight, "sim/cockpit/switches/anti_ice_engine_air", kFltA, 1, 0},
    // ENG_#_AFTERBURNER_ENABLED
    {{343}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/afterburner_enabled", kIntA, 1, 0},
    // ENG_#_AUTO_IGNITE_ON
    {{352}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/auto_ignite_on", kIntA, 1, 0},
    {{361}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/primer_on", kIntA, 1, 0},  // ENG_#_PRIMER_ON
    // ENG_#_FIRE_EXTINGUISHER_ON
    {{370}, kEng, 8, 0, kAllEight, "sim/cockpit2/engine/actuators/fire_extinguisher_on", kIntA, 1, 0},
    {{379}, kEng, 8, 0, kAllEight, "sim/cockpit/electrical/battery_array_on", kIntA, 1, 0},  // SYS_#_BATTERY
    // The magneto families: only ALL; the on values are the key positions off 0, left 1, right 2,
    // both 3.
    {{388}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 3, 0},  // ENG_#_MAGNETO
    {{397}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 1, 0},  // ENG_#_MAGNETO_LEFT
    {{406}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 2, 0},  // ENG_#_MAGNETO_RIGHT
    {{415}, kEng, 0, 0, kAllEight, "sim/cockpit/engine/ignition_on", kIntA, 0, 0},  // ENG_#_MAGNETO_OFF
    // LANDING_LIGHTS_SWITCH01..16; LANDING_LIGHTS_SWITCH_ALL is a single binding.
    {{188}, FamilyScheme::kLandingLights, 16, 0, kNoAll, "sim/cockpit2/switches/landing_lights_switch", kFltA, 1,
     0},
    // The GF-WCP's engine annunciators. ALT_WARN, DC_GEN and GEN_OFF are three names of one light.
    {{488, 508, 520}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/generator_off", kIntA, 1, 0},
    {{492}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/auto_feather_arm", kIntA, 1, 0},
    // WCP_ENGN#_AUX_FUEL_PUMP is ENG_1_FUEL_PUMP .. ENG_4_FUEL_PUMP.
    {{496}, kWcp, 4, 0, kNoAll, "sim/cockpit/engine/fuel_pump_on", kIntA, 1, 0},
    {{500}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/bleed_air_fail", kIntA, 1, 0},
    {{504}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/bleed_air_off", kIntA, 1, 0},
    {{512}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/engine_fires", kIntA, 1, 0},
    {{516}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/fuel_pressure_low", kIntA, 1, 0},
    {{524}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/ice_vane_fail", kIntA, 1, 0},
    {{528}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/igniter_on", kIntA, 1, 0},
    {{532}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/oil_pressure_low", kIntA, 1, 0},
    // Lit while the ignition key is at START (4); switching it off returns the key to BOTH (3).
    {{536}, kWcp, 4, 0, kNoAll, "sim/cockpit2/engine/actuators/ignition_key", kIntA, 4, 3},
    {{562}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/oil_temperature_high", kIntA, 1, 0},
    {{566}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/chip_detected", kIntA, 1, 0},
    {{570}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/reverser_on", kIntA, 1, 0},
    {{574}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/burner_on", kIntA, 1, 0},
    {{578}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/N1_low", kIntA, 1, 0},
    {{582}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/N1_high", kIntA, 1, 0},
    {{586}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/reverser_not_ready", kIntA, 1, 0},
    {{590}, kWcp, 4, 0, kNoAll, "sim/cockpit/warnings/annunciators/ice_vane_extend", kIntA, 1, 0},
    // WCP_FUEL_TANK1_TRANSFER .. WCP_FUEL_TANK9_TRANSFER
    {{594}, FamilyScheme::kFuelTanks, 9, 0, kNoAll, "sim/cockpit/warnings/annunciators/fuel_transfer", kIntA, 1, 0},
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
