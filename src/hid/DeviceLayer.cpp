// The device layer's lifecycle: discovery of the units present at start, arrival and removal while
// the layer runs, teardown at stop; the input callback; the device-information queries and counts.
//
// Everything here runs on the simulator's main thread except GFDev_DeliverInput, which the device
// objects' read threads call.
#include <algorithm>
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
#include "hid/ModelTable.h"
#include "hid/backend/HidBackend.h"
#include "base/Log.h"

namespace drav {

namespace {

// One callback runs at a time, and a read thread waits at most a second for its turn before it
// drops the record. Built on a mutex and a condition variable rather than std::timed_mutex, whose
// timed wait the thread sanitizer cannot follow (it then reports every unlock as an unlock of an
// unlocked mutex).
class LocalGate {
 public:
  bool TryEnterFor(std::chrono::milliseconds timeout) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!freed_.wait_for(lock, timeout, [&] { return !held_; })) return false;
    held_ = true;
    return true;
  }
  void Enter() {
    std::unique_lock<std::mutex> lock(mutex_);
    freed_.wait(lock, [&] { return !held_; });
    held_ = true;
  }
  void Leave() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      held_ = false;
    }
    freed_.notify_one();
  }

 private:
  std::mutex mutex_;
  std::condition_variable freed_;
  bool held_ = false;
};

#ifdef _WIN32
// On Windows the turn is also the system-wide named mutex "GFDev_MtxInputCallback", so that every
// copy of the layer in the simulator's process (and any other program that takes the same name)
// shares it. The process's own gate is always taken first: the input queue has one producer at a
// time whatever became of the name (held by an object of another type, or by a process whose rights
// deny access, the name yields no mutex). Another process may hold the named mutex for as long as
// it likes, so it is never waited for without a limit: past the limit a caller that must get in
// goes on with the process's own gate only.
class InputCallbackGate {
 public:
  InputCallbackGate() : named_(CreateMutexA(nullptr, FALSE, kName)) {
    if (named_ == nullptr) named_ = OpenMutexA(SYNCHRONIZE | MUTEX_MODIFY_STATE, FALSE, kName);
  }
  ~InputCallbackGate() {
    if (named_ != nullptr) CloseHandle(named_);
  }
  InputCallbackGate(const InputCallbackGate&) = delete;
  InputCallbackGate& operator=(const InputCallbackGate&) = delete;

  bool TryEnterFor(std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    if (!local_.TryEnterFor(timeout)) return false;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (!TakeNamed(std::max(left, std::chrono::milliseconds(0)))) {
      local_.Leave();
      return false;
    }
    return true;
  }
  // The main thread's turn (registering or clearing the callback): the process's own gate, and
  // the named mutex when it comes within the callback wait.
  void Enter() {
    local_.Enter();
    TakeNamed(kNamedWait);
  }
  void Leave() {
    if (namedHeld_) ReleaseMutex(named_);
    namedHeld_ = false;
    local_.Leave();
  }

 private:
  static constexpr const char* kName = "GFDev_MtxInputCallback";
  static constexpr std::chrono::milliseconds kNamedWait{1000};

  // Caller holds the local gate. True when the named mutex was taken or there is none.
  bool TakeNamed(std::chrono::milliseconds timeout) {
    if (named_ == nullptr) return true;
    const DWORD result = WaitForSingleObject(named_, static_cast<DWORD>(timeout.count()));
    // An abandoned mutex (its holder's thread ended) is ours now, as a taken one is.
    namedHeld_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    return namedHeld_;
  }

  LocalGate local_;
  HANDLE named_;
  bool namedHeld_ = false;  // guarded by the local gate
};
#else
// Stands in for the named mutex "GFDev_MtxInputCallback" of Windows.
using InputCallbackGate = LocalGate;
#endif

// Holds the gate for a scope.
class GateHold {
 public:
  explicit GateHold(InputCallbackGate& gate) : gate_(gate) { gate_.Enter(); }
  ~GateHold() { gate_.Leave(); }
  GateHold(const GateHold&) = delete;
  GateHold& operator=(const GateHold&) = delete;

 private:
  InputCallbackGate& gate_;
};

