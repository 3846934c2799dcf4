// The function catalogue: names and ids as DRAV.INI stores them, the composite keys of the avionic
// functions, and the id groups the rest of the plug-in tests.
#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "functions/FunctionCatalogue.h"

namespace drav {
namespace {

std::string NameOf(FunctionId id) { return GetFunctionName(id); }

// ---- the table as a whole ------------------------------------------------------------------------

TEST(FunctionCatalogueTable, HasOneEntryPerIdAndNothingOutside) {
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    const FunctionCatalogueEntry* entry = GetCatalogueEntry(id);
    ASSERT_NE(entry, nullptr) << id;
    EXPECT_EQ(entry->id, id);
    ASSERT_NE(entry->name, nullptr) << id;
    EXPECT_STREQ(GetFunctionName(id), entry->name);
  }
  for (FunctionId outside : {-1, kFunctionCount, kFunctionCount + 1, -640}) {
    EXPECT_EQ(GetCatalogueEntry(outside), nullptr) << outside;
    EXPECT_STREQ(GetFunctionName(outside), "") << outside;
  }
}

TEST(FunctionCatalogueTable, NamesAreUniqueUpperCaseIdentifiers) {
  std::set<std::string> seen;
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    const std::string name = NameOf(id);
    ASSERT_FALSE(name.empty()) << id;
    EXPECT_TRUE(seen.insert(name).second) << "duplicate name " << name;
    for (char c : name) {
      EXPECT_TRUE(std::isupper(static_cast<unsigned char>(c)) || std::isdigit(static_cast<unsigned char>(c)) ||
                  c == '_')
          << name;
    }
  }
}

TEST(FunctionCatalogueTable, OnlyTheAvionicIdsCarryAnIniSuffix) {
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    const FunctionCatalogueEntry* entry = GetCatalogueEntry(id);
    if (id >= 1 && id <= 82) {
      ASSERT_NE(entry->iniSuffix, nullptr) << id;
      EXPECT_EQ(std::string(entry->iniSuffix), "_FUNC_" + NameOf(id));
    } else {
      EXPECT_EQ(entry->iniSuffix, nullptr) << id << " " << NameOf(id);
    }
  }
  EXPECT_STREQ(GetCatalogueEntry(9)->iniSuffix, "_FUNC_COM1_ACTIVE");
}

// ---- ids of the named rows -----------------------------------------------------------------------

struct NamedId {
  const char* name;
  FunctionId id;
};

TEST(FunctionCatalogueIds, SpotChecksAcrossTheTable) {
  const NamedId expected[] = {
      {"NADA", 0},
      {"ADF1_ACTIVE", 1},
      {"ADF2_CARD", 8},
      {"COM1_ACTIVE", 9},
      {"COM1_STANDBY", 10},
      {"COM2_DUAL", 14},
      {"DME_DUAL", 17},
      {"NAV2_DUAL", 23},
      {"XPDR", 24},
      {"COM1_COM2_TOGGLE", 28},
      {"XPDR_DIGIT_1", 29},
      {"XPDR_DIGIT_4", 32},
      {"ADF1_ACTIVE_COARSE", 33},
      {"ADF2_STANDBY_FINE", 40},
      {"COM1_ACTIVE_COARSE", 41},
      {"COM2_STANDBY_FINE", 48},
      {"DME_ACTIVE_COARSE", 49},
      {"NAV1_STANDBY_FINE", 56},
      {"OBS1", 61},
      {"AP_VERT_SPEED_ADJ", 67},
      {"ALTIMETER", 68},
      {"DECISION_HEIGHT", 75},
      {"MAP_RANGE", 76},
      {"RMI_SELECTOR", 82},
      {"MAX_AVIONIC", 83},
      {"AP_NAV2_HOLD", 84},
      {"FUNC_INST", 85},
      {"FUNC_AP", 86},
      {"SPEED_BRAKE", 87},
      {"AP_IAS_MACH_SEL", 99},
      {"AP_RIGHT_FLIGHT_DIR", 112},
      {"EFIS_ND_MODE_MAP", 124},
      {"EFIS_ND_RANGE_640NM", 132},
      {"EICAS_DSP_FAIL", 141},
      {"AUDPNL_DME_IDENT", 149},
      {"XPDR_VFR_SET", 154},
      {"BATTERY_MASTER", 156},
      {"LANDING_LTS", 160},
      {"ARRESTOR_HOOK", 172},
      {"FUEL_FEED", 173},
      {"LANDING_LIGHTS_SWITCH_ALL", 187},
      {"LANDING_LIGHTS_SWITCH01", 188},
      {"LANDING_LIGHTS_SWITCH16", 203},
      {"ANTI_ICE_INLET_HEAT", 204},
      {"APU_GENERATOR_SWITCH", 223},
      {"FUEL_FEED_CENTRE", 226},
      {"ELECTRIC_HYDRAULIC_PUMP", 236},
      {"NAV1_FLIP", 237},
      {"DME_FLIP", 243},
      {"ENG_1_FUEL_RUN_CUTOFF", 244},
      {"ENG_ALL_START", 261},
      {"SYS_1_BATTERY", 379},
      {"SYS_ALL_BATTERY", 387},
      {"ENG_1_MAGNETO", 388},
      {"ENG_8_MAGNETO_OFF", 422},
      {"ENG_ALL_MAGNETO_OFF", 423},
      {"FLAPS_UP_DOWN", 424},
      {"PARKING_BRAKE", 438},
      {"AUTO_BRAKE", 439},
      {"AP_STATE_AUTO_THROTTLE_ENGAGE", 440},
      {"AP_STATE_VNAV_ENGAGED", 458},
      {"WCP_AP_FAIL", 459},
      {"WCP_FASTEN_SEATBELT_WARNING", 487},
      {"WCP_ENGN1_ALT_WARN", 488},
      {"WCP_ENGN4_STARTER_ENERGISED", 539},
      {"WCP_AUTOPILOT_DISCONNECT", 540},
      {"WCP_INVERTER_2_OFF", 561},
      {"WCP_ENGN1_OIL_TEMP_HIGH", 562},
      {"WCP_ENGN4_ICE_VANE_EXTENDED", 593},
      {"WCP_FUEL_TANK1_TRANSFER", 594},
      {"WCP_FUEL_TANK9_TRANSFER", 602},
      {"WCP_INVERTERS_FAIL", 603},
      {"WCP_AFTERBURNERS_ON", 610},
      {"MAX_SUBSYSTEM", 611},
      {"FLAPS", 612},
      {"ENG_1_THROTTLE", 613},
      {"ENG_ALL_THROTTLE", 621},
      {"ENG_1_MIXTURE", 622},
      {"ENG_ALL_PROP_PITCH", 639},
  };
  for (const NamedId& row : expected) {
    EXPECT_EQ(NameOf(row.id), row.name) << row.id;
    EXPECT_EQ(FindFunctionId(row.name), row.id) << row.name;
  }
}

