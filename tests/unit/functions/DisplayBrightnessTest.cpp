// The shared display brightness: which panel is asked for it, which panels receive it and in what
// order (as the models' descriptors and the registry's orders give them), the GF-LGT2's reversed scale, and failed device calls leaving the level as it was.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include "functions/AvionicDisplay.h"
#include "functions/DisplayBrightness.h"
#include "functions/FunctionState.h"
#include "hid/GFDev.h"
#include "hid/ModuleTypes.h"
#include "modules/ModuleManager.h"
#include "modules/ModulePanelDirectory.h"

namespace drav {
namespace {

using Types = std::vector<std::uint32_t>;
constexpr std::size_t kReadModels = 10;
constexpr std::size_t kWriteModels = 11;

// ---- fakes in place of the device layer ---------------------------------------------------------

struct FakePanels {
  std::array<std::int32_t, kLastModuleType + 1> units{};
  std::int32_t readResult = kGFDevDone;
  std::int32_t readValue = 0;
  std::vector<std::pair<std::size_t, std::int32_t>> reads;                 // (table row, unit)
  std::vector<std::tuple<std::size_t, std::int32_t, std::int32_t>> writes;  // (row, unit, value)
};
FakePanels gFake;

std::int32_t FakeUnits(std::uint32_t moduleType) {
  return moduleType < gFake.units.size() ? gFake.units[moduleType] : 0;
}

template <std::size_t Row>
std::int32_t FakeRead(std::int32_t unit, std::int32_t* level) {
  gFake.reads.emplace_back(Row, unit);
  if (gFake.readResult == kGFDevDone) *level = gFake.readValue;
  return gFake.readResult;
}

template <std::size_t Row>
std::int32_t FakeWrite(std::int32_t unit, std::int32_t value) {
  gFake.writes.emplace_back(Row, unit, value);
  return kGFDevDone;
}

// The production tables with every device call replaced by a recording fake of the same row.
template <std::size_t... Rows>
std::array<BrightnessReader, sizeof...(Rows)> FakeReaders(std::index_sequence<Rows...>) {
  return {BrightnessReader{BrightnessReadOrder()[Rows].moduleType, FakeRead<Rows>}...};
}
template <std::size_t... Rows>
std::array<BrightnessWriter, sizeof...(Rows)> FakeWriters(std::index_sequence<Rows...>) {
  return {BrightnessWriter{BrightnessWriteOrder()[Rows].moduleType, FakeWrite<Rows>,
                           BrightnessWriteOrder()[Rows].reversedScale}...};
}

// The row of a model in a production table (past the end when it has none).
template <typename Table>
std::size_t RowOf(const Table& table, std::uint32_t type) {
  std::size_t row = 0;
  while (row < table.size() && table[row].moduleType != type) ++row;
  return row;
}
std::size_t ReadRowOf(std::uint32_t type) { return RowOf(BrightnessReadOrder(), type); }
std::size_t WriteRowOf(std::uint32_t type) { return RowOf(BrightnessWriteOrder(), type); }

class DisplayBrightnessTest : public ::testing::Test {
 protected:
  void SetUp() override {
    gFake = {};
    CurrentFunctionState().panelDirectory = &panels_;
    ASSERT_EQ(BrightnessReadOrder().size(), kReadModels);
    ASSERT_EQ(BrightnessWriteOrder().size(), kWriteModels);
    readers_ = FakeReaders(std::make_index_sequence<kReadModels>{});
    writers_ = FakeWriters(std::make_index_sequence<kWriteModels>{});
  }

  void Refresh() { RefreshDisplayBrightnessLevel(FakeUnits, readers_); }
  void Send() { SendDisplayBrightnessLevel(FakeUnits, writers_); }

