// The part of the plug-in's state that belongs to the device layer, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentHidState().
//
// The units' threads never read the slot: a device object is handed what its threads use (the
// input delivery, the backend) when it is made. The HID backend itself is not here: it is the
// process's seam to the system, installed before the plug-in starts (backend/HidBackend.h).
#pragma once

#include <chrono>
#include <span>
#include <vector>

#include "base/ContextSlot.h"
#include "hid/DeviceLayerControl.h"
#include "hid/DeviceTables.h"
#include "hid/InputDelivery.h"
#include "hid/backend/HidBackend.h"

namespace drav {

// What the layer keeps between its calls on the main thread (DeviceLayer.cpp).
struct DeviceLayerRun {
  // A unit that came back or joined, waiting to be open and settled before it is announced.
  struct PendingReturn {
    DeviceObject* object;
    int framesToReopen;
  };

  // The backend the running layer's objects were made with (null while stopped), and the notices
  // buffer, kept between frames so that asking every frame allocates nothing.
  HidBackend* backend = nullptr;
  std::vector<HidDeviceChange> changes;
  std::vector<PendingReturn> returning;
  // Both stay set across the layer's stop and start.
  GFDevUnitReturnHandler unitReturnHandler = nullptr;
  UnitNumberMemory* numberMemory = nullptr;
};

struct HidState {
  // The models' rows, handed down by the plug-in's context (each stands in its model's file).
  explicit HidState(std::span<const PanelModel* const> rowsInLookupOrder) : models(rowsInLookupOrder) {}

  // Declared before the tables, so that it outlives every device object's read thread.
  InputDelivery input;
  PanelModelTable models;
  DeviceTables tables{models};
  DeviceLayerRun run;
  // How long the main thread waits for a feature read that a unit's writer does for it
  // (FeatureReadWait in DeviceObject.h).
  std::chrono::milliseconds featureReadWait{3};
};

inline HidState& CurrentHidState() { return ContextSlot<HidState>::Current(); }

}  // namespace drav
