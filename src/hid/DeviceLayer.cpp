// The device layer's lifecycle: discovery of the units present at start, arrival and removal while
// the layer runs, teardown at stop; the input callback; the device-information queries and counts.
//
// Everything here runs on the simulator's main thread except GFDev_DeliverInput, which the device
// objects' read threads call.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "hid/DeviceClasses.h"
#include "hid/DeviceLayerControl.h"

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif
#include "hid/DeviceObject.h"
#include "hid/DeviceTables.h"
#include "hid/GFDev.h"
#include "hid/HidState.h"
#include "hid/ModelTable.h"
#include "hid/backend/HidBackend.h"
#include "base/Log.h"

namespace drav {

namespace {

constexpr std::chrono::milliseconds kInputCallbackWait{1000};

HidState& State() { return CurrentHidState(); }
DeviceLayerRun& Run() { return State().run; }

// A panel the system would not let us open is told in the simulator's log, with the reason; any
// other vendor's device is none of the pilot's business.
void TellUnopenedPanel(HidBackend& backend, const std::string& path) {
  const HidOpenFailure failure = backend.DescribeOpenFailure(path);
  const PanelModel* model = FindPanelModelByProductId(failure.productId);
  if (failure.vendorId != kPanelVendorId || failure.reason.empty()) return;
  SimLogUnopenedPanel(model != nullptr ? model->name : "A panel", path, failure.reason);
}

// Who is at a path, read through one open: the model whose product id it reports (null for another
// vendor or an unknown product), where it is attached and its serial. Nothing when it cannot be
// opened for reading and writing.
struct Arrival {
  const PanelModel* model = nullptr;
  DeviceObject::Identity identity;
};

std::optional<Arrival> ReadArrival(HidBackend& backend, const std::string& path) {
  std::unique_ptr<HidDeviceHandle> handle = backend.Open(path);
  if (handle == nullptr) TellUnopenedPanel(backend, path);
  HidAttributes attributes;
  if (handle == nullptr || !handle->GetAttributes(&attributes)) return std::nullopt;
  Arrival arrival;
  if (attributes.vendorId == kPanelVendorId) arrival.model = FindPanelModelByProductId(attributes.productId);
  arrival.identity = {handle->GetLocation(), handle->GetSerialNumber()};
  return arrival;
}

bool SerialsAgree(const std::string& a, const std::string& b) { return a.empty() || b.empty() || a == b; }

// The absent unit of the arrival's model that the arrival is. A unit with a serial is known by it
// wherever it is plugged in. Otherwise by location where the backend tells one (a unit keeps its
// number by the port it sits in, whatever path the system gives it; the serial decides between two
// units last seen at one port), else by path (paths that do not move).
DeviceObject* ReturningUnit(const Arrival& arrival, const std::string& path) {
  DeviceObject* bySerial = nullptr;
  DeviceObject* byLocation = nullptr;
  DeviceObject* byPath = nullptr;
  State().tables.ForEach([&](DeviceObject& object) {
    if (object.Present() || object.ModuleType() != arrival.model->moduleType) return;
    const DeviceObject::Identity& known = object.Who();
    if (bySerial == nullptr && !arrival.identity.serial.empty() && known.serial == arrival.identity.serial) {
      bySerial = &object;
      return;
    }
    if (!arrival.identity.location.empty()) {
      if (known.location != arrival.identity.location) return;
      if (byLocation == nullptr || known.serial == arrival.identity.serial) byLocation = &object;
    } else if (DevicePathsEqual(object.Path(), path) && SerialsAgree(known.serial, arrival.identity.serial)) {
      byPath = &object;
    }
  });
  if (bySerial != nullptr) return bySerial;
  return byLocation != nullptr ? byLocation : byPath;
}

// The unit the layer holds as present at a path (a path may also be remembered by absent units).
DeviceObject* PresentUnitAt(const std::string& path) {
  DeviceObject* found = nullptr;
  State().tables.ForEach([&](DeviceObject& object) {
    if (found == nullptr && object.Present() && DevicePathsEqual(object.Path(), path)) found = &object;
  });
  return found;
}

// A unit that came back: it counts as present once it is open again, and its return is announced
// once its read thread has read its initial state, so that the modules show it as a fresh unit
// from where its switches really are. One that cannot be opened at its return (still settling, or
// held by another program) is tried again every kReopenFrames calls until it opens or leaves.
constexpr int kReopenFrames = 15;
using PendingReturn = DeviceLayerRun::PendingReturn;

void ForgetReturn(const DeviceObject& object) {
  std::erase_if(Run().returning, [&](const PendingReturn& unit) { return unit.object == &object; });
}

void Rejoin(DeviceObject& object) {
  object.SetPresent(object.Reopen());
  ForgetReturn(object);
  Run().returning.push_back({&object, kReopenFrames});
}

// True when the unit is open again and ready to be announced.
bool AdvanceReturn(PendingReturn& returning) {
  DeviceObject& object = *returning.object;
  if (!object.HasHandle()) {
    if (--returning.framesToReopen > 0) return false;
    returning.framesToReopen = kReopenFrames;
    if (!object.Reopen()) return false;
    object.SetPresent(true);
  }
  return object.InitialStateSettled();
}

void AnnounceReturns() {
  DeviceLayerRun& run = Run();
  for (auto it = run.returning.begin(); it != run.returning.end();) {
    if (!AdvanceReturn(*it)) {
      ++it;
      continue;
    }
    const DeviceObject& object = *it->object;
    it = run.returning.erase(it);
    if (run.unitReturnHandler != nullptr) run.unitReturnHandler(object.ModuleType(), object.Unit());
  }
}

void TakeAway(DeviceObject& object) {
  ForgetReturn(object);
  object.Stop();
  object.SetPresent(false);
}

// ---- numbers that stay -----------------------------------------------------------------------------

std::string WhoIs(const DeviceObject::Identity& identity, const std::string& path) {
  return GFDev_RememberedIdentity(identity.serial, identity.location, path);
}

// Who each number of a model is remembered for, read once per start or arrival; "" throughout
// without a memory.
std::vector<std::string> RecallNumbers(const PanelModel& model) {
  std::vector<std::string> recalled;
  if (UnitNumberMemory* memory = Run().numberMemory) recalled = memory->Recall(model.moduleType, model.slots);
  recalled.resize(static_cast<std::size_t>(model.slots));
  return recalled;
}

std::int32_t RecalledNumber(const std::vector<std::string>& recalled, const std::string& who) {
  if (who.empty()) return -1;  // nobody to recall; "" marks a number remembered for nobody
  const auto it = std::find(recalled.begin(), recalled.end(), who);
  return it == recalled.end() ? -1 : static_cast<std::int32_t>(it - recalled.begin());
}

// A newcomer takes its remembered number when that slot is empty; else the first empty slot that is
// not kept for a remembered unit; and only when there is none, the first empty slot at all (the
// absent unit it was kept for loses it). -1 when the table is full.
std::int32_t ChooseSlot(const PanelModel& model, const std::vector<std::string>& recalled, const std::string& who) {
  const DeviceTables& tables = State().tables;
  const std::int32_t remembered = RecalledNumber(recalled, who);
  if (remembered >= 0 && tables.At(model.moduleType, remembered) == nullptr) return remembered;
  for (std::int32_t slot = 0; slot < model.slots; ++slot) {
    if (tables.At(model.moduleType, slot) == nullptr && recalled[static_cast<std::size_t>(slot)].empty()) return slot;
  }
  return tables.FirstEmptySlot(model.moduleType);
}

// Remembers the unit at its number and nowhere else. Two units that tell the same serial cannot be
// told apart: while the number remembered for it belongs to a present unit of the same identity,
// the second one is not remembered at all, so that the two do not take the memory from each other.
void RememberNumber(const PanelModel& model, std::vector<std::string>& recalled, std::int32_t slot,
                    const std::string& who) {
  UnitNumberMemory* memory = Run().numberMemory;
  if (memory == nullptr || who.empty()) return;
  const DeviceTables& tables = State().tables;
  for (std::int32_t number = 0; number < model.slots; ++number) {
    std::string& holder = recalled[static_cast<std::size_t>(number)];
    if (number == slot || holder != who) continue;
    const DeviceObject* there = tables.At(model.moduleType, number);
    if (there != nullptr && WhoIs(there->Who(), there->Path()) == who) return;
    memory->Remember(model.moduleType, number, "");
    holder.clear();
  }
  std::string& mine = recalled[static_cast<std::size_t>(slot)];
  if (mine == who) return;
  memory->Remember(model.moduleType, slot, who);
  mine = who;
}

// A newcomer takes the slot it was given; a full table (-1) takes nothing. The slot is looked for
// before the object is made, which leaves the tables exactly as making the object and destroying it
// again would, without opening the unit for nothing.
DeviceObject* AddUnit(HidBackend& backend, const PanelModel& model, const std::string& path,
                      DeviceObject::Identity identity, DeviceObject::InitialRead initialRead, std::int32_t slot) {
  const DeviceClass& deviceClass = model.deviceClass;
  DeviceTables& tables = State().tables;
  if (slot < 0) return nullptr;

  auto object = std::make_unique<DeviceObject>(deviceClass, backend, State().input, path);
  object->SetWho(std::move(identity));
  if (!deviceClass.openedAfterEntry) object->Open(initialRead);
  DeviceObject* placed = tables.Place(model.moduleType, slot, std::move(object));
  placed->SetUnit(slot);
  placed->SetPresent(true);
  if (deviceClass.openedAfterEntry) placed->Open(initialRead);
  return placed;
}

// The units present at the start, numbered in two rounds: first every unit whose remembered number
// is free takes it, then the others take numbers in the order the system lists them, around the
// numbers kept for units that are away.
struct Found {
  std::string path;
  Arrival arrival;
  std::string who;
};

void DiscoverUnits(HidBackend& backend, const std::vector<std::string>& paths) {
  std::vector<Found> found;
  for (const std::string& path : paths) {
    if (!NormaliseDevicePath(path)) continue;
    std::optional<Arrival> arrival = ReadArrival(backend, path);
    if (!arrival || arrival->model == nullptr) continue;
    std::string who = WhoIs(arrival->identity, *NormaliseDevicePath(path));
    found.push_back({path, std::move(*arrival), std::move(who)});
  }
  std::array<std::optional<std::vector<std::string>>, kLastModuleType + 1> recalled;
  auto recalledOf = [&](const PanelModel& model) -> std::vector<std::string>& {
    std::optional<std::vector<std::string>>& numbers = recalled.at(model.moduleType);
    if (!numbers) numbers = RecallNumbers(model);
    return *numbers;
  };
  std::vector<bool> placed(found.size(), false);
  for (std::size_t i = 0; i < found.size(); ++i) {
    const PanelModel& model = *found[i].arrival.model;
    const std::int32_t slot = RecalledNumber(recalledOf(model), found[i].who);
    if (slot < 0 || State().tables.At(model.moduleType, slot) != nullptr) continue;
    AddUnit(backend, model, found[i].path, found[i].arrival.identity, DeviceObject::InitialRead::Now, slot);
    placed[i] = true;
  }
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (placed[i]) continue;
    const PanelModel& model = *found[i].arrival.model;
    std::vector<std::string>& numbers = recalledOf(model);
    const std::int32_t slot = ChooseSlot(model, numbers, found[i].who);
    if (AddUnit(backend, model, found[i].path, found[i].arrival.identity, DeviceObject::InitialRead::Now, slot)) {
      RememberNumber(model, numbers, slot, found[i].who);
    }
  }
}

// Announced once it is open and has read its initial state, as a unit that came back is.
void AddNewcomer(HidBackend& backend, const std::string& path, Arrival arrival) {
  const PanelModel& model = *arrival.model;
  const std::string who = WhoIs(arrival.identity, *NormaliseDevicePath(path));
  std::vector<std::string> recalled = RecallNumbers(model);
  const std::int32_t slot = ChooseSlot(model, recalled, who);
  DeviceObject* added = AddUnit(backend, model, path, std::move(arrival.identity),
                                DeviceObject::InitialRead::OnReadThread, slot);
  if (added == nullptr) return;
  RememberNumber(model, recalled, slot, who);
  Run().returning.push_back({added, kReopenFrames});
}

// A unit that came back keeps its number; the memory follows it if it was edited meanwhile.
void RememberReturn(const DeviceObject& object) {
  const PanelModel* model = FindPanelModel(object.ModuleType());
  if (Run().numberMemory == nullptr || model == nullptr) return;
  std::vector<std::string> recalled = RecallNumbers(*model);
  RememberNumber(*model, recalled, object.Unit(), WhoIs(object.Who(), object.Path()));
}

// An arrival is told apart by who arrived, not by the path: the system hands a freed path to the
// next device (a mouse may take a panel's old node), and a unit may come back at another one. A
// unit of the family that the layer knew restarts in its old slot; anything else found at the path
// of a unit still held as present means that unit left.
void HandleArrival(HidBackend& backend, const std::string& path) {
  if (!NormaliseDevicePath(path)) return;
  std::optional<Arrival> arrival = ReadArrival(backend, path);
  DeviceObject* stale = PresentUnitAt(path);
  if (!arrival) {
    // Nobody to ask (the device cannot be opened now): a unit known here is tried again until it
    // opens or leaves.
    if (std::optional<DeviceTables::Location> known = State().tables.FindByPath(path)) Rejoin(*known->object);
    return;
  }
  if (stale != nullptr) {
    const bool same = arrival->model != nullptr && stale->ModuleType() == arrival->model->moduleType &&
                      SerialsAgree(stale->Who().serial, arrival->identity.serial);
    TakeAway(*stale);
    if (same) {
      Rejoin(*stale);
      return;
    }
  }
  if (arrival->model == nullptr) return;
  if (DeviceObject* returning = ReturningUnit(*arrival, path)) {
    returning->MoveTo(path);
    returning->SetWho(std::move(arrival->identity));
    Rejoin(*returning);
    RememberReturn(*returning);
    return;
  }
  AddNewcomer(backend, path, std::move(*arrival));
}

// The unit stays in its slot, stopped and absent, ready for its return; one still waiting to reopen
// there has left again.
void HandleRemoval(const std::string& path) {
  if (!NormaliseDevicePath(path)) return;
  if (DeviceObject* present = PresentUnitAt(path)) {
    TakeAway(*present);
    return;
  }
  std::erase_if(Run().returning, [&](const PendingReturn& returning) {
    return !returning.object->Present() && DevicePathsEqual(returning.object->Path(), path);
  });
}

// The common checks of the device-information queries: 0 with nothing to do for a model without a
// table, 1 for a unit out of range, 3 for an empty slot.
std::int32_t CheckInfoUnit(std::uint32_t moduleType, std::int32_t unit, DeviceObject*& object) {
  object = nullptr;
  const PanelModel* model = FindPanelModel(moduleType);
  if (model == nullptr) return kGFDevDone;
  if (unit < 0 || unit >= model->slots) return kGFDevUnitOutOfRange;
  object = State().tables.At(moduleType, unit);
  return object == nullptr ? kGFDevNoDevice : kGFDevDone;
}

void CopyBounded(char* out, std::size_t capacity, const std::string& text) {
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::memcpy(out, text.data(), length);
  out[length] = '\0';
}

}  // namespace

