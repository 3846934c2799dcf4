// The widget library's state: the tree of widgets (roots in z-order, children in creation order),
// their descriptors, properties and callbacks, message dispatch, keyboard focus, mouse routing and
// the draw pass that turns visible widgets into display items.
//
// Widget geometry is in screen pixels from the bottom left, for children as for roots, as in the
// SDK. Handles are SlotTable handles, so a destroyed widget's id stays invalid for good.
#pragma once

#include <XPWidgetDefs.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/DisplayList.h"
#include "host/DrawRecorder.h"
#include "host/SlotTable.h"

namespace sim {

// Widget ids are slot handles of their own kind, so a stale or foreign id is refused.
inline constexpr HandleKind kWidgetHandleKind = HandleKind::Widget;

struct WidgetRecord {
  bool alive = true;
  bool isRoot = false;
  XPWidgetID parent = nullptr;
  std::vector<XPWidgetID> children;  // back to front
  ScreenRect geometry;
  bool visible = false;  // the widget's own flag; XPIsWidgetVisible also looks at the parents
  std::string descriptor;
  std::map<int, std::intptr_t> properties;
  int widgetClass = 0;
  bool custom = false;
  XPWidgetFunc_t function = nullptr;         // the class's function or the custom one
  std::vector<XPWidgetFunc_t> callbacks;     // in the order added; the newest runs first
};

struct WidgetParams {
  ScreenRect geometry;
  bool visible = false;
  const char* descriptor = nullptr;
  bool isRoot = false;
  XPWidgetID container = nullptr;
  int widgetClass = 0;
  bool custom = false;
  XPWidgetFunc_t function = nullptr;
};

class WidgetTree {
 public:
  explicit WidgetTree(std::uint16_t generation) : widgets_(kWidgetHandleKind, generation) {}

  XPWidgetID Create(const WidgetParams& params);
  void Destroy(XPWidgetID widget, bool withChildren);
  const WidgetRecord* Find(XPWidgetID widget) const;  // null unless alive
  int Count() const;                                   // live widgets

  // XPSendMessageToWidget: 1 when a handler took the message.
  int Send(XPWidgetID widget, int message, int mode, std::intptr_t param1, std::intptr_t param2);
  // Up the chain from `widget`; returns the widget whose handler took it, or null.
  XPWidgetID SendUpChain(XPWidgetID widget, int message, std::intptr_t param1, std::intptr_t param2);

  // ---- the tree
  void PlaceWithin(XPWidgetID sub, XPWidgetID container);  // null container: detached
  int CountChildren(XPWidgetID widget) const;
  XPWidgetID NthChild(XPWidgetID widget, int index) const;
  XPWidgetID Parent(XPWidgetID widget) const;
  XPWidgetID FindRoot(XPWidgetID widget) const;  // the root above (or itself); null if in none
  void BringToFront(XPWidgetID widget);
  bool IsInFront(XPWidgetID widget) const;
  const std::vector<XPWidgetID>& RootsBackToFront() const { return roots_; }

  // ---- look and contents
  void SetVisible(XPWidgetID widget, bool visible);  // sends Shown/Hidden up the chain on change
  bool IsVisible(XPWidgetID widget) const;            // it and every parent
  bool Geometry(XPWidgetID widget, ScreenRect* out) const;
  void SetGeometry(XPWidgetID widget, const ScreenRect& geometry);  // sends Reshape up the chain
  void MoveWithChildren(XPWidgetID widget, int dx, int dy);
  XPWidgetID WidgetAt(XPWidgetID container, int x, int y, bool recursive, bool visibleOnly) const;
  void SetDescriptor(XPWidgetID widget, const char* descriptor);
  const std::string* Descriptor(XPWidgetID widget) const;
  void SetProperty(XPWidgetID widget, int property, std::intptr_t value);
  std::intptr_t Property(XPWidgetID widget, int property, bool* exists) const;
  void AddCallback(XPWidgetID widget, XPWidgetFunc_t callback);

  // ---- keyboard
  XPWidgetID SetFocus(XPWidgetID widget);  // returns the widget that took it (null: X-Plane)
  void LoseFocus(XPWidgetID widget);       // if it or a child has it
  XPWidgetID Focus() const { return focus_; }
  bool Key(const XPKeyState_t& key);       // to the focused widget, up the chain

  // ---- mouse: one event at a screen point. False when no visible root widget is there (for a
  // down) or no widget took the down (for a drag or up).
  bool Mouse(int x, int y, int status);
  // A down at a point inside one widget, to the deepest visible widget there and up its chain;
  // false when the widget is not shown there.
  bool MouseDownIn(XPWidgetID container, int x, int y);
  bool HasMouseCapture() const { return mouseCapture_ != nullptr; }

  // ---- drawing: the visible roots back to front, each followed by its visible descendants.
  void DrawAll(DrawRecorder& recorder, std::vector<DisplayItem>& out);

 private:
  WidgetRecord* Live(XPWidgetID widget);
  const WidgetRecord* Live(XPWidgetID widget) const;
  int Deliver(XPWidgetID widget, int message, std::intptr_t param1, std::intptr_t param2,
              bool everyHandler, bool firstHandlerOnly);
  int SendRecursive(XPWidgetID widget, int message, std::intptr_t param1, std::intptr_t param2);
  void DestroyOne(XPWidgetID widget, bool withChildren, bool asChild);
  void Detach(XPWidgetID widget);
  bool IsInside(XPWidgetID widget, XPWidgetID ancestor) const;
  void DrawWidget(XPWidgetID widget, int depth, DrawRecorder& recorder, std::vector<DisplayItem>& out);

  SlotTable<WidgetRecord> widgets_;
  std::vector<XPWidgetID> roots_;  // back to front
  XPWidgetID focus_ = nullptr;
  XPWidgetID mouseCapture_ = nullptr;
};

}  // namespace sim
