// No panels of the scenario's own: the plug-in runs on the platform's backend and meets the devices
// the system has. Another program makes them and drives their side (on Linux a `dravsim --hid uhid`
// board that never boots a plug-in; Wine's HID bus then shows its uhid devices to a Windows build),
// so every command that would make, feed or read a panel here has nothing to act on.
#include "dravsim/PanelHardware.h"

namespace dravsim {

namespace {

constexpr const char* kMadeElsewhere =
    "with --hid platform the panels are made by another program, not by the scenario";

class ForeignPanelHardware : public PanelHardware {
 public:
  ForeignPanelHardware() { drav::InstallHidBackend(nullptr); }

  bool Plug(const std::string&, const drav::VirtualUnitSpec&) override { return false; }
  bool Unplug(const std::string&) override { return false; }
  bool Replug(const std::string&) override { return false; }
  bool Renumber(const std::string&, const std::string&) override { return false; }
  bool SetLocation(const std::string&, const std::string&) override { return false; }
  void SetFeatureAnswer(const std::string&, std::uint8_t, std::vector<std::uint8_t>) override {}
  std::string SetFault(const std::string&, drav::VirtualFault, bool) override { return kMadeElsewhere; }
  bool SendInput(const std::string&, std::vector<std::uint8_t>) override { return false; }
  std::size_t PendingInput(const std::string&) const override { return 0; }
  std::uint64_t InputTaken(const std::string&) const override { return 0; }
  std::size_t BlockedWrites(const std::string&) const override { return 0; }
  std::size_t BlockedFeatureReads(const std::string&) const override { return 0; }
  std::vector<drav::VirtualSentReport> Sent(const std::string&) const override { return {}; }
  void ClearSent() override {}
  std::string LayerPath(const std::string&) const override { return {}; }
  bool NoticesLag() const override { return true; }
  std::string Unsupported(const drav::VirtualUnitSpec&) const override { return kMadeElsewhere; }
};

}  // namespace

std::unique_ptr<PanelHardware> MakeForeignPanelHardware() { return std::make_unique<ForeignPanelHardware>(); }

}  // namespace dravsim
