// The simulator's datarefs: its own (a value per element, in the simulator) and those that plug-ins
// publish through accessors. The SDK functions and the SimHost test interface both act on this store.
#pragma once

#include <XPLMDataAccess.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/EventLog.h"
#include "host/SimHost.h"
#include "host/SlotTable.h"

namespace sim {

struct DatarefAccessors {
  XPLMGetDatai_f readInt = nullptr;
  XPLMSetDatai_f writeInt = nullptr;
  XPLMGetDataf_f readFloat = nullptr;
  XPLMSetDataf_f writeFloat = nullptr;
  XPLMGetDatad_f readDouble = nullptr;
  XPLMSetDatad_f writeDouble = nullptr;
  XPLMGetDatavi_f readIntArray = nullptr;
  XPLMSetDatavi_f writeIntArray = nullptr;
  XPLMGetDatavf_f readFloatArray = nullptr;
  XPLMSetDatavf_f writeFloatArray = nullptr;
  XPLMGetDatab_f readData = nullptr;
  XPLMSetDatab_f writeData = nullptr;
  void* readRefcon = nullptr;
  void* writeRefcon = nullptr;
};

// Who writes through the SDK setters: only the plug-in under test's writes are events.
enum class DatarefWriter { PluginUnderTest, OtherPlugin };

class DatarefStore {
 public:
  // Loads the built-in datarefs at their defaults.
  DatarefStore(EventLog& events, std::uint16_t generation);

  // ---- the SDK -------------------------------------------------------------------------------
  XPLMDataRef Find(std::string_view path) const;
  // Null when the path is empty or a live dataref already has it. A path whose dataref was removed
  // gets its old handle back, so handles that other code kept work again.
  XPLMDataRef Register(std::string_view path, XPLMDataTypeID types, bool writable,
                       const DatarefAccessors& accessors);
  void Unregister(XPLMDataRef handle);  // plug-in datarefs only
  bool IsGood(XPLMDataRef handle) const;
  bool CanWrite(XPLMDataRef handle) const;
  XPLMDataTypeID Types(XPLMDataRef handle) const;

  int GetInt(XPLMDataRef handle) const;
  float GetFloat(XPLMDataRef handle) const;
  double GetDouble(XPLMDataRef handle) const;
  int GetInts(XPLMDataRef handle, int* out, int offset, int max) const;
  int GetFloats(XPLMDataRef handle, float* out, int offset, int max) const;
  int GetBytes(XPLMDataRef handle, void* out, int offset, int maxBytes) const;

  void SetInt(XPLMDataRef handle, int value, DatarefWriter writer);
  void SetFloat(XPLMDataRef handle, float value, DatarefWriter writer);
  void SetDouble(XPLMDataRef handle, double value, DatarefWriter writer);
  void SetInts(XPLMDataRef handle, const int* values, int offset, int count, DatarefWriter writer);
  void SetFloats(XPLMDataRef handle, const float* values, int offset, int count,
                 DatarefWriter writer);
  void SetBytes(XPLMDataRef handle, void* values, int offset, int length);

  // ---- the host's test interface (see SimHost.h) ---------------------------------------------
  bool Add(const DatarefDecl& decl);
  void Remove(std::string_view path);
  bool Has(std::string_view path) const;
  std::optional<DatarefDecl> Describe(std::string_view path) const;
  bool SetValue(std::string_view path, int first, int last, double value);
  std::optional<double> GetValue(std::string_view path, int index) const;
  bool WriteAsOtherPlugin(std::string_view path, int index, double value);
  // The names only a simulator older than X-Plane 12 has, each unless the path is already live.
  void AddOlderSimulatorDatarefs();

 private:
  struct Record {
    std::string path;
    bool alive = true;
    bool pluginOwned = false;
    bool writable = false;
    DatarefType type = DatarefType::Int;  // simulator-owned: the one type it has
    std::vector<double> values;           // simulator-owned: one per element
    XPLMDataTypeID pluginTypes = xplmType_Unknown;
    DatarefAccessors accessors;
  };

  struct PathHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view path) const { return std::hash<std::string_view>{}(path); }
  };

  const Record* Live(XPLMDataRef handle) const;
  Record* Live(XPLMDataRef handle);
  const Record* LiveByPath(std::string_view path) const;
  Record* LiveByPath(std::string_view path);
  // The simulator-owned record of that type that may be written, or null.
  Record* WritableSimRecord(XPLMDataRef handle, DatarefType type);
  void StoreScalar(Record& record, double value, DatarefWriter writer);
  template <typename Element>
  void StoreElements(Record& record, const Element* values, int offset, int count,
                     DatarefWriter writer);
  void LoadBuiltins();

  EventLog& events_;
  SlotTable<Record> records_;
  std::unordered_map<std::string, std::size_t, PathHash, std::equal_to<>> indexByPath_;
};

}  // namespace sim
