// What only the Windows build does: the log mirrored to the debugger with OutputDebugStringA, the
// optional API loaded from the simulator's own library, and the win32 HID backend with no panel
// present (enumeration, opening, the notification window and the notices it turns into changes).
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>
#include <dbt.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "../config/PluginFolderSupport.h"
#include "base/IniFile.h"
#include "hid/InputCallbackGate.h"
#include "hid/backend/Win32HidBackend.h"
#include "base/Log.h"
#include "base/OptionalXplmApi.h"

namespace {

// ---- the log's debugger mirror ---------------------------------------------------------------

// OutputDebugStringA raises DBG_PRINTEXCEPTION_C with the text's length and address before it
// handles the exception itself; a vectored handler sees it first, as a debugger would.
std::string gDebuggerText;

LONG CALLBACK CatchDebuggerOutput(EXCEPTION_POINTERS* info) {
  const EXCEPTION_RECORD* record = info->ExceptionRecord;
  if (record->ExceptionCode != DBG_PRINTEXCEPTION_C || record->NumberParameters < 2) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  const auto length = static_cast<std::size_t>(record->ExceptionInformation[0]);
  const auto* text = reinterpret_cast<const char*>(record->ExceptionInformation[1]);
  // The length counts the terminator.
  gDebuggerText.append(text, length > 0 ? length - 1 : 0);
  return EXCEPTION_CONTINUE_SEARCH;
}

class WindowsLogTest : public drav_test::PluginFolderTest {
 protected:
  WindowsLogTest() : PluginFolderTest("winlog") {}
  void SetUp() override {
    PluginFolderTest::SetUp();
    gDebuggerText.clear();
    handler_ = AddVectoredExceptionHandler(1, CatchDebuggerOutput);
    ASSERT_NE(handler_, nullptr);
    drav::CurrentDebugSwitches().DebugEnabled = 1;
  }
  void TearDown() override {
    RemoveVectoredExceptionHandler(handler_);
    PluginFolderTest::TearDown();
  }