InputCallbackGate gInputCallbackGate;
// Some unit's newest input was refused by the callback and waits to be handed over again.
std::atomic<bool> gInputRefused{false};
std::atomic<GFDevInputCallback> gInputCallback{nullptr};
constexpr std::chrono::milliseconds kInputCallbackWait{1000};

// The backend the running layer's objects were made with (null while stopped), and the notices
// buffer, kept between frames so that asking every frame allocates nothing.
HidBackend* gBackend = nullptr;
std::vector<HidDeviceChange> gChanges;

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

// The absent unit of the arrival's model that the arrival is: by location where the backend tells
// one (a unit keeps its number by the port it sits in, whatever path the system gives it; the serial
// decides between two units last seen at one port), else by path (paths that do not move).
DeviceObject* ReturningUnit(const Arrival& arrival, const std::string& path) {
  DeviceObject* byLocation = nullptr;
  DeviceObject* byPath = nullptr;
  TheDeviceTables().ForEach([&](DeviceObject& object) {
    if (object.Present() || object.ModuleType() != arrival.model->moduleType) return;
    const DeviceObject::Identity& known = object.Who();
    if (!arrival.identity.location.empty()) {
      if (known.location != arrival.identity.location) return;
      if (byLocation == nullptr || known.serial == arrival.identity.serial) byLocation = &object;
    } else if (DevicePathsEqual(object.Path(), path) && SerialsAgree(known.serial, arrival.identity.serial)) {
      byPath = &object;
    }
  });
  return byLocation != nullptr ? byLocation : byPath;
}

// The unit the layer holds as present at a path (a path may also be remembered by absent units).
DeviceObject* PresentUnitAt(const std::string& path) {
  DeviceObject* found = nullptr;
  TheDeviceTables().ForEach([&](DeviceObject& object) {
    if (found == nullptr && object.Present() && DevicePathsEqual(object.Path(), path)) found = &object;
  });
  return found;
}

// A unit that came back: it counts as present once it is open again, and its return is announced
// once its read thread has read its initial state, so that the modules show it as a fresh unit
// from where its switches really are. One that cannot be opened at its return (still settling, or
// held by another program) is tried again every kReopenFrames calls until it opens or leaves.
constexpr int kReopenFrames = 15;
struct PendingReturn {
  DeviceObject* object;
  int framesToReopen;
};
std::vector<PendingReturn> gReturning;
GFDevUnitReturnHandler gUnitReturnHandler = nullptr;

void ForgetReturn(const DeviceObject& object) {
  std::erase_if(gReturning, [&](const PendingReturn& unit) { return unit.object == &object; });
}

void Rejoin(DeviceObject& object) {
  object.SetPresent(object.Reopen());
  ForgetReturn(object);
  gReturning.push_back({&object, kReopenFrames});
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
  for (auto it = gReturning.begin(); it != gReturning.end();) {
    if (!AdvanceReturn(*it)) {
      ++it;
      continue;
    }
    const DeviceObject& object = *it->object;
    it = gReturning.erase(it);
    if (gUnitReturnHandler != nullptr) gUnitReturnHandler(object.ModuleType(), object.Unit());
  }
}

void TakeAway(DeviceObject& object) {
  ForgetReturn(object);
  object.Stop();
  object.SetPresent(false);
}

// A newcomer takes the first empty slot of its model's table; a full table takes nothing. The slot
// is looked for before the object is made, which leaves the tables exactly as making the object and
// destroying it again would, without opening the unit for nothing.
void AddUnit(HidBackend& backend, const PanelModel& model, const std::string& path,
             DeviceObject::Identity identity, DeviceObject::InitialRead initialRead) {
  const DeviceClass* deviceClass = FindDeviceClass(model.moduleType);
  DeviceTables& tables = TheDeviceTables();
  const std::int32_t slot = tables.FirstEmptySlot(model.moduleType);
  if (deviceClass == nullptr || slot < 0) return;

  auto object = std::make_unique<DeviceObject>(*deviceClass, backend, path);
  object->SetWho(std::move(identity));
  if (!deviceClass->openedAfterEntry) object->Open(initialRead);
  DeviceObject* placed = tables.Place(model.moduleType, slot, std::move(object));
  placed->SetUnit(slot);
  placed->SetPresent(true);
  if (deviceClass->openedAfterEntry) placed->Open(initialRead);
}