  // The production models' descriptors, with no module made: every model has 0 units.
  ModuleManager manager_;
  ModulePanelDirectory panels_{manager_};
  std::array<BrightnessReader, kReadModels> readers_{};
  std::array<BrightnessWriter, kWriteModels> writers_{};
};

// ---- the tables ---------------------------------------------------------------------------------

TEST_F(DisplayBrightnessTest, PanelsAreAskedInTheirOrder) {
  Types types;
  for (const BrightnessReader& reader : BrightnessReadOrder()) types.push_back(reader.moduleType);
  EXPECT_EQ(types, (Types{kModuleGFP8, kModuleGFT8, kModuleGF166, kModuleGFLGT, kModuleGFLGT2, kModuleGFMCP,
                          kModuleGFMCPPro, kModuleGFRP48, kModuleGF46, kModuleGFWCP}));
}

TEST_F(DisplayBrightnessTest, PanelsAreSentTheLevelInTheirOrderAndOnlyTheLgt2CountsDown) {
  Types types;
  Types reversed;
  for (const BrightnessWriter& writer : BrightnessWriteOrder()) {
    types.push_back(writer.moduleType);
    if (writer.reversedScale) reversed.push_back(writer.moduleType);
  }
  EXPECT_EQ(types, (Types{kModuleGF45, kModuleGF46, kModuleGFP8, kModuleGFT8, kModuleGFLGT, kModuleGFLGT2,
                          kModuleGF166, kModuleGFMCP, kModuleGFMCPPro, kModuleGFRP48, kModuleGFWCP}));
  EXPECT_EQ(reversed, Types{kModuleGFLGT2});
}

// ---- reading the level --------------------------------------------------------------------------

TEST_F(DisplayBrightnessTest, NoPanelLeavesTheLevelAndIsSentNothing) {
  Refresh();
  EXPECT_TRUE(gFake.reads.empty());
  EXPECT_EQ(GetDisplayBrightnessLevel(), 8);
  Send();
  EXPECT_TRUE(gFake.writes.empty());
}

TEST_F(DisplayBrightnessTest, TheFirstConnectedModelAnswersFromUnitZero) {
  gFake.units[kModuleGFMCP] = 2;
  gFake.units[kModuleGFT8] = 3;
  gFake.units[kModuleGFWCP] = 1;
  gFake.readValue = 13;
  Refresh();
  EXPECT_EQ(gFake.reads, (std::vector<std::pair<std::size_t, std::int32_t>>{{ReadRowOf(kModuleGFT8), 0}}));
  EXPECT_EQ(GetDisplayBrightnessLevel(), 13);
}

TEST_F(DisplayBrightnessTest, ModelsWithoutReadableBrightnessAreNotAsked) {
  gFake.units[kModuleGF45] = 4;  // no getter
  gFake.units[kModuleGFEFIS] = 1;
  gFake.units[kModuleGF46] = 1;
  gFake.readValue = 3;
  Refresh();
  EXPECT_EQ(gFake.reads, (std::vector<std::pair<std::size_t, std::int32_t>>{{ReadRowOf(kModuleGF46), 0}}));
  EXPECT_EQ(GetDisplayBrightnessLevel(), 3);
}

TEST_F(DisplayBrightnessTest, AFailedReadKeepsTheLevelAndAsksNoOtherModel) {
  gFake.units[kModuleGFP8] = 1;
  gFake.units[kModuleGFWCP] = 1;
  gFake.readResult = kGFDevFeatureReadFailed;
  gFake.readValue = 2;
  Refresh();
  EXPECT_EQ(gFake.reads.size(), 1u);
  EXPECT_EQ(GetDisplayBrightnessLevel(), 8);
}

// ---- sending the level --------------------------------------------------------------------------

TEST_F(DisplayBrightnessTest, EveryUnitOfEveryModelReceivesTheLevelInOrder) {
  gFake.units[kModuleGFWCP] = 2;
  gFake.units[kModuleGFLGT2] = 1;
  gFake.units[kModuleGF45] = 2;
  gFake.units[kModuleGFEFIS] = 1;  // no brightness: nothing sent
  SetDisplayBrightnessLevel(11);
  Send();
  using Write = std::tuple<std::size_t, std::int32_t, std::int32_t>;
  EXPECT_EQ(gFake.writes, (std::vector<Write>{{WriteRowOf(kModuleGF45), 0, 11},
                                              {WriteRowOf(kModuleGF45), 1, 11},
                                              {WriteRowOf(kModuleGFLGT2), 0, 4},
                                              {WriteRowOf(kModuleGFWCP), 0, 11},
                                              {WriteRowOf(kModuleGFWCP), 1, 11}}));
}

// ---- against the device layer itself (no panel attached in a test) ------------------------------

TEST_F(DisplayBrightnessTest, RealGettersWithoutDeviceLeaveTheLevelUntouched) {
  for (const BrightnessReader& reader : BrightnessReadOrder()) {
    std::int32_t level = 8;
    EXPECT_NE(reader.read(0, &level), kGFDevDone) << reader.moduleType;
    EXPECT_NE(reader.read(99, &level), kGFDevDone) << reader.moduleType;
    EXPECT_EQ(level, 8) << reader.moduleType;
  }
}

TEST_F(DisplayBrightnessTest, RealSettersAndCountsWithoutDeviceAreHarmless) {
  // More units than any table has slots: the device layer answers errors, which are ignored.
  SendDisplayBrightnessLevel([](std::uint32_t) { return std::int32_t{40}; });
  RefreshDisplayBrightnessLevel();
  SendDisplayBrightnessLevel();
  EXPECT_EQ(GetDisplayBrightnessLevel(), 8);
}

}  // namespace
}  // namespace drav
