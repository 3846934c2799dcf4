// What a scenario's panel commands do to the panels it plugs: make them appear and go, send their
// input reports, set their feature answers and faults, and read back what the plug-in wrote to them.
// The in-memory panels of the virtual backend are one kind; uhid devices seen by the kernel's own HID
// core (the plug-in then runs on the hidraw backend, unchanged) are another.
//
// Units are known by the key the scenario plugged them with; the device layer may know them by
// another path (a hidraw node that can change at every plugging), which LayerPath tells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hid/backend/VirtualHidBackend.h"

namespace dravsim {

class PanelHardware {
 public:
  virtual ~PanelHardware() = default;

  virtual bool Plug(const std::string& key, const drav::VirtualUnitSpec& spec) = 0;
  virtual bool Unplug(const std::string& key) = 0;
  virtual bool Replug(const std::string& key) = 0;
  // While unplugged: the unit is known by another key from now on (its old path is free for the next
  // device), or will come back at another port.
  virtual bool Renumber(const std::string& key, const std::string& newKey) = 0;
  virtual bool SetLocation(const std::string& key, const std::string& location) = 0;

  virtual void SetFeatureAnswer(const std::string& key, std::uint8_t reportId, std::vector<std::uint8_t> bytes) = 0;
  // Empty when the fault is now on (or off); otherwise why this kind of panel cannot fake it.
  virtual std::string SetFault(const std::string& key, drav::VirtualFault fault, bool on) = 0;

  virtual bool SendInput(const std::string& key, std::vector<std::uint8_t> report) = 0;
  virtual std::size_t PendingInput(const std::string& key) const = 0;
  virtual std::uint64_t InputTaken(const std::string& key) const = 0;
  virtual std::size_t BlockedWrites(const std::string& key) const = 0;
  virtual std::size_t BlockedFeatureReads(const std::string& key) const = 0;

  virtual std::vector<drav::VirtualSentReport> Sent(const std::string& key) const = 0;
  virtual void ClearSent() = 0;

  // The upper-cased path the device layer holds the unit by while it is plugged.
  virtual std::string LayerPath(const std::string& key) const = 0;
  // Arrivals and removals reach the device layer later than the command that made them (a watcher
  // thread notices them), so a command waits until the layer has seen them.
  virtual bool NoticesLag() const = 0;
  // Empty when a unit of this spec can be made; otherwise why not.
  virtual std::string Unsupported(const drav::VirtualUnitSpec&) const { return {}; }
};

// The virtual backend's panels, installed in the device layer for the scenario.
std::unique_ptr<PanelHardware> MakeVirtualPanelHardware();
// uhid devices; null (with `error` set) where there is no /dev/uhid or it cannot be opened. The
// device layer is left on the platform's backend.
std::unique_ptr<PanelHardware> MakeUhidPanelHardware(std::string& error);
// No panels of the scenario's own: the device layer stays on the platform's backend and meets the
// devices the system has, which another program made (a uhid board seen through Wine's HID bus, say).
std::unique_ptr<PanelHardware> MakeForeignPanelHardware();

}  // namespace dravsim
