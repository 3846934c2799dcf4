// Everything the device layer knows about a panel model, in one row per model: the names the pilot
// and the device log use, the unit's configuration section, the product id (vendor 0x09F3), how many
// units the layer can hold, the device class its objects run on and what its units' ports can tell
// them. The model number itself is the ModuleType enumerator (ModuleTypes.h).
//
// The rows are not written here: each stands in its model's own file, above this floor
// (src/modules/<Model>_Module.cpp, written with the builders of ModelRows.h), and the plug-in's
// context hands the layer all of them, in the order of the product-id tests, when it makes the
// layer's state (PanelModelTable, kept in HidState).
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "hid/DeviceClasses.h"
#include "hid/ModuleTypes.h"

namespace drav {

inline constexpr std::uint16_t kPanelVendorId = 0x09F3;

class DeviceObject;

// What a model's units can be told through their ports (UnitPort.h), each operation run on a present
// unit's object (PortOperations.h); null: the model cannot (the port answers 2, as for an encoder
// that built nothing).
struct PortModel {
  std::int32_t (*setDisplay)(DeviceObject& object, int display, const char* text) = nullptr;
  std::int32_t (*setIndicators)(DeviceObject& object, std::uint32_t mask) = nullptr;
  std::int32_t (*setIndicatorColour)(DeviceObject& object, std::uint8_t indicator, std::uint8_t colour) = nullptr;
  std::int32_t (*setOutputs)(DeviceObject& object, const std::array<std::uint8_t, 4>& outputs) = nullptr;
  std::int32_t (*setEncoderType)(DeviceObject& object, std::uint8_t first, std::uint8_t second) = nullptr;
  std::int32_t (*setBrightness)(DeviceObject& object, std::int32_t value) = nullptr;
  std::int32_t (*readBrightness)(DeviceObject& object, std::uint32_t& level) = nullptr;
};

struct PanelModel {
  ModuleType moduleType;
  const char* name;           // "GF-45": how the pilot, the dialog and the scenarios know the panel
  const char* logWord;        // "GF45": the device log's word; "Unknown" for models without a module
  const char* sectionFormat;  // "GF45_%d": the unit's configuration section, unit counted from 1
  std::uint16_t productId;
  int slots;                  // units of this model the layer can hold at once; 0: no table
  DeviceClass deviceClass;
  PortModel port{};           // what its units can be told
};

// The answer for every number that is not a model: "NONE", log word "Unknown", section "NONE".
inline constexpr PanelModel kNoPanelModel = {kModuleNone, "NONE", "Unknown", "NONE", 0, 0, {}};

// The rows the layer was handed, looked up by model number or product id.
class PanelModelTable {
 public:
  // The rows in the order of the product-id tests, which is also the order in which the tables are
  // walked and torn down. Null entries, numbers that are not models and a number's second row are
  // passed over.
  explicit PanelModelTable(std::span<const PanelModel* const> rowsInLookupOrder);
  PanelModelTable(const PanelModelTable&) = delete;
  PanelModelTable& operator=(const PanelModelTable&) = delete;

  // The model's row; the "NONE" row for a number without one.
  const PanelModel& Row(std::uint32_t moduleType) const;
  // The models with a table (slots), in lookup order.
  std::span<const PanelModel* const> WithTables() const { return {withTables_.data(), tableCount_}; }
  // Null for a model without a table (GF-TPM) and a number that is not a model.
  const PanelModel* WithTable(std::uint32_t moduleType) const;
  const PanelModel* ByProductId(std::uint16_t productId) const;

 private:
  std::array<const PanelModel*, kLastModuleType + 1> byType_{};
  std::array<const PanelModel*, kLastModuleType> withTables_{};
  std::size_t tableCount_ = 0;
};

// The running plug-in's table (HidState), for the floors above and the layer's main-thread code.
std::span<const PanelModel* const> PanelModels();
const PanelModel* FindPanelModel(std::uint32_t moduleType);
const PanelModel* FindPanelModelByProductId(std::uint16_t productId);

}  // namespace drav