DeviceTables& TheDeviceTables() { return CurrentHidState().tables; }

std::int32_t GFDev_Start(void* /*instance*/) {
  GFDev_Stop();
  HidBackend& backend = ActiveHidBackend();
  Run().backend = &backend;
  // Arrivals and removals come through the backend on every platform, so hot-plug does not depend
  // on having a window to receive them.
  backend.StartNotifications();
  DiscoverUnits(backend, backend.EnumerateDevicePaths());
  return kGFDevDone;
}

std::int32_t GFDev_Stop() {
  HidState& state = State();
  if (state.run.backend != nullptr) state.run.backend->StopNotifications();
  state.input.SetCallback(nullptr);
  // Every writer is told first, so that stalled units wait out their last write side by side and
  // the stop takes about one write timeout however many of them there are.
  state.tables.ForEach([](DeviceObject& object) { object.RequestStop(); });
  state.run.returning.clear();
  state.tables.DestroyAll();
  state.input.ForgetRefused();
  state.run.backend = nullptr;
  state.run.changes.clear();
  return kGFDevDone;
}

void GFDev_ProcessDeviceChanges() {
  DeviceLayerRun& run = Run();
  if (run.backend == nullptr) return;
  run.changes.clear();
  run.backend->TakeDeviceChanges(run.changes);
  for (const HidDeviceChange& change : run.changes) {
    if (change.kind == HidDeviceChange::Kind::Arrival) {
      HandleArrival(*run.backend, change.path);
    } else {
      HandleRemoval(change.path);
    }
  }
  AnnounceReturns();
}

