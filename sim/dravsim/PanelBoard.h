// The virtual units a scenario has plugged, by the names it gave them: each unit's device path on
// the virtual backend, its model, and the input state its high-level commands compose reports from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dravsim/PanelModels.h"
#include "hid/backend/VirtualHidBackend.h"
#include "hid/ModelTable.h"

namespace dravsim {

struct PanelUnit {
  std::string name;
  std::string path;                       // as plugged, upper case
  const drav::PanelModel* model = nullptr;  // null for a device outside the family
  std::optional<PanelInputState> input;   // null for a device outside the family
  std::uint16_t inputLength = 8;
  bool writesFail = false;  // `fail NAME write on`: its queued reports stay queued
  bool writesBlock = false;  // `fail NAME block on`: its writer stalls inside a write
  int renumberings = 0;      // times another device took its path while it was unplugged
  bool featuresBlock = false;  // `fail NAME feature-block on`: its feature reads stall
  // What the unit was sent before the last `clear`, cut down to what its face still shows, so that
  // its displays and lights survive a clear: a real panel keeps showing what it was last told.
  std::vector<drav::VirtualSentReport> face;
};

// Appends `sent` to `face` and keeps only the last report of each kind, length, report id and
// first data byte, in their order. Every rule that reads a panel's face looks at the last report
// of a report id (and of a display or light index in its first byte), so none of them can tell.
void FoldIntoFace(std::vector<drav::VirtualSentReport>& face, const std::vector<drav::VirtualSentReport>& sent);

class PanelBoard {
 public:
  PanelUnit* Find(std::string_view name);
  const std::vector<PanelUnit>& Units() const { return units_; }
  std::vector<PanelUnit>& Units() { return units_; }
  PanelUnit& Add(PanelUnit unit);
  bool AnyWritesFail() const;

 private:
  std::vector<PanelUnit> units_;
};

// "\\?\HID#VID_09F3&PID_0020#DRAVSIM_NAME", upper case, as the device layer keeps paths.
std::string VirtualUnitPath(std::uint16_t vendorId, std::uint16_t productId, std::string_view name);
const drav::PanelModel* FindPanelModelByName(std::string_view name);
// A unit of the model as it is plugged: its product id and its report lengths (the input report's
// from the model's layout, feature reports one longer on the sixteen-segment radios); null when
// dravsim has no layout for the model.
std::optional<drav::VirtualUnitSpec> PanelUnitSpec(const drav::PanelModel& model);

}  // namespace dravsim