 private:
  void* handler_ = nullptr;
};

TEST_F(WindowsLogTest, MirrorSendsEachLineWithItsCrLfOnlyWhenSwitchedOn) {
  drav::LogLine("quiet");
  EXPECT_EQ(gDebuggerText, "");

  drav::CurrentDebugSwitches().DebugViewEnabled = 1;
  drav::LogLine("mirrored");
  drav::LogFormat("unit %d", 3);
  EXPECT_EQ(gDebuggerText, "mirrored\r\nunit 3\r\n");
  // The file has the same CR LF line ends, written once (no second translation to CR CR LF).
  EXPECT_EQ(LogText(), "quiet\r\nmirrored\r\nunit 3\r\n");
}

TEST_F(WindowsLogTest, PathsUseTheSimulatorsBackslashSeparator) {
  const std::string path = drav::PluginFilePath("DRAVLog.txt");
  EXPECT_NE(path.find("\\Resources\\plugins\\DRAV\\DRAVLog.txt"), std::string::npos) << path;
  EXPECT_EQ(path.find('/'), std::string::npos) << path;
}

// ---- the optional API ----------------------------------------------------------------------

XPLMCommandRef KeptFindCommand(const char*) { return nullptr; }

class WindowsOptionalApiTest : public drav_test::PluginFolderTest {
 protected:
  WindowsOptionalApiTest() : PluginFolderTest("winapi") {}
  // Where the plug-in looks for the simulator's SDK library.
  std::filesystem::path LibraryPath() const { return PluginFolder().parent_path() / "XPLM_64.DLL"; }
  void TearDown() override {
    drav::CurrentOptionalXplmApi() = drav::OptionalXplmApi{};
    PluginFolderTest::TearDown();
  }
};

TEST_F(WindowsOptionalApiTest, TheSimulatorsLibraryResolvesTheCommandsByName) {
  ASSERT_TRUE(std::filesystem::exists(LibraryPath())) << "the host's XPLM_64.DLL stand-in";
  ASSERT_TRUE(drav::LoadOptionalXplmApi());
  ASSERT_NE(drav::CurrentOptionalXplmApi().XPLMFindCommand, nullptr);
  EXPECT_NE(drav::CurrentOptionalXplmApi().XPLMCommandOnce, nullptr);
  EXPECT_NE(drav::FindOptionalCommand("sim/annunciator/clear_master_caution"), nullptr);
  EXPECT_EQ(drav::FindOptionalCommand("no/such/command"), nullptr);
}

TEST_F(WindowsOptionalApiTest, WithoutTheSimulatorsLibraryLoadFailsAndKeepsTheTable) {
  ASSERT_TRUE(!std::filesystem::exists(LibraryPath()) || std::filesystem::remove(LibraryPath()));
  drav::CurrentOptionalXplmApi().XPLMFindCommand = &KeptFindCommand;
  EXPECT_FALSE(drav::LoadOptionalXplmApi());
  EXPECT_EQ(drav::CurrentOptionalXplmApi().XPLMFindCommand, &KeptFindCommand);
  // Without the API a command is neither found nor run.
  drav::CurrentOptionalXplmApi() = drav::OptionalXplmApi{};
  EXPECT_EQ(drav::FindOptionalCommand("sim/operation/pause_toggle"), nullptr);
  drav::RunCommandOnce(nullptr);
}

// ---- the win32 HID backend with no panel present ------------------------------------------

// A device-interface broadcast as the system sends it: the header, then the name, all within
// dbcc_size.
std::vector<std::uint64_t> InterfaceNotice(const std::string& name, std::size_t declaredNameRoom,
                                           DWORD deviceType = DBT_DEVTYP_DEVICEINTERFACE) {
  const std::size_t nameOffset = offsetof(DEV_BROADCAST_DEVICEINTERFACE_A, dbcc_name);
  std::vector<std::uint64_t> storage((nameOffset + name.size() + 16) / 8 + 1, 0);
  auto* notice = reinterpret_cast<DEV_BROADCAST_DEVICEINTERFACE_A*>(storage.data());
  notice->dbcc_size = static_cast<DWORD>(nameOffset + declaredNameRoom);
  notice->dbcc_devicetype = deviceType;
  std::memcpy(notice->dbcc_name, name.data(), name.size());
  return storage;
}

std::vector<drav::HidDeviceChange> Take(drav::Win32HidBackend& backend) {
  std::vector<drav::HidDeviceChange> changes;
  backend.TakeDeviceChanges(changes);
  return changes;
}

constexpr const char* kPanelPath = "\\\\?\\HID#VID_09F3&PID_0064#7&1a2b3c4d&0&0000#{4d1e55b2-f16f-11cf-88cb-001111000030}";

// ---- the input callback's named mutex ------------------------------------------------------------

// The device layer serialises input callbacks with a mutex that other code in the process can find
// by its name; while someone else holds it, the layer's callbacks wait their turn.
TEST(WindowsInputMutexTest, TheLayersMutexIsFoundByItsName) {
  HANDLE mutex = OpenMutexA(SYNCHRONIZE | MUTEX_MODIFY_STATE, FALSE, "GFDev_MtxInputCallback");
  ASSERT_NE(mutex, nullptr) << "the device layer made no mutex of that name";
  EXPECT_EQ(WaitForSingleObject(mutex, 1000), WAIT_OBJECT_0) << "nobody holds it while no input runs";
  EXPECT_TRUE(ReleaseMutex(mutex));
  CloseHandle(mutex);
}

// When the name yields no mutex (here an event holds it), the process's own gate still lets one
// input callback in at a time: the single-producer queue never sees two at once.
TEST(WindowsInputMutexTest, ANameHeldByAnotherKindOfObjectLeavesTheProcessGateInCharge) {
  const char* name = "DravTest_GateNameTakenByAnEvent";
  HANDLE squatter = CreateEventA(nullptr, TRUE, FALSE, name);
  ASSERT_NE(squatter, nullptr);
  drav::InputCallbackGate gate(name);
  EXPECT_FALSE(gate.HasNamedMutex());
  std::atomic<int> inside{0};
  std::atomic<int> mostInside{0};
  int entries = 0;  // guarded by the gate alone
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 5000; ++i) {
        ASSERT_TRUE(gate.TryEnterFor(std::chrono::seconds(5)));
        const int now = ++inside;
        int seen = mostInside.load();
        while (now > seen && !mostInside.compare_exchange_weak(seen, now)) {
        }
        ++entries;
        --inside;
        gate.Leave();
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(mostInside.load(), 1);
  EXPECT_EQ(entries, 20000);
  CloseHandle(squatter);
}

// Whoever else holds the named mutex (another program, or a copy of the layer that hangs) is
// waited for only within the caller's limit; the main thread's turn goes on with the process's gate
// after its own limit; once the mutex is free again the gate takes it as before.
TEST(WindowsInputMutexTest, AMutexHeldElsewhereIsWaitedForOnlyWithinALimit) {
  const char* name = "DravTest_GateHeldElsewhere";
  HANDLE release = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  HANDLE held = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  std::thread holder([&] {
    HANDLE mutex = CreateMutexA(nullptr, TRUE, name);
    SetEvent(held);
    WaitForSingleObject(release, INFINITE);
    ReleaseMutex(mutex);
    CloseHandle(mutex);
  });
  ASSERT_EQ(WaitForSingleObject(held, 5000), WAIT_OBJECT_0);
  drav::InputCallbackGate gate(name);
  ASSERT_TRUE(gate.HasNamedMutex());

  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(gate.TryEnterFor(std::chrono::milliseconds(100)));
  gate.Enter();  // the main thread's turn: bounded, then the process's gate alone
  gate.Leave();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));

  SetEvent(release);
  holder.join();
  // Every failed or bounded turn above left the process's gate free, or this would time out too.
  EXPECT_TRUE(gate.TryEnterFor(std::chrono::seconds(2))) << "the freed mutex is taken again";
  gate.Leave();
  CloseHandle(held);
  CloseHandle(release);
}