void GFDev_SetUnitReturnHandler(GFDevUnitReturnHandler handler) { Run().unitReturnHandler = handler; }

void GFDev_SetUnitNumberMemory(UnitNumberMemory* memory) { Run().numberMemory = memory; }

std::string GFDev_RememberedIdentity(const std::string& serial, const std::string& location, const std::string& path) {
  // Blanks around a serial are not seen in DRAV.INI, so they do not count.
  const std::size_t first = serial.find_first_not_of(' ');
  if (first != std::string::npos) return "serial " + serial.substr(first, serial.find_last_not_of(' ') - first + 1);
  if (!location.empty()) return "port " + location;
  return path.empty() ? std::string() : "port " + path;
}

std::int32_t GFDev_UnitSpan(std::uint32_t moduleType) {
  const DeviceTables& tables = State().tables;
  for (std::int32_t unit = tables.Slots(moduleType) - 1; unit >= 0; --unit) {
    const DeviceObject* object = tables.At(moduleType, unit);
    if (object != nullptr && object->Present()) return unit + 1;
  }
  return 0;
}

GFDevInputHold::GFDevInputHold() : input_(CurrentHidState().input) { input_.Hold(); }
GFDevInputHold::~GFDevInputHold() { input_.Release(); }

bool GFDev_ReturnsSettled() {
  const std::vector<PendingReturn>& returning = Run().returning;
  return std::all_of(returning.begin(), returning.end(), [](const PendingReturn& unit) {
    return !unit.object->HasHandle() || unit.object->InitialStateSettled();
  });
}

