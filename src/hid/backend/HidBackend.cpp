// The process-wide backend. The platform's own is made only when first asked for, so a test or
// dravsim that installs the virtual one never touches the machine's HID devices.
#include "hid/backend/HidBackend.h"

namespace drav {

namespace {

// The process's seam to the system, not the plug-in's state: dravsim and the tests install their
// panels before the plug-in starts, and the same panels stay plugged in across a stop and a start,
// as real ones do. So it lives outside the plug-in's context, which a start makes afresh.
std::unique_ptr<HidBackend>& BackendSlot() {
  static std::unique_ptr<HidBackend> backend;
  return backend;
}

}  // namespace

HidBackend& ActiveHidBackend() {
  std::unique_ptr<HidBackend>& backend = BackendSlot();
  if (!backend) backend = MakePlatformHidBackend();
  return *backend;
}

void InstallHidBackend(std::unique_ptr<HidBackend> backend) { BackendSlot() = std::move(backend); }

}  // namespace drav