// The irregular rows: NAV2's active pair is fine-first, unlike every other radio's four.
TEST(FunctionCatalogueIds, RadioAdjustRowsKeepTheirOrder) {
  const char* radios[] = {"ADF1", "ADF2", "COM1", "COM2", "DME", "NAV1"};
  const char* regular[] = {"_ACTIVE_COARSE", "_ACTIVE_FINE", "_STANDBY_COARSE", "_STANDBY_FINE"};
  FunctionId id = 33;
  for (const char* radio : radios) {
    for (const char* adjust : regular) EXPECT_EQ(NameOf(id++), std::string(radio) + adjust);
  }
  EXPECT_EQ(NameOf(57), "NAV2_ACTIVE_FINE");
  EXPECT_EQ(NameOf(58), "NAV2_ACTIVE_COARSE");
  EXPECT_EQ(NameOf(59), "NAV2_STANDBY_COARSE");
  EXPECT_EQ(NameOf(60), "NAV2_STANDBY_FINE");
}

TEST(FunctionCatalogueIds, CentreIsSpeltTheBritishWay) {
  EXPECT_EQ(FindFunctionId("FUEL_FEED_CENTRE"), 226);
  EXPECT_EQ(FindFunctionId("FUEL_FEED_CENTER"), kNada);
}

struct Family {
  std::string pattern;  // '#' stands for the member
  std::vector<std::string> members;
  FunctionId first;
};

std::vector<std::string> Numbered(int from, int to, const char* format = "%d") {
  std::vector<std::string> members;
  for (int i = from; i <= to; ++i) {
    char text[8];
    std::snprintf(text, sizeof text, format, i);
    members.emplace_back(text);
  }
  return members;
}

std::string Expand(const std::string& pattern, const std::string& member) {
  std::string name = pattern;
  name.replace(name.find('#'), 1, member);
  return name;
}