void InputDelivery::SetCallback(GFDevInputCallback callback) {
  Hold();
  receiver_.store(nullptr);
  callback_.store(callback);
  Release();
}

void InputDelivery::SetReceiver(InputReceiver* receiver) {
  Hold();
  callback_.store(nullptr);
  receiver_.store(receiver);
  Release();
}

void InputDelivery::Forget(const InputReceiver& receiver) {
  Hold();
  if (receiver_.load() == &receiver) receiver_.store(nullptr);
  Release();
}

bool InputDelivery::DeliverWithin(std::uint32_t moduleType, std::uint16_t unit, const void* record,
                                  std::chrono::milliseconds wait) {
  if (!gate_.TryEnterFor(wait)) return false;
  int answer = 1;
  if (InputReceiver* receiver = receiver_.load()) {
    answer = receiver->Receive(moduleType, unit, record);
  } else if (GFDevInputCallback callback = callback_.load()) {
    answer = callback(moduleType, unit, record);
  }
  const bool taken = answer != kGFDevInputRefused;
  gate_.Leave();
  return taken;
}

std::int32_t GFDev_RegisterInputCallback(GFDevInputCallback callback) {
  if (callback == nullptr) return 0;
  State().input.SetCallback(callback);
  return 1;
}

bool GFDev_DeliverInputWithin(std::uint32_t moduleType, std::uint16_t unit, const void* record,
                              std::chrono::milliseconds wait) {
  return State().input.DeliverWithin(moduleType, unit, record, wait);
}

