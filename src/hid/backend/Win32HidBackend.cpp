// Windows HID through the class driver:
// - Each handle holds two overlapped file handles on the device: one for input reads, whose
//   pending read a cancel event interrupts (CancelIoEx, then the completion is awaited so that the
//   caller's buffer and the OVERLAPPED record are free again before the read returns), and one for
//   output reports and feature requests, so that writers never wait on the reader's record.
// - Output reports and feature requests are overlapped too, each with its own event, and wait at
//   most kTransferTimeout: a unit that stops taking reports fails the request (it is cancelled and
//   its completion awaited) instead of holding its thread, and whoever waits for that thread, for
//   ever. Nothing on the same file object can queue behind a stalled synchronous request.
// - The class driver refuses a WriteFile, set or get feature buffer shorter than the interface's
//   OutputReportByteLength or FeatureReportByteLength: every report is padded with zero bytes to
//   the capability length read at open (a feature answer is cut back to what the caller asked).
// - Enumeration ends at the first failing index, whatever the error, so it can never loop on one.
// - Notice paths are copied within the size the broadcast record declares, so a name without its
//   terminator cannot be overrun.
#ifdef _WIN32

#include "hid/backend/Win32HidBackend.h"

// clang-format off
#include <windows.h>
#include <dbt.h>
#include <setupapi.h>
// Some SDKs' HID headers declare their functions without C linkage; hid.dll exports C names.
extern "C" {
#include <hidsdi.h>
#include <hidpi.h>
}
#include <winioctl.h>  // CTL_CODE, which the HID class request codes are built from
#include <hidclass.h>
// clang-format on

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace drav {

namespace {

constexpr const char* kWindowClassName = "GFHIDDev Notify Window";
constexpr const char* kWindowTitle = "DevNotify";
constexpr std::size_t kSerialChars = 128;
// As long as a USB control or interrupt transfer is given before it times out.
constexpr DWORD kTransferTimeoutMs = 5000;

// A report copied into a buffer of at least the capability length, zero-padded. Reports of the
// family fit the inline bytes, so a write allocates nothing.
class PaddedReport {
 public:
  PaddedReport(const std::uint8_t* data, std::size_t length, std::size_t capabilityLength)
      : size_(std::max(length, capabilityLength)) {
    if (size_ > inline_.size()) heap_.assign(size_, 0);
    std::copy_n(data, length, Data());
  }
  std::uint8_t* Data() { return heap_.empty() ? inline_.data() : heap_.data(); }
  std::size_t Size() const { return size_; }

 private:
  std::size_t size_;
  std::array<std::uint8_t, 65> inline_{};
  std::vector<std::uint8_t> heap_;
};

// Waits at most kTransferTimeoutMs for an overlapped request that `started` began on `file`; a
// request still pending then is cancelled and its completion awaited (the buffer and the record
// must be free before they go), and fails.
bool FinishOverlapped(HANDLE file, OVERLAPPED& overlapped, BOOL started, DWORD* transferred) {
  if (!started && GetLastError() != ERROR_IO_PENDING) return false;
  DWORD count = 0;
  if (WaitForSingleObject(overlapped.hEvent, kTransferTimeoutMs) != WAIT_OBJECT_0) {
    CancelIoEx(file, &overlapped);
    GetOverlappedResult(file, &overlapped, &count, TRUE);
    return false;
  }
  if (!GetOverlappedResult(file, &overlapped, &count, FALSE)) return false;
  if (transferred != nullptr) *transferred = count;
  return true;
}

// One event per request, so that requests of several threads on one file never share a record.
class RequestEvent {
 public:
  RequestEvent() : event_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
  ~RequestEvent() {
    if (event_ != nullptr) CloseHandle(event_);
  }
  RequestEvent(const RequestEvent&) = delete;
  RequestEvent& operator=(const RequestEvent&) = delete;
  HANDLE Get() const { return event_; }

 private:
  HANDLE event_;
};

GUID HidClassGuid() {
  GUID guid;
  HidD_GetHidGuid(&guid);
  return guid;
}

HANDLE OpenDevice(const std::string& path, DWORD flags) {
  return CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                     OPEN_EXISTING, flags, nullptr);
}

void CloseIfOpen(HANDLE& handle) {
  if (handle != nullptr && handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
  handle = INVALID_HANDLE_VALUE;
}

class Win32HidHandle : public HidDeviceHandle {
 public:
  Win32HidHandle(HANDLE readHandle, HANDLE writeHandle, HANDLE readDone, HANDLE cancel)
      : readHandle_(readHandle), writeHandle_(writeHandle), readDone_(readDone), cancel_(cancel) {
    HidCapabilities caps;
    if (GetCapabilities(&caps)) caps_ = caps;
  }

  ~Win32HidHandle() override {
    CloseIfOpen(readHandle_);
    CloseIfOpen(writeHandle_);
    CloseHandle(readDone_);
    CloseHandle(cancel_);
  }

  bool GetAttributes(HidAttributes* out) override {
    HIDD_ATTRIBUTES attributes{};
    attributes.Size = sizeof attributes;
    if (out == nullptr || !HidD_GetAttributes(readHandle_, &attributes)) return false;
    *out = HidAttributes{attributes.VendorID, attributes.ProductID, attributes.VersionNumber};
    return true;
  }

  bool GetCapabilities(HidCapabilities* out) override {
    if (out == nullptr) return false;
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    if (!HidD_GetPreparsedData(readHandle_, &preparsed)) return false;
    HIDP_CAPS caps{};
    const bool read = HidP_GetCaps(preparsed, &caps) == HIDP_STATUS_SUCCESS;
    HidD_FreePreparsedData(preparsed);
    if (!read) return false;
    *out = HidCapabilities{caps.InputReportByteLength, caps.OutputReportByteLength, caps.FeatureReportByteLength};
    return true;
  }

  std::string GetSerialNumber() override {
    wchar_t wide[kSerialChars] = {};
    if (!HidD_GetSerialNumberString(readHandle_, wide, sizeof wide - sizeof(wchar_t))) return {};
    std::string serial;
    for (std::size_t i = 0; i < kSerialChars && wide[i] != L'\0'; ++i) {
      serial.push_back(wide[i] < 0x100 ? static_cast<char>(wide[i]) : '?');
    }
    return serial;
  }

  int ReadInputReport(std::uint8_t* buffer, std::size_t capacity) override {
    if (buffer == nullptr || capacity == 0 || capacity > MAXDWORD) return -1;
    if (WaitForSingleObject(cancel_, 0) == WAIT_OBJECT_0) return 0;  // cancelled before it began
    OVERLAPPED overlapped{};
    overlapped.hEvent = readDone_;
    ResetEvent(readDone_);
    DWORD length = 0;
    if (!ReadFile(readHandle_, buffer, static_cast<DWORD>(capacity), nullptr, &overlapped)) {
      if (GetLastError() != ERROR_IO_PENDING) return -1;
      // The cancel event comes first: when both are signalled, the cancel wins.
      HANDLE waits[2] = {cancel_, readDone_};
      const DWORD woken = WaitForMultipleObjects(2, waits, FALSE, INFINITE);
      if (woken != WAIT_OBJECT_0 + 1) {
        CancelIoEx(readHandle_, &overlapped);
        GetOverlappedResult(readHandle_, &overlapped, &length, TRUE);  // the read must be over
        return woken == WAIT_OBJECT_0 ? 0 : -1;
      }
    }
    if (!GetOverlappedResult(readHandle_, &overlapped, &length, FALSE)) return -1;
    return static_cast<int>(length);
  }

  void CancelRead() override { SetEvent(cancel_); }

  bool GetFeatureReport(std::uint8_t* buffer, std::size_t length) override {
    if (buffer == nullptr || length == 0 || length > MAXDWORD) return false;
    PaddedReport report(buffer, length, caps_.featureReportLength);
    DWORD received = 0;
    if (!Request(IOCTL_HID_GET_FEATURE, report, &received)) return false;
    std::copy_n(report.Data(), length, buffer);
    return true;
  }

  bool SetFeatureReport(const std::uint8_t* data, std::size_t length) override {
    if (data == nullptr || length == 0 || length > MAXDWORD) return false;
    PaddedReport report(data, length, caps_.featureReportLength);
    return Request(IOCTL_HID_SET_FEATURE, report, nullptr);
  }

  bool WriteOutputReport(const std::uint8_t* data, std::size_t length) override {
    if (data == nullptr || length == 0 || length > MAXDWORD) return false;
    PaddedReport report(data, length, caps_.outputReportLength);
    RequestEvent done;
    if (done.Get() == nullptr) return false;
    OVERLAPPED overlapped{};
    overlapped.hEvent = done.Get();
    DWORD written = 0;
    const BOOL started = WriteFile(writeHandle_, report.Data(), static_cast<DWORD>(report.Size()), nullptr, &overlapped);
    return FinishOverlapped(writeHandle_, overlapped, started, &written) && written == report.Size();
  }

 private:
  // A feature request as the class driver takes it: the whole report (report id first) in, and
  // for a get the answer out in the same buffer; what HidD_GetFeature and HidD_SetFeature send,
  // but with a time limit.
  bool Request(DWORD code, PaddedReport& report, DWORD* transferred) {
    RequestEvent done;
    if (done.Get() == nullptr) return false;
    OVERLAPPED overlapped{};
    overlapped.hEvent = done.Get();
    const DWORD size = static_cast<DWORD>(report.Size());
    const bool get = code == IOCTL_HID_GET_FEATURE;
    const BOOL started = DeviceIoControl(writeHandle_, code, report.Data(), size, get ? report.Data() : nullptr,
                                         get ? size : 0, nullptr, &overlapped);
    return FinishOverlapped(writeHandle_, overlapped, started, transferred);
  }

  HANDLE readHandle_;   // overlapped
  HANDLE writeHandle_;  // overlapped, for writes and feature requests
  HANDLE readDone_;     // manual reset, the pending read's completion
  HANDLE cancel_;       // auto reset: one cancel wakes one read
  HidCapabilities caps_;  // the report lengths every request is padded to
};

// The interface path of index `index` of the set; empty when that index cannot be read. False when
// the enumeration is over (no more items, or any other failure of the enumeration itself).
bool InterfacePathAt(HDEVINFO set, const GUID& guid, DWORD index, std::string& path) {
  SP_DEVICE_INTERFACE_DATA interfaceData{};
  interfaceData.cbSize = sizeof interfaceData;
  if (!SetupDiEnumDeviceInterfaces(set, nullptr, &guid, index, &interfaceData)) return false;
  path.clear();
  DWORD required = 0;
  SetupDiGetDeviceInterfaceDetailA(set, &interfaceData, nullptr, 0, &required, nullptr);
  if (required < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_A)) return true;
  // Whole 8-byte words, so that the detail record is aligned.
  std::vector<std::uint64_t> storage((required + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t));
  auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_A*>(storage.data());
  detail->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_A);
  if (SetupDiGetDeviceInterfaceDetailA(set, &interfaceData, detail, required, nullptr, nullptr)) {
    const std::size_t room = required - offsetof(SP_DEVICE_INTERFACE_DETAIL_DATA_A, DevicePath);
    path.assign(detail->DevicePath, strnlen(detail->DevicePath, room));
  }
  return true;
}

