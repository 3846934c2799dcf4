// The simulator host: an in-process stand-in for the parts of X-Plane that the plug-in uses.
//
// The XPLM functions declared in sdk/ are implemented in this folder as extern "C" functions that
// act on the one current SimHost. dravsim, the unit tests and the dlopen smoke test drive the host
// through this class; the plug-in itself only ever sees the SDK functions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/DisplayList.h"

#ifdef _WIN32
// <windows.h> (which the SDK headers include) renames SendMessage to SendMessageA; including it
// here gives every user of this class the same name whatever it includes first.
#include <windows.h>
#endif

namespace sim {

// The plug-in under test, as the simulator's plug-in manager sees it.
struct PluginEntryPoints {
  int (*start)(char* outName, char* outSignature, char* outDescription) = nullptr;
  void (*stop)() = nullptr;
  int (*enable)() = nullptr;
  void (*disable)() = nullptr;
  void (*receiveMessage)(int from, int message, void* param) = nullptr;
};

enum class DatarefType { Int, Float, Double, IntArray, FloatArray };

// What a scenario or test may declare about a dataref it adds.
struct DatarefDecl {
  std::string path;
  DatarefType type = DatarefType::Int;
  int length = 1;  // element count for the array types, 1 otherwise
  bool writable = true;
};

// What a widget is and shows, as a test or the scenario driver reads it.
struct WidgetSnapshot {
  int widgetClass = 0;  // xpWidgetClass_None for a custom widget
  bool custom = false;
  bool isRoot = false;
  std::string descriptor;
  bool visible = false;     // as XPIsWidgetVisible: it and every parent
  bool ownVisible = false;  // its own flag
  ScreenRect geometry;
  std::map<int, std::intptr_t> properties;
  void* parent = nullptr;
  std::vector<void*> children;

  std::intptr_t Property(int id) const;  // 0 when unset, as XPGetWidgetProperty
};

// The id of the plug-in under test; other plug-ins get ids from 2 upward. 0 is the simulator.
inline constexpr int kPluginUnderTestId = 1;

struct SimHostImpl;

class SimHost {
 public:
  // The host that the SDK functions act on. There is always one; Reset gives a fresh simulator.
  static SimHost& Current();

  // A fresh simulator: the built-in dataref and command tables at their defaults (a powered,
  // parked single-engine aircraft), clock at frame 0, X-Plane version 12000, XPLMFindSymbol
  // resolving the optional API, no other plug-ins, no loops, menus, windows or events. `root` is
  // the X-Plane folder that XPLMGetSystemPath reports (with a trailing separator); the folder
  // root/Resources/plugins/DRAV is created empty if missing.
  void Reset(const std::filesystem::path& root);
  const std::filesystem::path& Root() const;
  std::filesystem::path PluginFolder() const;  // root/Resources/plugins/DRAV

  // ---- set-up --------------------------------------------------------------------------------
  void SetXPlaneVersion(int version);
  void SetSystemSymbolsAvailable(bool available);  // false: XPLMFindSymbol resolves nothing
  int AddOtherPlugin(const std::string& signature);  // returns its plug-in id
  void SetCommandKnown(const std::string& name, bool known);
  // The user's aircraft file, relative to the X-Plane folder (XPLMGetNthAircraftModel(0) reports
  // it); its folder is created. A fresh simulator has the default Cessna's, whose folder is not.
  void SetUserAircraft(const std::filesystem::path& relativeFile);
  std::filesystem::path UserAircraftFile() const;  // root/<the relative file>

  // ---- datarefs ------------------------------------------------------------------------------
  // Adds (or replaces) a simulator dataref holding zeros. False when the declaration is invalid.
  bool AddDataref(const DatarefDecl& decl);
  void RemoveDataref(const std::string& path);  // the path is not found afterwards
  bool HasDataref(const std::string& path) const;  // simulator-owned or plug-in-registered
  std::optional<DatarefDecl> DescribeDataref(const std::string& path) const;
  // Sets a simulator-owned dataref directly (no event, no accessor). index -1 = the scalar, or every
  // element of an array; otherwise elements first..last. False when the path or range is invalid.
  bool SetDatarefValue(const std::string& path, int first, int last, double value);
  // Reads a dataref as the SDK would (a plug-in-registered one through its accessors). index -1
  // reads the scalar (or element 0 of an array). Empty when absent or out of range.
  std::optional<double> GetDatarefValue(const std::string& path, int index = -1) const;
  // Another plug-in writes the dataref through the SDK setters, so a plug-in-registered dataref
  // sees its set accessor run. No event is recorded: events observe the plug-in under test.
  bool WriteDatarefAsOtherPlugin(const std::string& path, int index, double value);