bool GFDev_DeliverInput(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
  return GFDev_DeliverInputWithin(moduleType, unit, record, kInputCallbackWait);
}

void GFDev_RedeliverRefusedInput() {
  InputDelivery& input = State().input;
  if (!input.TakeRefused()) return;
  bool stillRefused = false;
  State().tables.ForEach([&](DeviceObject& object) {
    if (!object.RedeliverRefusedInput()) stillRefused = true;
  });
  if (stillRefused) input.NoteRefused();
}

std::int32_t GFDev_FindUnitByPath(std::uint32_t moduleType, const char* path, std::int32_t* unit) {
  if (unit != nullptr) *unit = -1;
  if (path == nullptr || FindPanelModel(moduleType) == nullptr) return kGFDevNoDevice;
  const std::int32_t found = State().tables.FindUnitByPath(moduleType, path);
  if (found < 0) return kGFDevNoDevice;
  if (unit != nullptr) *unit = found;
  return kGFDevDone;
}

std::int32_t GFDev_GetDeviceInfo(std::uint32_t moduleType, std::int32_t unit, GFDevInfo* out) {
  DeviceObject* object = nullptr;
  const std::int32_t result = CheckInfoUnit(moduleType, unit, object);
  if (object == nullptr) return result;
  if (out == nullptr) return kGFDevBadArgument;
  CopyBounded(out->path, sizeof(out->path), object->Path());
  out->version = object->Attributes().version;
  return kGFDevDone;
}