void DiscoverUnit(HidBackend& backend, const std::string& path,
                  DeviceObject::InitialRead initialRead = DeviceObject::InitialRead::Now) {
  if (!NormaliseDevicePath(path)) return;
  std::optional<Arrival> arrival = ReadArrival(backend, path);
  if (arrival && arrival->model != nullptr) {
    AddUnit(backend, *arrival->model, path, std::move(arrival->identity), initialRead);
  }
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
    if (std::optional<DeviceTables::Location> known = TheDeviceTables().FindByPath(path)) Rejoin(*known->object);
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
    return;
  }
  AddUnit(backend, *arrival->model, path, std::move(arrival->identity), DeviceObject::InitialRead::OnReadThread);
}

// The unit stays in its slot, stopped and absent, ready for its return; one still waiting to reopen
// there has left again.
void HandleRemoval(const std::string& path) {
  if (!NormaliseDevicePath(path)) return;
  if (DeviceObject* present = PresentUnitAt(path)) {
    TakeAway(*present);
    return;
  }
  std::erase_if(gReturning, [&](const PendingReturn& returning) {
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
  object = TheDeviceTables().At(moduleType, unit);
  return object == nullptr ? kGFDevNoDevice : kGFDevDone;
}

void CopyBounded(char* out, std::size_t capacity, const std::string& text) {
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::memcpy(out, text.data(), length);
  out[length] = '\0';
}

}  // namespace

DeviceTables& TheDeviceTables() {
  // GFDev_Stop empties the tables on disable, so by the time the plug-in is unloaded (and this
  // object destroyed) they hold nothing; an object that is never freed would leak at every unload.
  static DeviceTables tables;
  return tables;
}

std::int32_t GFDev_Start(void* /*instance*/) {
  GFDev_Stop();
  HidBackend& backend = ActiveHidBackend();
  gBackend = &backend;
  // Arrivals and removals come through the backend on every platform, so hot-plug does not depend
  // on having a window to receive them.
  backend.StartNotifications();
  for (const std::string& path : backend.EnumerateDevicePaths()) DiscoverUnit(backend, path);
  return kGFDevDone;
}

std::int32_t GFDev_Stop() {
  if (gBackend != nullptr) gBackend->StopNotifications();
  {
    GateHold hold(gInputCallbackGate);
    gInputCallback.store(nullptr);
  }
  // Every writer is told first, so that stalled units wait out their last write side by side and
  // the stop takes about one write timeout however many of them there are.
  TheDeviceTables().ForEach([](DeviceObject& object) { object.RequestStop(); });
  gReturning.clear();
  TheDeviceTables().DestroyAll();
  gInputRefused.store(false);
  gBackend = nullptr;
  gChanges.clear();
  return kGFDevDone;
}

void GFDev_ProcessDeviceChanges() {
  if (gBackend == nullptr) return;
  gChanges.clear();
  gBackend->TakeDeviceChanges(gChanges);
  for (const HidDeviceChange& change : gChanges) {
    if (change.kind == HidDeviceChange::Kind::Arrival) {
      HandleArrival(*gBackend, change.path);
    } else {
      HandleRemoval(change.path);
    }
  }
  AnnounceReturns();
}

void GFDev_SetUnitReturnHandler(GFDevUnitReturnHandler handler) { gUnitReturnHandler = handler; }

bool GFDev_ReturnsSettled() {
  return std::all_of(gReturning.begin(), gReturning.end(), [](const PendingReturn& unit) {
    return !unit.object->HasHandle() || unit.object->InitialStateSettled();
  });
}

std::int32_t GFDev_RegisterInputCallback(GFDevInputCallback callback) {
  if (callback == nullptr) return 0;
  GateHold hold(gInputCallbackGate);
  gInputCallback.store(callback);
  return 1;
}

bool GFDev_DeliverInputWithin(std::uint32_t moduleType, std::uint16_t unit, const void* record,
                              std::chrono::milliseconds wait) {
  if (!gInputCallbackGate.TryEnterFor(wait)) return false;
  bool taken = true;
  if (GFDevInputCallback callback = gInputCallback.load()) taken = callback(moduleType, unit, record) != kGFDevInputRefused;
  gInputCallbackGate.Leave();
  return taken;
}

bool GFDev_DeliverInput(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
  return GFDev_DeliverInputWithin(moduleType, unit, record, kInputCallbackWait);
}

void GFDev_RedeliverRefusedInput() {
  if (!gInputRefused.exchange(false)) return;
  bool stillRefused = false;
  TheDeviceTables().ForEach([&](DeviceObject& object) {
    if (!object.RedeliverRefusedInput()) stillRefused = true;
  });
  if (stillRefused) gInputRefused.store(true);
}

void GFDev_NoteInputRefused() { gInputRefused.store(true); }

std::int32_t GFDev_FindUnitByPath(std::uint32_t moduleType, const char* path, std::int32_t* unit) {
  if (unit != nullptr) *unit = -1;
  if (path == nullptr || FindPanelModel(moduleType) == nullptr) return kGFDevNoDevice;
  const std::int32_t found = TheDeviceTables().FindUnitByPath(moduleType, path);
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

std::int32_t GFDev_PresentUnitCount(std::uint32_t moduleType) { return TheDeviceTables().PresentCount(moduleType); }

std::string GFDev_UnitPath(std::uint32_t moduleType, std::int32_t unit) {
  const DeviceObject* object = TheDeviceTables().At(moduleType, unit);
  return object == nullptr ? std::string() : object->Path();
}

bool GFDev_UnitPresentAt(std::uint32_t moduleType, const std::string& path) {
  const DeviceObject* object = PresentUnitAt(path);
  return object != nullptr && object->ModuleType() == moduleType;
}

std::uint64_t GFDev_InputReportsHandled(std::uint32_t moduleType, std::int32_t unit) {
  const DeviceObject* object = TheDeviceTables().At(moduleType, unit);
  return object == nullptr ? 0 : object->InputReportsHandled();
}

bool GFDev_WaitForOutputIdle(std::chrono::milliseconds timeout) {
  return GFDev_WaitForOutputIdleExcept({}, timeout);
}

bool GFDev_WaitForOutputIdleExcept(std::span<const std::string> stalledPaths, std::chrono::milliseconds timeout) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  bool idle = true;
  TheDeviceTables().ForEach([&](DeviceObject& object) {
    if (!idle || std::find(stalledPaths.begin(), stalledPaths.end(), object.Path()) != stalledPaths.end()) return;
    if (!object.WaitForOutputIdle(deadline)) idle = false;
  });
  return idle;
}

std::size_t GFDev_QueuedOutputReports(std::uint32_t moduleType, std::int32_t unit) {
  const DeviceObject* object = TheDeviceTables().At(moduleType, unit);
  return object == nullptr ? 0 : object->QueuedReports();
}

std::int32_t GFDev_GF45_Count() { return GFDev_PresentUnitCount(1); }
std::int32_t GFDev_GF46_Count() { return GFDev_PresentUnitCount(8); }
std::int32_t GFDev_GF166_Count() { return GFDev_PresentUnitCount(5); }
std::int32_t GFDev_GFP8_Count() { return GFDev_PresentUnitCount(2); }
std::int32_t GFDev_GFT8_Count() { return GFDev_PresentUnitCount(3); }
std::int32_t GFDev_GFRP48_Count() { return GFDev_PresentUnitCount(7); }
std::int32_t GFDev_GFLGT_Count() { return GFDev_PresentUnitCount(4); }
std::int32_t GFDev_GFLGT2_Count() { return GFDev_PresentUnitCount(11); }
std::int32_t GFDev_GFMCP_Count() { return GFDev_PresentUnitCount(6); }
std::int32_t GFDev_GFMCPPro_Count() { return GFDev_PresentUnitCount(12); }
std::int32_t GFDev_GFEFIS_Count() { return GFDev_PresentUnitCount(13); }
std::int32_t GFDev_GFTQ6_Count() { return GFDev_PresentUnitCount(9); }
std::int32_t GFDev_GFSECM_Count() { return GFDev_PresentUnitCount(14); }
std::int32_t GFDev_GFMESM_Count() { return GFDev_PresentUnitCount(17); }
std::int32_t GFDev_GFWCP_Count() { return GFDev_PresentUnitCount(18); }
std::int32_t GFDev_GFDIO_Count() { return GFDev_PresentUnitCount(19); }

}  // namespace drav
