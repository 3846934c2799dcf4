#include "host/SimHost.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "host/BuiltinDatarefs.h"
#include "host/SimHostImpl.h"
#include "host/WidgetClasses.h"

#include <XPStandardWidgets.h>

namespace sim {

SimHost::SimHost() : impl_(std::make_unique<SimHostImpl>(0)) {}

SimHost::~SimHost() = default;

SimHost& SimHost::Current() {
  static SimHost host;
  return host;
}

SimHostImpl& SimHost::Impl() { return *impl_; }

#ifdef _WIN32
namespace {

// On Windows the plug-in loads the simulator's SDK library by path (Resources, plugins, XPLM_64.DLL
// under the X-Plane folder) for the functions it looks up at run time. The host's stand-in for it is built
// beside the program; without it (a missing file) the plug-in runs as without that library.
void PlaceSdkLibrary(const std::filesystem::path& root) {
  char program[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, program, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return;
  const std::filesystem::path library = std::filesystem::path(program).parent_path() / "XPLM_64.DLL";
  std::error_code ignored;
  std::filesystem::copy_file(library, root / "Resources" / "plugins" / "XPLM_64.DLL",
                             std::filesystem::copy_options::skip_existing, ignored);
}

// The plug-in never releases that library; the simulator going away does. Until then Windows keeps
// the file from being deleted, so the host lets go of it when its plug-in stops or the host moves
// to another folder.
void ReleaseSdkLibrary(const std::filesystem::path& root) {
  if (root.empty()) return;
  const std::string path = (root / "Resources" / "plugins" / "XPLM_64.DLL").string();
  while (HMODULE library = GetModuleHandleA(path.c_str())) {
    if (!FreeLibrary(library)) break;
  }
}

}  // namespace
#endif

void SimHost::Reset(const std::filesystem::path& root) {
  const auto nextGeneration = static_cast<std::uint16_t>(impl_->generation + 1);
#ifdef _WIN32
  ReleaseSdkLibrary(impl_->root);
#endif
  impl_ = std::make_unique<SimHostImpl>(nextGeneration);
  impl_->root = root;
  if (!root.empty()) {
    std::error_code ignored;  // a folder that cannot be made shows up as missing files later
    std::filesystem::create_directories(PluginFolder(), ignored);
#ifdef _WIN32
    PlaceSdkLibrary(root);
#endif
  }
}

const std::filesystem::path& SimHost::Root() const { return impl_->root; }

std::filesystem::path SimHost::PluginFolder() const {
  return impl_->root / "Resources" / "plugins" / "DRAV";
}

// ---- set-up ------------------------------------------------------------------------------------

// An older simulator also has the datarefs X-Plane 12 dropped; a scenario sets the version before
// it adds or removes datarefs of its own, so those it changes stay as it left them.
void SimHost::SetXPlaneVersion(int version) {
  impl_->xplaneVersion = version;
  if (version < kFirstXPlane12Version) impl_->datarefs.AddOlderSimulatorDatarefs();
}

void SimHost::SetUserAircraft(const std::filesystem::path& relativeFile) {
  impl_->userAircraft = relativeFile;
  std::error_code ignored;  // a folder that cannot be made shows up as a missing file later
  std::filesystem::create_directories(UserAircraftFile().parent_path(), ignored);
}

std::filesystem::path SimHost::UserAircraftFile() const { return impl_->root / impl_->userAircraft; }

void SimHost::SetSystemSymbolsAvailable(bool available) { impl_->systemSymbolsAvailable = available; }

int SimHost::AddOtherPlugin(const std::string& signature) { return impl_->plugins.AddOther(signature); }

void SimHost::SetCommandKnown(const std::string& name, bool known) {
  impl_->commands.SetKnown(name, known);
}

// ---- datarefs ----------------------------------------------------------------------------------

bool SimHost::AddDataref(const DatarefDecl& decl) { return impl_->datarefs.Add(decl); }

void SimHost::RemoveDataref(const std::string& path) { impl_->datarefs.Remove(path); }

bool SimHost::HasDataref(const std::string& path) const { return impl_->datarefs.Has(path); }

std::optional<DatarefDecl> SimHost::DescribeDataref(const std::string& path) const {
  return impl_->datarefs.Describe(path);
}

bool SimHost::SetDatarefValue(const std::string& path, int first, int last, double value) {
  return impl_->datarefs.SetValue(path, first, last, value);
}

std::optional<double> SimHost::GetDatarefValue(const std::string& path, int index) const {
  return impl_->datarefs.GetValue(path, index);
}

bool SimHost::WriteDatarefAsOtherPlugin(const std::string& path, int index, double value) {
  return impl_->datarefs.WriteAsOtherPlugin(path, index, value);
}

// ---- the plug-in under test --------------------------------------------------------------------

void SimHost::LoadPlugin(const PluginEntryPoints& entryPoints) { impl_->plugins.Load(entryPoints); }

int SimHost::Start() { return impl_->plugins.Start(); }

int SimHost::Enable() { return impl_->plugins.Enable(); }

void SimHost::Disable() { impl_->plugins.Disable(); }

void SimHost::Stop() {
  impl_->plugins.Stop();
#ifdef _WIN32
  ReleaseSdkLibrary(impl_->root);
#endif
}

void SimHost::SendMessage(int from, int message, std::intptr_t param) {
  impl_->plugins.Deliver(from, message, reinterpret_cast<void*>(param));
}

const std::string& SimHost::PluginName() const { return impl_->plugins.Name(); }

const std::string& SimHost::PluginSignature() const { return impl_->plugins.Signature(); }

const std::string& SimHost::PluginDescription() const { return impl_->plugins.Description(); }

// ---- time --------------------------------------------------------------------------------------

void SimHost::RunFrames(int count) {
  for (int i = 0; i < count; ++i) {
    SimHostImpl& impl = *impl_;
    ++impl.frame;
    impl.commands.ContinueHeld();
    if (impl.plugins.IsActive()) impl.flightLoops.RunDue(impl.frame);
  }
}

void SimHost::RunSeconds(double seconds) {
  if (!(seconds > 0)) return;
  // The same tolerance as flight-loop intervals, so RunSeconds(0.1) is the 6 frames a 0.1 s loop
  // waits.
  const double frames = std::ceil(seconds * kFramesPerSecond - 1e-3);
  RunFrames(static_cast<int>(std::min(frames, 1e9)));
}

int SimHost::FrameNumber() const { return static_cast<int>(impl_->frame); }

double SimHost::ElapsedSeconds() const {
  return static_cast<double>(impl_->frame) / kFramesPerSecond;
}

int SimHost::ActiveFlightLoopCount() const { return impl_->flightLoops.ActiveCount(); }

// ---- menus -------------------------------------------------------------------------------------

bool SimHost::PickMenuItem(const std::string& itemName) { return impl_->menus.Pick(itemName); }

std::vector<std::string> SimHost::PluginMenuItems() const { return impl_->menus.PluginItems(); }

bool SimHost::RunCommandForPilot(const std::string& name, int phase) {
  return impl_->commands.RunForPilot(name, phase);
}

// ---- windows -----------------------------------------------------------------------------------

int SimHost::WindowCount() const { return impl_->windows.Count(); }

std::vector<std::string> SimHost::DrawWindows() {
  std::vector<DisplayItem> items;
  impl_->windows.DrawAll(impl_->drawing, items);
  std::vector<std::string> texts;
  for (const DisplayItem& item : items) {
    for (const DrawnText& text : item.texts) texts.push_back(text.text);
  }
  return texts;
}

int SimHost::ClickWindow(int x, int y, int mouseStatus) {
  return impl_->windows.Click(x, y, mouseStatus);
}

// ---- the screen, the keyboard and the mouse ----------------------------------------------------

std::intptr_t WidgetSnapshot::Property(int id) const {
  const auto it = properties.find(id);
  return it != properties.end() ? it->second : 0;
}

void SimHost::SetScreenSize(int width, int height) {
  impl_->screenWidth = width;
  impl_->screenHeight = height;
}

DisplayList SimHost::DrawScreen() {
  DisplayList list;
  list.screenWidth = impl_->screenWidth;
  list.screenHeight = impl_->screenHeight;
  impl_->widgets.DrawAll(impl_->drawing, list.items);
  impl_->windows.DrawAll(impl_->drawing, list.items);  // plug-in windows float over widgets
  return list;
}

bool SimHost::MouseAt(int x, int y, int mouseStatus) {
  SimHostImpl& impl = *impl_;
  if (mouseStatus == xplm_MouseDown) {
    impl.mouseOwner = MouseOwner::None;
    if (impl.windows.WindowAt(x, y) != nullptr && impl.windows.Click(x, y, mouseStatus) != 0) {
      impl.mouseOwner = MouseOwner::Window;
      return true;
    }
    if (!impl.widgets.Mouse(x, y, mouseStatus)) return false;
    impl.mouseOwner = MouseOwner::Widget;
    return true;
  }
  const MouseOwner owner = impl.mouseOwner;
  if (mouseStatus == xplm_MouseUp) impl.mouseOwner = MouseOwner::None;
  if (owner == MouseOwner::Window) return impl.windows.Click(x, y, mouseStatus) != 0;
  if (owner == MouseOwner::Widget) return impl.widgets.Mouse(x, y, mouseStatus);
  return false;
}

bool SimHost::ClickAt(int x, int y) {
  if (!MouseAt(x, y, xplm_MouseDown)) return false;
  MouseAt(x, y, xplm_MouseUp);
  return true;
}

bool SimHost::PressWidget(void* widget, int x, int y) {
  SimHostImpl& impl = *impl_;
  impl.mouseOwner = MouseOwner::None;
  if (!impl.widgets.MouseDownIn(widget, x, y)) return false;
  impl.widgets.Mouse(x, y, xplm_MouseUp);
  return true;
}

bool SimHost::SendKey(char key, int flags, unsigned char virtualKey) {
  SimHostImpl& impl = *impl_;
  if (impl.windows.SendKey(key, flags, static_cast<char>(virtualKey))) return true;
  const XPKeyState_t state{key, flags, static_cast<char>(virtualKey)};
  return impl.widgets.Key(state);
}

bool SimHost::DragSlider(void* scrollBar, int position) {
  SimHostImpl& impl = *impl_;
  const WidgetRecord* bar = impl.widgets.Find(scrollBar);
  if (bar == nullptr || bar->widgetClass != xpWidgetClass_ScrollBar ||
      !impl.widgets.IsVisible(scrollBar)) {
    return false;
  }
  const auto min = static_cast<int>(impl.widgets.Property(scrollBar, xpProperty_ScrollBarMin, nullptr));
  const auto max = static_cast<int>(impl.widgets.Property(scrollBar, xpProperty_ScrollBarMax, nullptr));
  const auto now =
      static_cast<int>(impl.widgets.Property(scrollBar, xpProperty_ScrollBarSliderPosition, nullptr));
  int fromX = 0, fromY = 0, toX = 0, toY = 0;
  SliderPointFor(bar->geometry, min, max, now, &fromX, &fromY);
  // Past the end of the range the pilot drags to the end of the bar, where the thumb stops.
  SliderPointFor(bar->geometry, min, max, position, &toX, &toY);
  impl.mouseOwner = MouseOwner::None;
  if (!impl.widgets.MouseDownIn(scrollBar, fromX, fromY)) return false;
  impl.widgets.Mouse(toX, toY, xplm_MouseDrag);
  impl.widgets.Mouse(toX, toY, xplm_MouseUp);
  return true;
}

bool SimHost::ClickCloseBox(void* mainWindow) {
  const WidgetRecord* window = impl_->widgets.Find(mainWindow);
  if (window == nullptr || window->widgetClass != xpWidgetClass_MainWindow ||
      impl_->widgets.Property(mainWindow, xpProperty_MainWindowHasCloseBoxes, nullptr) == 0) {
    return false;
  }
  const ScreenRect box = CloseBoxRect(window->geometry);
  return PressWidget(mainWindow, (box.left + box.right) / 2, (box.top + box.bottom) / 2);
}

std::optional<WidgetSnapshot> SimHost::DescribeWidget(void* widget) const {
  const WidgetRecord* record = impl_->widgets.Find(widget);
  if (record == nullptr) return std::nullopt;
  WidgetSnapshot snapshot;
  snapshot.widgetClass = record->widgetClass;
  snapshot.custom = record->custom;
  snapshot.isRoot = record->isRoot;
  snapshot.descriptor = record->descriptor;
  snapshot.visible = impl_->widgets.IsVisible(widget);
  snapshot.ownVisible = record->visible;
  snapshot.geometry = record->geometry;
  snapshot.properties = record->properties;
  snapshot.parent = record->parent;
  snapshot.children.assign(record->children.begin(), record->children.end());
  return snapshot;
}

std::vector<void*> SimHost::RootWidgets() const {
  const std::vector<XPWidgetID>& roots = impl_->widgets.RootsBackToFront();
  return std::vector<void*>(roots.begin(), roots.end());
}

int SimHost::WidgetCount() const { return impl_->widgets.Count(); }

void* SimHost::WidgetWithFocus() const { return impl_->widgets.Focus(); }

void* SimHost::WindowWithFocus() const { return impl_->windows.Focus(); }

// ---- the event log -----------------------------------------------------------------------------

const std::vector<std::string>& SimHost::Events() const { return impl_->events.Events(); }

void SimHost::ClearEvents() { impl_->events.Clear(); }

void SimHost::RecordEvent(std::string text) { impl_->events.Record(std::move(text)); }

std::string FormatEventNumber(double value, bool isFloat) {
  char buffer[64];
  const std::to_chars_result result =
      isFloat ? std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(value))
              : std::to_chars(buffer, buffer + sizeof buffer, value);
  std::string text(buffer, result.ptr);
  if (text.size() > 2 && text.ends_with(".0")) text.resize(text.size() - 2);
  return text;
}

}  // namespace sim