std::int32_t GFDev_GetDeviceInfoEx(std::uint32_t moduleType, std::int32_t unit, GFDevInfoEx* out) {
  DeviceObject* object = nullptr;
  const std::int32_t result = CheckInfoUnit(moduleType, unit, object);
  if (object == nullptr) return result;
  if (out == nullptr) return kGFDevBadArgument;
  if (out->size != kGFDevInfoExSize) return kGFDevDone;  // a record of another layout: untouched
  CopyBounded(out->path, sizeof(out->path), object->Path());
  out->version = object->Attributes().version;
  CopyBounded(out->serial, sizeof(out->serial), object->SerialNumber());
  if (object->Class().openedAfterEntry) out->outputReportLength = object->Capabilities().outputReportLength;
  return kGFDevDone;
}

std::int32_t GFDev_PresentUnitCount(std::uint32_t moduleType) { return State().tables.PresentCount(moduleType); }

std::string GFDev_UnitPath(std::uint32_t moduleType, std::int32_t unit) {
  const DeviceObject* object = State().tables.At(moduleType, unit);
  return object == nullptr ? std::string() : object->Path();
}

bool GFDev_UnitPresentAt(std::uint32_t moduleType, const std::string& path) {
  const DeviceObject* object = PresentUnitAt(path);
  return object != nullptr && object->ModuleType() == moduleType;
}

std::uint64_t GFDev_InputReportsHandled(std::uint32_t moduleType, std::int32_t unit) {
  const DeviceObject* object = State().tables.At(moduleType, unit);
  return object == nullptr ? 0 : object->InputReportsHandled();
}

bool GFDev_WaitForOutputIdle(std::chrono::milliseconds timeout) {
  return GFDev_WaitForOutputIdleExcept({}, timeout);
}

bool GFDev_WaitForOutputIdleExcept(std::span<const std::string> stalledPaths, std::chrono::milliseconds timeout) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  bool idle = true;
  State().tables.ForEach([&](DeviceObject& object) {
    if (!idle || std::find(stalledPaths.begin(), stalledPaths.end(), object.Path()) != stalledPaths.end()) return;
    if (!object.WaitForOutputIdle(deadline)) idle = false;
  });
  return idle;
}

std::size_t GFDev_QueuedOutputReports(std::uint32_t moduleType, std::int32_t unit) {
  const DeviceObject* object = State().tables.At(moduleType, unit);
  return object == nullptr ? 0 : object->QueuedReports();
}

std::int32_t GFDev_GF45_Count() { return GFDev_PresentUnitCount(kModuleGF45); }
std::int32_t GFDev_GF46_Count() { return GFDev_PresentUnitCount(kModuleGF46); }
std::int32_t GFDev_GF166_Count() { return GFDev_PresentUnitCount(kModuleGF166); }
std::int32_t GFDev_GFP8_Count() { return GFDev_PresentUnitCount(kModuleGFP8); }
std::int32_t GFDev_GFT8_Count() { return GFDev_PresentUnitCount(kModuleGFT8); }
std::int32_t GFDev_GFRP48_Count() { return GFDev_PresentUnitCount(kModuleGFRP48); }
std::int32_t GFDev_GFLGT_Count() { return GFDev_PresentUnitCount(kModuleGFLGT); }
std::int32_t GFDev_GFLGT2_Count() { return GFDev_PresentUnitCount(kModuleGFLGT2); }
std::int32_t GFDev_GFMCP_Count() { return GFDev_PresentUnitCount(kModuleGFMCP); }
std::int32_t GFDev_GFMCPPro_Count() { return GFDev_PresentUnitCount(kModuleGFMCPPro); }
std::int32_t GFDev_GFEFIS_Count() { return GFDev_PresentUnitCount(kModuleGFEFIS); }
std::int32_t GFDev_GFTQ6_Count() { return GFDev_PresentUnitCount(kModuleGFTQ6); }
std::int32_t GFDev_GFSECM_Count() { return GFDev_PresentUnitCount(kModuleGFSECM); }
std::int32_t GFDev_GFMESM_Count() { return GFDev_PresentUnitCount(kModuleGFMESM); }
std::int32_t GFDev_GFWCP_Count() { return GFDev_PresentUnitCount(kModuleGFWCP); }
std::int32_t GFDev_GFDIO_Count() { return GFDev_PresentUnitCount(kModuleGFDIO); }

}  // namespace drav