// Every member of every family, at its first id plus its position: 316 of the 640 ids.
TEST(FunctionCatalogueIds, FamiliesRiseWithTheirMember) {
  std::vector<std::string> engines = Numbered(1, 8);
  engines.emplace_back("ALL");
  const std::vector<std::string> wcpEngines = Numbered(1, 4);
  std::vector<Family> families = {
      {"LANDING_LIGHTS_SWITCH#", Numbered(1, 16, "%02d"), 188},
      {"SYS_#_BATTERY", engines, 379},
      {"WCP_FUEL_TANK#_TRANSFER", Numbered(1, 9), 594},
  };
  const std::pair<const char*, FunctionId> engineFamilies[] = {
      {"FUEL_RUN_CUTOFF", 244}, {"START", 253}, {"FUEL_PUMP", 262}, {"IGNITER", 271},
      {"GENERATOR", 280}, {"INVERTER", 289}, {"COWL_FLAPS", 298}, {"CARB_HEAT", 307},
      {"FADEC", 316}, {"GOVERNOR", 325}, {"ANTI_ICE_ENGINE_AIR", 334}, {"AFTERBURNER_ENABLED", 343},
      {"AUTO_IGNITE_ON", 352}, {"PRIMER_ON", 361}, {"FIRE_EXTINGUISHER_ON", 370}, {"MAGNETO", 388},
      {"MAGNETO_LEFT", 397}, {"MAGNETO_RIGHT", 406}, {"MAGNETO_OFF", 415}, {"THROTTLE", 613},
      {"MIXTURE", 622}, {"PROP_PITCH", 631},
  };
  for (const auto& [function, first] : engineFamilies) {
    families.push_back({std::string("ENG_#_") + function, engines, first});
  }
  const std::pair<const char*, FunctionId> annunciatorFamilies[] = {
      {"ALT_WARN", 488}, {"AUTO_FEATHER", 492}, {"AUX_FUEL_PUMP", 496}, {"BLEED_AIR_FAIL", 500},
      {"BLEED_AIR_OFF", 504}, {"DC_GEN", 508}, {"ENG_FIRE", 512}, {"FUEL_PRESS_LOW", 516},
      {"GEN_OFF", 520}, {"ICE_VANE", 524}, {"IGNITER_ON", 528}, {"OIL_PRESS_LOW", 532},
      {"STARTER_ENERGISED", 536}, {"OIL_TEMP_HIGH", 562}, {"CHIP_DETECT", 566},
      {"REVERSER_DEPLOYED", 570}, {"AFTERBURNER_ON", 574}, {"N1_LOW", 578}, {"N1_HIGH", 582},
      {"REVERSER_NOT_READY", 586}, {"ICE_VANE_EXTENDED", 590},
  };
  for (const auto& [annunciator, first] : annunciatorFamilies) {
    families.push_back({std::string("WCP_ENGN#_") + annunciator, wcpEngines, first});
  }

  int covered = 0;
  for (const Family& family : families) {
    for (std::size_t i = 0; i < family.members.size(); ++i) {
      const FunctionId id = family.first + static_cast<FunctionId>(i);
      EXPECT_EQ(NameOf(id), Expand(family.pattern, family.members[i])) << family.pattern;
      ++covered;
    }
  }
  EXPECT_EQ(covered, 16 + 9 + 9 + 22 * 9 + 21 * 4);
}

// ---- FindFunctionId ------------------------------------------------------------------------------

// A plain name never contains "_FUNC_", so no earlier suffix can shadow it: every name finds itself.
TEST(FunctionCatalogueLookup, EveryNameFindsItsOwnId) {
  std::vector<FunctionId> shadowed;
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    if (FindFunctionId(GetFunctionName(id)) != id) shadowed.push_back(id);
  }
  EXPECT_TRUE(shadowed.empty()) << shadowed.size() << " names resolve elsewhere, first " << shadowed.front();
}

TEST(FunctionCatalogueLookup, NothingResolvesToNoFunction) {
  EXPECT_EQ(FindFunctionId("NADA"), kNada);
  EXPECT_EQ(FindFunctionId(""), kNada);
  EXPECT_EQ(FindFunctionId(nullptr), kNada);
  EXPECT_EQ(FindFunctionId("NOT_A_FUNCTION"), kNada);
  EXPECT_EQ(FindFunctionId("_FUNC_"), kNada);
}

TEST(FunctionCatalogueLookup, PlainNamesMatchExactlyAndCaseSensitively) {
  EXPECT_EQ(FindFunctionId("COM1_STANDBY"), 10);
  EXPECT_EQ(FindFunctionId("com1_standby"), kNada);
  EXPECT_EQ(FindFunctionId("COM1_STANDBY "), kNada);
  EXPECT_EQ(FindFunctionId("COM1_STANDB"), kNada);
  EXPECT_EQ(FindFunctionId("AP_MASTER_X"), kNada);
  EXPECT_EQ(FindFunctionId("MAX_AVIONIC"), kMaxAvionic);
  EXPECT_EQ(FindFunctionId("MAX_SUBSYSTEM"), kMaxSubsystem);
}

