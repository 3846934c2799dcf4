// Ids that are named but build nothing: a control bound to one of them keeps function id 0 and
// does nothing, however it is used and whatever the simulator holds.
#include <string>
#include <vector>

#include "BindingTableFixture.h"

namespace drav::tabletest {
namespace {

void AddRange(std::vector<FunctionId>& ids, FunctionId first, FunctionId last) {
  for (FunctionId id = first; id <= last; ++id) ids.push_back(id);
}

std::vector<FunctionId> MakeUnbuiltSwitchIds() {
  std::vector<FunctionId> ids = {0, 83, 150, 151, 152, 154};
  AddRange(ids, 291, 296);  // ENG_3_INVERTER .. ENG_8_INVERTER
  AddRange(ids, 298, 305);  // ENG_1_COWL_FLAPS .. ENG_8_COWL_FLAPS
  AddRange(ids, 307, 314);  // ENG_1_CARB_HEAT .. ENG_8_CARB_HEAT
  AddRange(ids, 388, 395);  // ENG_1_MAGNETO .. ENG_8_MAGNETO
  AddRange(ids, 397, 404);  // ENG_n_MAGNETO_LEFT
  AddRange(ids, 406, 413);  // ENG_n_MAGNETO_RIGHT
  AddRange(ids, 415, 422);  // ENG_n_MAGNETO_OFF
  for (FunctionId id : {431, 432, 434, 435}) ids.push_back(id);  // aileron and rudder trim left/right
  for (FunctionId id : {480, 481}) ids.push_back(id);  // left and right starter energised
  ids.push_back(611);
  AddRange(ids, 612, 639);  // the levers belong to the throttle quadrant
  // Displays bound to a button by hand: nothing to select on a radio at these ids.
  for (FunctionId id : {113, 114, 115, 173, 174, 175, 427, 430, 433, 436, 439}) ids.push_back(id);
  return ids;
}

class UnbuiltSwitchId : public BindingTableTest, public ::testing::WithParamInterface<FunctionId> {};

TEST_P(UnbuiltSwitchId, LeavesTheRecordWithoutFunction) {
  const FunctionId id = GetParam();
  // Every engine at a value some family would light on, so a stray binding would show.
  for (const char* path : {"sim/cockpit/engine/inverter_on", "sim/cockpit/engine/ignition_on",
                           "sim/cockpit2/engine/actuators/carb_heat_ratio", "sim/flightmodel/engine/ENGN_cowl"}) {
    ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, 1)) << path;
  }
  host().ClearEvents();
  SwitchFunction record = Build(id);
  EXPECT_TRUE(host().Events().empty());
  EXPECT_EQ(GetFunctionId(record), 0);
  ExpectInert(record);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, UnbuiltSwitchId, ::testing::ValuesIn(MakeUnbuiltSwitchIds()));

class UnbuiltAvionicId : public BindingTableTest, public ::testing::WithParamInterface<FunctionId> {};

// MAP_RANGE and RMI_SELECTOR have no display object; the levers have none either.
TEST_P(UnbuiltAvionicId, GivesTheSlotNoObject) {
  AvionicFunction placeholder;
  AvionicFunction* slot = &placeholder;
  SwitchFunction record;
  ClearFunction(record);
  CreateFunction(GetParam(), &slot, record, -1, 2);
  EXPECT_TRUE(slot == &placeholder || slot == nullptr) << "the slot got an object";
  EXPECT_EQ(GetFunctionId(record), 0);
  EXPECT_TRUE(host().Events().empty());
}

INSTANTIATE_TEST_SUITE_P(Catalogue, UnbuiltAvionicId, ::testing::Values(76, 82, 83, 611, 612, 639));

}  // namespace
}  // namespace drav::tabletest
