#include "dravsim/PanelHardware.h"

#include <utility>

namespace dravsim {

namespace {

// Owned by the device layer once installed; this only keeps a pointer to drive it.
class VirtualPanelHardware : public PanelHardware {
 public:
  VirtualPanelHardware() {
    auto backend = std::make_unique<drav::VirtualHidBackend>();
    hid_ = backend.get();
    drav::InstallHidBackend(std::move(backend));
  }

  bool Plug(const std::string& key, const drav::VirtualUnitSpec& spec) override { return hid_->Plug(key, spec); }
  bool Unplug(const std::string& key) override { return hid_->Unplug(key); }
  bool Replug(const std::string& key) override { return hid_->Replug(key); }
  bool Renumber(const std::string& key, const std::string& newKey) override { return hid_->Renumber(key, newKey); }
  bool SetLocation(const std::string& key, const std::string& location) override {
    return hid_->SetLocation(key, location);
  }
  void SetFeatureAnswer(const std::string& key, std::uint8_t reportId, std::vector<std::uint8_t> bytes) override {
    hid_->SetFeatureAnswer(key, reportId, std::move(bytes));
  }
  std::string SetFault(const std::string& key, drav::VirtualFault fault, bool on) override {
    hid_->SetFault(key, fault, on);
    return {};
  }
  bool SendInput(const std::string& key, std::vector<std::uint8_t> report) override {
    return hid_->SendInput(key, std::move(report));
  }
  std::size_t PendingInput(const std::string& key) const override { return hid_->PendingInput(key); }
  std::uint64_t InputTaken(const std::string& key) const override { return hid_->InputTaken(key); }
  std::size_t BlockedWrites(const std::string& key) const override { return hid_->BlockedWrites(key); }
  std::size_t BlockedFeatureReads(const std::string& key) const override { return hid_->BlockedFeatureReads(key); }
  std::vector<drav::VirtualSentReport> Sent(const std::string& key) const override { return hid_->Sent(key); }
  void ClearSent() override { hid_->ClearSent(); }
  std::string LayerPath(const std::string& key) const override { return key; }
  bool NoticesLag() const override { return false; }

 private:
  drav::VirtualHidBackend* hid_;
};

}  // namespace

std::unique_ptr<PanelHardware> MakeVirtualPanelHardware() { return std::make_unique<VirtualPanelHardware>(); }

}  // namespace dravsim
