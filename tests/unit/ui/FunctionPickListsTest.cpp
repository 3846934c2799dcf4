// The dialog's pick lists: their fixed content and order, the x737 items, the radio-directed items
// of the connected radio units, and that every offered name loads as a function.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "functions/FunctionCatalogue.h"
#include "hid/ModuleTypes.h"
#include "ui/DialogRows.h"
#include "ui/FunctionPickLists.h"
#include "ui/ItemList.h"

namespace drav {
namespace {

std::vector<std::string> Items(const std::string& list) {
  std::vector<std::string> items;
  for (std::string_view item : SplitItems(list)) items.emplace_back(item);
  return items;
}

std::ptrdiff_t PositionOf(const std::vector<std::string>& items, const std::string& name) {
  auto found = std::find(items.begin(), items.end(), name);
  return found == items.end() ? -1 : found - items.begin();
}

const std::vector<std::string> kX737Items = {"AP_CMD_A", "AP_CMD_B",  "AP_ALTINV",
                                             "AP_SPDINV", "AP_VORLOC", "AP_RIGHT_FLIGHT_DIR"};

// ---- every list ----------------------------------------------------------------------------------

TEST(PickListShape, EveryListStartsWithNoSelectionAndEndsEachItemWithASemicolon) {
  PickListContext radios{true, 2, 1, 3};
  const std::string lists[] = {
      GetButtonFunctionList(radios),      GetToggleFunctionList(radios),  GetAvionicFunctionList(kModuleGF46),
      GetAvionicFunctionList(kModuleGF166), GetAvionicFunctionList(kModuleGFRP48), GetLeverFunctionList(),
      GetWCPFunctionList()};
  for (const std::string& list : lists) {
    EXPECT_TRUE(list.starts_with("No Selection;")) << list.substr(0, 40);
    EXPECT_EQ(list.back(), ';');
    EXPECT_EQ(list.find(";;"), std::string::npos) << "an empty item";
  }
}

// The sizes tell whether a name was lost, doubled or misspelt in length.
TEST(PickListShape, TextLengthsMatchTheKnownSizes) {
  EXPECT_EQ(GetButtonFunctionList(PickListContext{true, 0, 0, 0}).size(), 4961u);
  EXPECT_EQ(GetButtonFunctionList(PickListContext{true, 1, 0, 0}).size(), 4961u + 304u);
  EXPECT_EQ(GetButtonFunctionList(PickListContext{true, 0, 1, 1}).size(), 4961u + 2 * 453u);
  EXPECT_EQ(GetToggleFunctionList(PickListContext{true, 0, 0, 0}).size(), 4987u);
  EXPECT_EQ(GetWCPFunctionList().size(), 3207u);
}

TEST(PickListShape, NoListOffersANameTwice) {
  PickListContext radios{true, 1, 1, 1};
  for (const std::string& list : {GetButtonFunctionList(radios), GetToggleFunctionList(radios),
                                  GetAvionicFunctionList(kModuleGFRP48), GetWCPFunctionList()}) {
    std::vector<std::string> items = Items(list);
    std::set<std::string> unique(items.begin(), items.end());
    EXPECT_EQ(unique.size(), items.size());
  }
}

// ---- the names load as functions -----------------------------------------------------------------

bool IsRadioDirected(const std::string& name) {
  return name.starts_with("GF166_") || name.starts_with("GF45_") || name.starts_with("GF46_");
}

// Four names are offered although no function has them: picking one stores the name, and the
// control does nothing.
const std::set<std::string> kNamesWithoutFunction = {"PANEL_BRIGHT_DECR", "PANEL_BRIGHT_INCR", "XPDR_TEST",
                                                      "WATER_RUDDER"};

void ExpectEveryNameKnown(const std::string& list, const char* what) {
  for (const std::string& name : Items(list)) {
    if (name == kNoSelectionItem || IsRadioDirected(name)) continue;
    if (kNamesWithoutFunction.count(name) != 0) {
      EXPECT_EQ(FindFunctionId(name.c_str()), kNada) << what << ": " << name << " was expected to be unknown";
    } else {
      EXPECT_NE(FindFunctionId(name.c_str()), kNada) << what << ": " << name;
    }
  }
}

TEST(PickListNames, EveryOfferedNameIsACatalogueFunctionExceptTheFourKnownGaps) {
  PickListContext x737{true, 0, 0, 0};
  ExpectEveryNameKnown(GetButtonFunctionList(x737), "buttons");
  ExpectEveryNameKnown(GetToggleFunctionList(x737), "toggles");
  for (std::uint32_t type : {kModuleGF45, kModuleGF166, kModuleGFMCP, kModuleGFRP48}) {
    ExpectEveryNameKnown(GetAvionicFunctionList(type), ModelName(type));
  }
  ExpectEveryNameKnown(GetLeverFunctionList(), "levers");
  ExpectEveryNameKnown(GetWCPFunctionList(), "annunciators");
  for (PickListKind kind : {PickListKind::kTrim, PickListKind::kGear, PickListKind::kFlap, PickListKind::kFuelFeed}) {
    ExpectEveryNameKnown(std::string(kNoSelectionItem) + ";" + FixedListText(kind), "fixed list");
  }
}

TEST(PickListNames, OnlyTheLeverListOffersLevers) {
  PickListContext context{true, 0, 0, 0};
  for (const std::string& list : {GetButtonFunctionList(context), GetToggleFunctionList(context),
                                  GetAvionicFunctionList(kModuleGFRP48), GetWCPFunctionList()}) {
    for (const std::string& name : Items(list)) {
      EXPECT_FALSE(IsLeverFunction(FindFunctionId(name.c_str()))) << name;
    }
  }
}

// ---- the button and toggle lists -----------------------------------------------------------------

TEST(ButtonPickList, WithoutRadiosEndsWithTheTransponderVfrButton) {
  std::vector<std::string> items = Items(GetButtonFunctionList(PickListContext{}));
  ASSERT_FALSE(items.empty());
  EXPECT_EQ(items.back(), "XPDR_VFR_SET");
  EXPECT_EQ(items[1], "ENG_1_FUEL_RUN_CUTOFF");
  EXPECT_EQ(items.size(), 1u + 138u + 139u);
}

TEST(ButtonPickList, TwoGF46UnitsAddNineteenItemsEachInUnitOrder) {
  std::vector<std::string> none = Items(GetButtonFunctionList(PickListContext{}));
  std::vector<std::string> items = Items(GetButtonFunctionList(PickListContext{false, 0, 0, 2}));
  ASSERT_EQ(items.size(), none.size() + 38);
  EXPECT_TRUE(std::equal(none.begin(), none.end(), items.begin()));
  EXPECT_EQ(items[none.size()], "GF46_1_FUNC_COM1_ACTIVE");
  EXPECT_EQ(items[none.size() + 18], "GF46_1_FUNC_NEXT");
  EXPECT_EQ(items[none.size() + 19], "GF46_2_FUNC_COM1_ACTIVE");
  EXPECT_EQ(items.back(), "GF46_2_FUNC_NEXT");
}

TEST(ButtonPickList, RadioItemsComeGF166FirstThenGF45ThenGF46) {
  std::vector<std::string> items = Items(GetButtonFunctionList(PickListContext{false, 1, 1, 1}));
  const auto gf166 = PositionOf(items, "GF166_1_FUNC_COM1_DUAL");
  const auto gf45 = PositionOf(items, "GF45_1_FUNC_COM1_ACTIVE");
  const auto gf46 = PositionOf(items, "GF46_1_FUNC_COM1_ACTIVE");
  ASSERT_GT(gf166, 0);
  EXPECT_EQ(gf45, gf166 + 13);
  EXPECT_EQ(gf46, gf45 + 19);
  EXPECT_EQ(items[static_cast<std::size_t>(gf45 - 1)], "GF166_1_FUNC_NEXT");
}

TEST(ButtonPickList, TenRadioUnitsKeepEveryItemWhole) {
  PickListContext ten{false, 0, 0, 10};
  const std::string list = GetButtonFunctionList(ten);
  EXPECT_GT(list.size(), 8192u);
  std::vector<std::string> items = Items(list);
  EXPECT_EQ(items.size(), 1u + 138u + 139u + 190u);
  EXPECT_EQ(items.back(), "GF46_10_FUNC_NEXT");
  EXPECT_EQ(PositionOf(items, "GF46_10_FUNC_COM1_ACTIVE"), static_cast<std::ptrdiff_t>(items.size()) - 19);
}

TEST(SwitchPickLists, X737ModeAddsSixItemsRightAfterArtStab) {
  for (bool toggles : {false, true}) {
    auto build = [toggles](bool x737) {
      PickListContext context{x737, 0, 0, 0};
      return Items(toggles ? GetToggleFunctionList(context) : GetButtonFunctionList(context));
    };
    std::vector<std::string> plain = build(false);
    std::vector<std::string> x737 = build(true);
    ASSERT_EQ(x737.size(), plain.size() + 6) << toggles;
    const auto artStab = PositionOf(x737, "ART_STAB");
    ASSERT_GT(artStab, 0);
    std::vector<std::string> inserted(x737.begin() + artStab + 1, x737.begin() + artStab + 7);
    EXPECT_EQ(inserted, kX737Items);
    EXPECT_EQ(x737[static_cast<std::size_t>(artStab + 7)], "AP_MASTER");
    for (const std::string& item : kX737Items) EXPECT_EQ(PositionOf(plain, item), -1) << item;
  }
}

TEST(SwitchPickLists, ToggleListKeepsItsOwnOrderAndHasNoRadioItems) {
  std::vector<std::string> items = Items(GetToggleFunctionList(PickListContext{false, 2, 2, 2}));
  EXPECT_EQ(items.size(), 1u + 140u + 138u);
  EXPECT_EQ(items.back(), "XPDR_VFR_SET");
  // BATTERY_MASTER sits among the masters here, not in the tail as for buttons.
  EXPECT_EQ(PositionOf(items, "BATTERY_MASTER"), PositionOf(items, "AVIONICS_MASTER") + 1);
  EXPECT_LT(PositionOf(items, "DME_FLIP"), PositionOf(items, "COM1_FLIP"));
  for (const std::string& item : items) EXPECT_FALSE(IsRadioDirected(item)) << item;
}

// ---- the other lists -----------------------------------------------------------------------------

TEST(AvionicPickList, EachModelGetsItsOwnNames) {
  std::vector<std::string> radio = Items(GetAvionicFunctionList(kModuleGF45));
  EXPECT_EQ(radio, Items(GetAvionicFunctionList(kModuleGF46)));
  EXPECT_EQ(radio.size(), 46u);
  EXPECT_EQ(radio[1], "ADF1_ACTIVE");
  EXPECT_EQ(radio.back(), "XPDR");

  std::vector<std::string> gf166 = Items(GetAvionicFunctionList(kModuleGF166));
  EXPECT_EQ(gf166.size(), 31u);
  EXPECT_EQ(gf166[3], "ADF1_DUAL");

  std::vector<std::string> panels = Items(GetAvionicFunctionList(kModuleGFMCP));
  EXPECT_EQ(panels, Items(GetAvionicFunctionList(kModuleGFMCPPro)));
  EXPECT_EQ(panels, Items(GetAvionicFunctionList(kModuleGFEFIS)));
  EXPECT_EQ(panels.size(), 29u);
  EXPECT_EQ(panels.back(), "RUDDER_TRIM");

  std::vector<std::string> rp48 = Items(GetAvionicFunctionList(kModuleGFRP48));
  EXPECT_EQ(rp48.size(), 67u);
  EXPECT_EQ(rp48.back(), "XPDR_DIGIT_4");
}

TEST(AvionicPickList, ModelsWithoutEncodersGetOnlyNoSelection) {
  const std::uint32_t withoutEncoders[] = {kModuleGFP8, kModuleGFTQ6, kModuleGFDIO, kModuleNone, 99u};
  for (std::uint32_t type : withoutEncoders) {
    EXPECT_EQ(GetAvionicFunctionList(type), "No Selection;") << type;
  }
}

TEST(LeverPickList, HasTwentySixLeversAfterNoSelection) {
  std::vector<std::string> items = Items(GetLeverFunctionList());
  ASSERT_EQ(items.size(), 27u);
  EXPECT_EQ(items[1], "ENG_1_THROTTLE");
  EXPECT_EQ(items[24], "ENG_8_PROP_PITCH");
  EXPECT_EQ(items[25], "FLAPS");
  EXPECT_EQ(items[26], "SPEED_BRAKE");
}

TEST(WcpPickList, RunsFromTheAfterburnerLightToTheLastStarterLight) {
  std::vector<std::string> items = Items(GetWCPFunctionList());
  EXPECT_EQ(items.size(), 151u);
  EXPECT_EQ(items[1], "WCP_AFTERBURNERS_ON");
  EXPECT_EQ(items.back(), "WCP_ENGN4_STARTER_ENERGISED");
}

}  // namespace
}  // namespace drav