LRESULT CALLBACK NotifyWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTA*>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  if (message != WM_DEVICECHANGE) return DefWindowProcA(window, message, wParam, lParam);
  auto* backend = reinterpret_cast<Win32HidBackend*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (backend != nullptr) backend->OnDeviceChange(wParam, reinterpret_cast<const void*>(lParam));
  return TRUE;
}

// The module this code lives in (the plug-in, not the simulator), which owns the window class.
HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCSTR>(&NotifyWindowProc), &module);
  return module;
}

ATOM RegisterNotifyWindowClass(HINSTANCE instance) {
  WNDCLASSEXA windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = NotifyWindowProc;
  windowClass.hInstance = instance;
  windowClass.hIcon = LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
  windowClass.hIconSm = windowClass.hIcon;
  windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  windowClass.lpszClassName = kWindowClassName;
  return RegisterClassExA(&windowClass);
}

}  // namespace

Win32HidBackend::~Win32HidBackend() { StopNotifications(); }

std::vector<std::string> Win32HidBackend::EnumerateDevicePaths() {
  std::vector<std::string> paths;
  const GUID guid = HidClassGuid();
  HDEVINFO set = SetupDiGetClassDevsA(&guid, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
  if (set == INVALID_HANDLE_VALUE) return paths;
  std::string path;
  for (DWORD index = 0; InterfacePathAt(set, guid, index, path); ++index) {
    if (!path.empty()) paths.push_back(path);
  }
  SetupDiDestroyDeviceInfoList(set);
  return paths;
}

namespace {

// "...VID_09F3&PID_0020..." in an interface path (the layer keeps paths upper-cased); 0 when absent.
std::uint16_t HexIdAfter(const std::string& path, const char* tag) {
  std::string upper = path;
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  const std::size_t at = upper.find(tag);
  if (at == std::string::npos) return 0;
  return static_cast<std::uint16_t>(std::strtoul(upper.substr(at + std::strlen(tag), 4).c_str(), nullptr, 16));
}

}  // namespace

// The ids are in the interface path; the reason comes from trying the path once more.
HidOpenFailure Win32HidBackend::DescribeOpenFailure(const std::string& path) {
  HidOpenFailure failure{HexIdAfter(path, "VID_"), HexIdAfter(path, "PID_"), {}};
  HANDLE handle = OpenDevice(path, 0);
  const DWORD error = handle == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
  CloseIfOpen(handle);
  if (error == ERROR_ACCESS_DENIED) {
    failure.reason = "access denied";
  } else if (error == ERROR_SHARING_VIOLATION) {
    failure.reason = "in use by another program";
  } else {
    failure.reason = "Windows error " + std::to_string(error);
  }
  return failure;
}

std::unique_ptr<HidDeviceHandle> Win32HidBackend::Open(const std::string& path) {
  HANDLE readHandle = OpenDevice(path, FILE_FLAG_OVERLAPPED);
  if (readHandle == INVALID_HANDLE_VALUE) return nullptr;
  HANDLE writeHandle = OpenDevice(path, FILE_FLAG_OVERLAPPED);
  HANDLE readDone = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  HANDLE cancel = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  if (writeHandle == INVALID_HANDLE_VALUE || readDone == nullptr || cancel == nullptr) {
    CloseIfOpen(readHandle);
    CloseIfOpen(writeHandle);
    if (readDone != nullptr) CloseHandle(readDone);
    if (cancel != nullptr) CloseHandle(cancel);
    return nullptr;
  }
  return std::make_unique<Win32HidHandle>(readHandle, writeHandle, readDone, cancel);
}

void Win32HidBackend::StartNotifications() {
  if (window_ != nullptr) return;
  HINSTANCE instance = ThisModule();
  if (instance == nullptr) return;
  const ATOM windowClass = RegisterNotifyWindowClass(instance);
  // The class may remain registered from an earlier start that could not unregister it.
  if (windowClass == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return;
  instance_ = instance;
  windowClass_ = windowClass;
  HWND window = CreateWindowExA(0, kWindowClassName, kWindowTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, this);
  if (window == nullptr) {
    StopNotifications();
    return;
  }
  window_ = window;
  DEV_BROADCAST_DEVICEINTERFACE_A filter{};
  filter.dbcc_size = sizeof filter;
  filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
  filter.dbcc_classguid = HidClassGuid();
  // Without the registration the window hears nothing: the layer runs without hot-plug.
  notification_ = RegisterDeviceNotificationA(window, &filter, DEVICE_NOTIFY_WINDOW_HANDLE);
}

void Win32HidBackend::StopNotifications() {
  if (notification_ != nullptr) UnregisterDeviceNotification(static_cast<HDEVNOTIFY>(notification_));
  if (window_ != nullptr) DestroyWindow(static_cast<HWND>(window_));
  if (windowClass_ != 0) UnregisterClassA(kWindowClassName, static_cast<HINSTANCE>(instance_));
  notification_ = nullptr;
  window_ = nullptr;
  windowClass_ = 0;
  instance_ = nullptr;
  changes_.Clear();  // a later start must not see notices from before this stop
}

void Win32HidBackend::TakeDeviceChanges(std::vector<HidDeviceChange>& out) { changes_.TakeAll(out); }

void Win32HidBackend::OnDeviceChange(unsigned long long event, const void* record) {
  HidDeviceChange change;
  if (event == DBT_DEVICEARRIVAL) {
    change.kind = HidDeviceChange::Kind::Arrival;
  } else if (event == DBT_DEVICEREMOVECOMPLETE) {
    change.kind = HidDeviceChange::Kind::Removal;
  } else {
    return;
  }
  const auto* header = static_cast<const DEV_BROADCAST_HDR*>(record);
  if (header == nullptr || header->dbch_devicetype != DBT_DEVTYP_DEVICEINTERFACE) return;
  const auto* deviceInterface = static_cast<const DEV_BROADCAST_DEVICEINTERFACE_A*>(record);
  const std::size_t nameOffset = offsetof(DEV_BROADCAST_DEVICEINTERFACE_A, dbcc_name);
  if (deviceInterface->dbcc_size <= nameOffset) return;
  const std::size_t room = deviceInterface->dbcc_size - nameOffset;
  change.path.assign(deviceInterface->dbcc_name, strnlen(deviceInterface->dbcc_name, room));
  if (!change.path.empty()) changes_.Push(std::move(change));
}

std::unique_ptr<HidBackend> MakePlatformHidBackend() { return std::make_unique<Win32HidBackend>(); }

}  // namespace drav

#endif  // _WIN32
