// Shared set-up for the binding-table tests: a fresh simulator per test, builders that go through
// the public factory, and one generic check for a function bound to a single dataref (or a range
// of an array dataref) with an on value, an off value and a comparison rule.
//
// The expectations live in the test files as plain tables, one row per function, so that a row the
// factory gets wrong shows up under that function's name.
#pragma once

#include <XPLMDataAccess.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <system_error>
#include <vector>

#include "functions/FunctionObjects.h"
#include "base/HostState.h"
#include "host/SimHost.h"

namespace drav::tabletest {

using Events = std::vector<std::string>;

// How a row's dataref is read and written.
enum class Cell { Int, Float, IntArray, FloatArray };
// How the read value lights the control.
enum class Compare { Equal, AtLeast };

inline bool IsArrayCell(Cell cell) { return cell == Cell::IntArray || cell == Cell::FloatArray; }
inline bool IsFloatCell(Cell cell) { return cell == Cell::Float || cell == Cell::FloatArray; }

// A value as the event log shows a write of it: ints truncated toward zero, floats in their
// shortest form.
inline std::string EventValue(Cell cell, double value) {
  if (IsFloatCell(cell)) return sim::FormatEventNumber(static_cast<float>(value), true);
  return std::to_string(static_cast<int>(value));
}

// The events of one write of `value` to a dataref: one per element of an array range.
inline Events WriteEvents(const std::string& path, Cell cell, int first, int count, double value) {
  const std::string text = EventValue(cell, value);
  if (!IsArrayCell(cell)) return {"dataref-write " + path + " " + text};
  Events events;
  for (int element = first; element < first + count; ++element) {
    events.push_back("dataref-write " + path + "[" + std::to_string(element) + "] " + text);
  }
  return events;
}

// One function bound to one dataref. For scalars `first` and `count` are unused.
struct SwitchRow {
  FunctionId id = 0;
  std::string name;
  std::string path;
  Cell cell = Cell::Int;
  int first = 0;
  int count = 1;
  double on = 1;
  double off = 0;
  Compare compare = Compare::Equal;
};

inline void PrintTo(const SwitchRow& row, std::ostream* out) { *out << row.id << " " << row.name; }

inline std::string RowTestName(const ::testing::TestParamInfo<SwitchRow>& info) { return info.param.name; }

inline constexpr int kOlderSimulator = 11000;

class BindingTableTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    root_ = std::filesystem::temp_directory_path() /
            ("drav-binding-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()) +
             "-" + std::to_string(reinterpret_cast<std::uintptr_t>(info)));
    host().Reset(root_);
    X737Mode = 0;
    // The tables name the datarefs as simulators before X-Plane 12 have them, and such a simulator
    // keeps those names; what X-Plane 12 uses instead has tests of its own.
    host().SetXPlaneVersion(kOlderSimulator);
    gSimulatorVersions.xplaneVersion = kOlderSimulator;
  }

  void TearDown() override {
    X737Mode = 0;
    gSimulatorVersions = SimulatorVersions{};
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static sim::SimHost& host() { return sim::SimHost::Current(); }

  // The aircraft's and the system's own datarefs, which the simulator does not have by itself.
  static void AddDataref(const std::string& path, Cell cell, int length = 1) {
    sim::DatarefType type = sim::DatarefType::Int;
    switch (cell) {
      case Cell::Int: type = sim::DatarefType::Int; break;
      case Cell::Float: type = sim::DatarefType::Float; break;
      case Cell::IntArray: type = sim::DatarefType::IntArray; break;
      case Cell::FloatArray: type = sim::DatarefType::FloatArray; break;
    }
    ASSERT_TRUE(host().AddDataref(sim::DatarefDecl{path, type, IsArrayCell(cell) ? length : 1, true})) << path;
  }

  // X-Plane declares a few of the bound datarefs read-only, so writes to them vanish. Replacing
  // them with a writable twin of the same type makes the write visible without changing the path.
  static void EnsureWritable(const std::string& path) {
    const auto decl = host().DescribeDataref(path);
    ASSERT_TRUE(decl.has_value()) << "the simulator has no " << path;
    if (decl->writable) return;
    sim::DatarefDecl twin = *decl;
    twin.writable = true;
    ASSERT_TRUE(host().AddDataref(twin)) << path;
  }

  // The factory as a module calls it for a button or switch: the record cleared, no avionic slot.
  static SwitchFunction Build(FunctionId id) {
    SwitchFunction record;
    ClearFunction(record);
    CreateFunction(id, nullptr, record, -1, -1);
    return record;
  }

  // The factory as a module calls it for an encoder or display.
  static AvionicFunction* BuildAvionic(FunctionId id) {
    AvionicFunction* function = nullptr;
    SwitchFunction scratch;
    ClearFunction(scratch);
    CreateFunction(id, &function, scratch, -1, 2);
    return function;
  }

  // The simulator events one execution causes.
  static Events Run(SwitchFunction& record, std::int32_t action, std::int32_t value = 0, std::int32_t forceOn = 0) {
    host().ClearEvents();
    ExecuteFunction(record, action, value, forceOn);
    return host().Events();
  }

  static std::int32_t Refreshed(SwitchFunction& record) {
    RefreshFunctionState(record);
    return GetFunctionState(record);
  }

  // Sets the row's first element (or the scalar) to firstValue and every other element of the
  // array to othersValue, then refreshes the record's light.
  static std::int32_t LightWith(SwitchFunction& record, const SwitchRow& row, double firstValue, double othersValue) {
    if (IsArrayCell(row.cell)) {
      EXPECT_TRUE(host().SetDatarefValue(row.path, -1, -1, othersValue)) << row.path;
      EXPECT_TRUE(host().SetDatarefValue(row.path, row.first, row.first, firstValue)) << row.path;
    } else {
      EXPECT_TRUE(host().SetDatarefValue(row.path, -1, -1, firstValue)) << row.path;
    }
    return Refreshed(record);
  }

  // A function that does nothing at all: no write, no command, a dark light.
  static void ExpectInert(SwitchFunction& record) {
    EXPECT_TRUE(Run(record, kActionOn).empty());
    EXPECT_TRUE(Run(record, kActionToggle).empty());
    EXPECT_TRUE(Run(record, kActionOff).empty());
    EXPECT_TRUE(Run(record, kActionSet, 1, 1).empty());
    EXPECT_EQ(Refreshed(record), 0);
  }

  // The whole meaning of a single-binding row: what On and Off write, and which values light it.
  // The row's dataref must exist in the simulator (sim/ paths do; add drav/ and x737/ ones first).
  static void ExpectSwitchRow(const SwitchRow& row) {
    SCOPED_TRACE(std::to_string(row.id) + " " + row.name + " on " + row.path);
    EnsureWritable(row.path);
    host().ClearEvents();
    SwitchFunction record = Build(row.id);
    EXPECT_TRUE(host().Events().empty()) << "building a function only reads the simulator";
    ASSERT_EQ(GetFunctionId(record), row.id);
    EXPECT_EQ(record.kind, kDatarefSwitch);
    EXPECT_EQ(record.bindingCount, 1);

    EXPECT_EQ(Run(record, kActionOn), WriteEvents(row.path, row.cell, row.first, row.count, row.on));
    EXPECT_EQ(Run(record, kActionOff), WriteEvents(row.path, row.cell, row.first, row.count, row.off));

    // Only the first element of a range decides, whatever the rest of the array holds.
    const double step = IsFloatCell(row.cell) ? 0.5 : 1.0;
    if (row.compare == Compare::AtLeast) {
      EXPECT_EQ(LightWith(record, row, row.on, row.on - step), 1) << "exactly the on value lights";
      EXPECT_EQ(LightWith(record, row, row.on + 2 * step, row.on - step), 1) << "more than the on value lights";
      EXPECT_EQ(LightWith(record, row, row.on - step, row.on), 0) << "less than the on value is dark";
    } else {
      EXPECT_EQ(LightWith(record, row, row.on, row.on + step), 1) << "the on value lights";
      EXPECT_EQ(LightWith(record, row, row.on + step, row.on), 0) << "only the on value lights";
    }
  }

 private:
  std::filesystem::path root_;
};

// A table of single-binding rows, one test per row.
class SwitchRowTest : public BindingTableTest, public ::testing::WithParamInterface<SwitchRow> {};

}  // namespace drav::tabletest