TEST(FunctionCatalogueLookup, CompositeKeysNameAvionicFunctionsOnly) {
  EXPECT_EQ(FindFunctionId("GF46_2_FUNC_COM1_STANDBY"), 10);
  EXPECT_EQ(FindFunctionId("GF45_0_FUNC_RMI_SELECTOR"), 82);
  EXPECT_EQ(FindFunctionId("_FUNC_TRANSPONDER_MODE"), 79);
  // The suffix may stand anywhere, trailing text included.
  EXPECT_EQ(FindFunctionId("GF166_1_FUNC_OBS2_SPARE"), 62);
  // Switches and levers have no suffix: a composite key never reaches them.
  EXPECT_EQ(FindFunctionId("GF45_1_FUNC_AP_MASTER"), kNada);
  EXPECT_EQ(FindFunctionId("GF45_1_FUNC_ENG_1_THROTTLE"), kNada);
  EXPECT_EQ(FindFunctionId("GF45_1_FUNC_MAX_AVIONIC"), kNada);
}

// The first match in id order wins, so the composite key of an avionic function whose name extends
// an earlier one resolves to the earlier id. These are exactly the fine/coarse adjustments (to their
// radio's active or standby function) and the transponder digits (to XPDR).
TEST(FunctionCatalogueLookup, CompositeKeysShadowedByAnEarlierSuffix) {
  EXPECT_EQ(FindFunctionId("X_FUNC_ADF1_ACTIVE_COARSE"), 1);
  EXPECT_EQ(FindFunctionId("GF46_1_FUNC_NAV2_ACTIVE_FINE"), 21);

  std::map<FunctionId, FunctionId> expected;
  for (FunctionId digit = 29; digit <= 32; ++digit) expected[digit] = 24;
  const FunctionId radioActive[] = {1, 5, 9, 12, 15, 18, 21};  // ADF1 ADF2 COM1 COM2 DME NAV1 NAV2
  for (int radio = 0; radio < 7; ++radio) {
    const FunctionId first = 33 + 4 * radio;
    expected[first] = expected[first + 1] = radioActive[radio];
    expected[first + 2] = expected[first + 3] = radioActive[radio] + 1;
  }

  std::map<FunctionId, FunctionId> shadowed;
  for (FunctionId id = 1; id < kMaxAvionic; ++id) {
    const FunctionId found = FindFunctionId(("GF45_3" + std::string(GetCatalogueEntry(id)->iniSuffix)).c_str());
    if (found != id) shadowed[id] = found;
  }
  EXPECT_EQ(shadowed, expected);
}

// ---- groups --------------------------------------------------------------------------------------

TEST(FunctionCatalogueGroups, BoundsSplitTheIdsIntoDisjointGroups) {
  EXPECT_FALSE(IsAvionicFunction(kNada));
  EXPECT_TRUE(IsAvionicFunction(1));
  EXPECT_TRUE(IsAvionicFunction(82));
  EXPECT_FALSE(IsAvionicFunction(kMaxAvionic));
  EXPECT_FALSE(IsSwitchFunction(kMaxAvionic));
  EXPECT_TRUE(IsSwitchFunction(84));
  EXPECT_TRUE(IsSwitchFunction(610));
  EXPECT_FALSE(IsSwitchFunction(kMaxSubsystem));
  EXPECT_FALSE(IsLeverFunction(kMaxSubsystem));
  EXPECT_TRUE(IsLeverFunction(612));
  EXPECT_TRUE(IsLeverFunction(639));
  EXPECT_FALSE(IsLeverFunction(kFunctionCount));
  EXPECT_FALSE(IsAvionicFunction(-1));
  EXPECT_FALSE(IsSwitchFunction(-1));
  EXPECT_FALSE(IsLeverFunction(-1));

  int avionic = 0;
  int switches = 0;
  int levers = 0;
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    const int groups = int{IsAvionicFunction(id)} + int{IsSwitchFunction(id)} + int{IsLeverFunction(id)};
    const bool boundary = id == kNada || id == kMaxAvionic || id == kMaxSubsystem;
    EXPECT_EQ(groups, boundary ? 0 : 1) << id;
    avionic += IsAvionicFunction(id);
    switches += IsSwitchFunction(id);
    levers += IsLeverFunction(id);
  }
  EXPECT_EQ(avionic, 82);
  EXPECT_EQ(switches, 527);
  EXPECT_EQ(levers, 28);
}

TEST(FunctionCatalogueGroups, TheLeverGroupHoldsFlapsAndTheEngineLevers) {
  EXPECT_TRUE(IsLeverFunction(FindFunctionId("FLAPS")));
  EXPECT_TRUE(IsLeverFunction(FindFunctionId("ENG_3_MIXTURE")));
  EXPECT_TRUE(IsSwitchFunction(FindFunctionId("SPEED_BRAKE")));
  EXPECT_TRUE(IsAvionicFunction(FindFunctionId("COM1_COM2_TOGGLE")));
}

}  // namespace
}  // namespace drav