  // ---- the plug-in under test ----------------------------------------------------------------
  void LoadPlugin(const PluginEntryPoints& entryPoints);
  int Start();    // XPluginStart; also records the name, signature and description it returned
  int Enable();   // XPluginEnable (the plug-in counts as enabled when it returns 1)
  void Disable(); // XPluginDisable
  void Stop();    // XPluginStop
  void SendMessage(int from, int message, std::intptr_t param);  // XPluginReceiveMessage
  const std::string& PluginName() const;
  const std::string& PluginSignature() const;
  const std::string& PluginDescription() const;

  // ---- time ----------------------------------------------------------------------------------
  // One frame: the clock advances 1/60 s, then every due flight loop runs, in registration order.
  void RunFrames(int count);
  void RunSeconds(double seconds);  // whole frames until that much simulated time has passed
  int FrameNumber() const;          // frames run since Reset
  double ElapsedSeconds() const;    // FrameNumber() / 60
  int ActiveFlightLoopCount() const;  // registered loops with a non-zero interval

  // ---- menus ---------------------------------------------------------------------------------
  // Picks the item with that name in a menu the plug-in created and runs its handler. False when
  // no such item exists.
  bool PickMenuItem(const std::string& itemName);
  std::vector<std::string> PluginMenuItems() const;  // "Menu/Item" for every item the plug-in added

  // ---- commands ------------------------------------------------------------------------------
  // The pilot runs a command (a bound key or button goes down, or up): its handlers run, no event is
  // recorded. False when the simulator does not know the command.
  bool RunCommandForPilot(const std::string& name, int phase);  // an XPLMCommandPhase

  // ---- windows -------------------------------------------------------------------------------
  int WindowCount() const;  // windows the plug-in has created and not destroyed
  // Runs the draw callback of every visible plug-in window and returns each string drawn, in draw
  // order (XPLMDrawString texts; translucent boxes are not texts).
  std::vector<std::string> DrawWindows();
  // Sends a mouse event (1 down, 2 drag, 3 up) to the first window whose geometry holds (x, y);
  // returns the callback's result, or 0 when no window is hit.
  int ClickWindow(int x, int y, int mouseStatus);

  // ---- the screen, the keyboard and the mouse, as a pilot uses them ---------------------------
  void SetScreenSize(int width, int height);  // XPLMGetScreenSize; 1024 x 768 after Reset
  // Draws every visible root widget (each followed by its visible descendants) and then every
  // visible plug-in window, back to front, recording what each one drew.
  DisplayList DrawScreen();
  // One mouse event (1 down, 2 drag, 3 up) at a screen point, routed as X-Plane does: a down goes
  // to the front-most plug-in window there that takes it, else to the deepest visible widget there
  // and up its chain; drags and the release go to whoever took the down. True when taken.
  bool MouseAt(int x, int y, int mouseStatus);
  bool ClickAt(int x, int y);  // down and up at one point
  // Down and up at a point inside a widget, to the widget under the point there (and up its
  // chain), whatever covers it on screen. False for a bad or hidden widget or a point outside it.
  bool PressWidget(void* widget, int x, int y);
  // A key going down, to the window or else the widget that has the keyboard (for a widget up its
  // chain). `flags` are XPLMKeyFlags. False when X-Plane has the keyboard.
  bool SendKey(char key, int flags, unsigned char virtualKey);
  // Drags a scroll bar's thumb to where `position` is (the bar clamps it to its range) and lets go.
  // False for a bad or hidden widget or one that is not a scroll bar.
  bool DragSlider(void* scrollBar, int position);
  // Presses and releases a main window's close box. False when it has none or is not shown.
  bool ClickCloseBox(void* mainWindow);
  std::optional<WidgetSnapshot> DescribeWidget(void* widget) const;  // empty for a bad handle
  std::vector<void*> RootWidgets() const;                            // back to front
  int WidgetCount() const;                                           // live widgets
  void* WidgetWithFocus() const;
  void* WindowWithFocus() const;

  // ---- the event log -------------------------------------------------------------------------
  // One text per SDK call that changes the simulator, in call order (see dravsim.md for texts).
  const std::vector<std::string>& Events() const;
  void ClearEvents();
  void RecordEvent(std::string text);

  // The SDK's implementation state; only the extern "C" functions in sim/host use it.
  SimHostImpl& Impl();

 private:
  SimHost();
  ~SimHost();
  std::unique_ptr<SimHostImpl> impl_;
};

// Formats a float or double as events show it: the shortest text that reads back as the same
// value, without a trailing ".0".
std::string FormatEventNumber(double value, bool isFloat);

}  // namespace sim