TEST(Win32HidBackendTest, EnumeratesTheSameListTwiceWithNoEmptyPath) {
  drav::Win32HidBackend backend;
  const std::vector<std::string> first = backend.EnumerateDevicePaths();
  EXPECT_EQ(backend.EnumerateDevicePaths(), first);
  for (const std::string& path : first) EXPECT_FALSE(path.empty());
}

TEST(Win32HidBackendTest, OpeningAnAbsentDeviceFails) {
  drav::Win32HidBackend backend;
  EXPECT_EQ(backend.Open(kPanelPath), nullptr);
  EXPECT_EQ(backend.Open(""), nullptr);
}

TEST(Win32HidBackendTest, NoticesBecomeArrivalsAndRemovalsInOrder) {
  drav::Win32HidBackend backend;
  std::vector<std::uint64_t> notice = InterfaceNotice(kPanelPath, std::strlen(kPanelPath) + 1);
  backend.OnDeviceChange(DBT_DEVICEARRIVAL, notice.data());
  backend.OnDeviceChange(DBT_DEVICEREMOVECOMPLETE, notice.data());
  const std::vector<drav::HidDeviceChange> changes = Take(backend);
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].kind, drav::HidDeviceChange::Kind::Arrival);
  EXPECT_EQ(changes[0].path, kPanelPath);
  EXPECT_EQ(changes[1].kind, drav::HidDeviceChange::Kind::Removal);
  EXPECT_EQ(changes[1].path, kPanelPath);
  EXPECT_TRUE(Take(backend).empty());
}

TEST(Win32HidBackendTest, OtherEventsAndMalformedNoticesAreIgnored) {
  drav::Win32HidBackend backend;
  std::vector<std::uint64_t> notice = InterfaceNotice(kPanelPath, std::strlen(kPanelPath) + 1);
  backend.OnDeviceChange(DBT_DEVNODES_CHANGED, notice.data());
  backend.OnDeviceChange(DBT_DEVICEQUERYREMOVE, notice.data());
  backend.OnDeviceChange(DBT_DEVICEARRIVAL, nullptr);
  std::vector<std::uint64_t> volume = InterfaceNotice(kPanelPath, std::strlen(kPanelPath) + 1, DBT_DEVTYP_VOLUME);
  backend.OnDeviceChange(DBT_DEVICEARRIVAL, volume.data());
  std::vector<std::uint64_t> nameless = InterfaceNotice("", 0);
  backend.OnDeviceChange(DBT_DEVICEARRIVAL, nameless.data());
  std::vector<std::uint64_t> empty = InterfaceNotice("", 1);
  backend.OnDeviceChange(DBT_DEVICEARRIVAL, empty.data());
  EXPECT_TRUE(Take(backend).empty());
}

TEST(Win32HidBackendTest, NameWithoutTerminatorIsCutAtTheDeclaredSize) {
  drav::Win32HidBackend backend;
  // The record declares room for 10 characters and none of them is a terminator.
  std::vector<std::uint64_t> notice = InterfaceNotice(kPanelPath, 10);
  backend.OnDeviceChange(DBT_DEVICEARRIVAL, notice.data());
  const std::vector<drav::HidDeviceChange> changes = Take(backend);
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].path, std::string(kPanelPath, 10));
}

TEST(Win32HidBackendTest, NotificationWindowDeliversThroughItsProcedureAndGoesAway) {
  drav::Win32HidBackend backend;
  backend.StartNotifications();
  HWND window = FindWindowA("GFHIDDev Notify Window", "DevNotify");
  if (window == nullptr) {
    backend.StopNotifications();
    GTEST_SKIP() << "no window station here (headless Wine): hot-plug is off, as without a window";
  }
  EXPECT_FALSE(IsWindowVisible(window));
  std::vector<std::uint64_t> notice = InterfaceNotice(kPanelPath, std::strlen(kPanelPath) + 1);
  EXPECT_EQ(SendMessageA(window, WM_DEVICECHANGE, DBT_DEVICEARRIVAL, reinterpret_cast<LPARAM>(notice.data())),
            TRUE);
  // Every other message goes to the default procedure.
  SendMessageA(window, WM_NULL, 0, 0);
  const std::vector<drav::HidDeviceChange> changes = Take(backend);
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].path, kPanelPath);

  backend.StopNotifications();
  EXPECT_EQ(FindWindowA("GFHIDDev Notify Window", "DevNotify"), nullptr);
  // A second start registers the class again and works as the first.
  backend.StartNotifications();
  EXPECT_NE(FindWindowA("GFHIDDev Notify Window", "DevNotify"), nullptr);
  backend.StopNotifications();
  EXPECT_TRUE(Take(backend).empty());
}

}  // namespace

#endif  // _WIN32
