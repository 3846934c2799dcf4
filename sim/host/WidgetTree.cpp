#include "host/WidgetTree.h"

#include <XPLMDisplay.h>

#include <algorithm>

namespace sim {
namespace {

void Erase(std::vector<XPWidgetID>& list, XPWidgetID widget) {
  list.erase(std::remove(list.begin(), list.end(), widget), list.end());
}

}  // namespace

WidgetRecord* WidgetTree::Live(XPWidgetID widget) {
  WidgetRecord* found = widgets_.Find(widget);
  return found != nullptr && found->alive ? found : nullptr;
}

const WidgetRecord* WidgetTree::Live(XPWidgetID widget) const {
  const WidgetRecord* found = widgets_.Find(widget);
  return found != nullptr && found->alive ? found : nullptr;
}

const WidgetRecord* WidgetTree::Find(XPWidgetID widget) const { return Live(widget); }

int WidgetTree::Count() const {
  int count = 0;
  for (std::size_t i = 0; i < widgets_.Size(); ++i) count += widgets_.At(i).alive ? 1 : 0;
  return count;
}

// ---- creation and destruction -------------------------------------------------------------------

XPWidgetID WidgetTree::Create(const WidgetParams& params) {
  WidgetRecord record;
  record.isRoot = params.isRoot;
  record.geometry = params.geometry;
  record.visible = params.visible;
  record.descriptor = params.descriptor != nullptr ? params.descriptor : "";
  record.widgetClass = params.widgetClass;
  record.custom = params.custom;
  record.function = params.function;
  const XPWidgetID widget = widgets_.HandleOf(widgets_.Add(std::move(record)));
  if (params.isRoot) roots_.push_back(widget);  // a new root window opens in front
  if (params.container != nullptr) PlaceWithin(widget, params.container);
  Deliver(widget, xpMsg_Create, 0, 0, false, false);
  return widget;
}

void WidgetTree::Destroy(XPWidgetID widget, bool withChildren) {
  DestroyOne(widget, withChildren, false);
}

void WidgetTree::DestroyOne(XPWidgetID widget, bool withChildren, bool asChild) {
  if (Live(widget) == nullptr) return;
  Deliver(widget, xpMsg_Destroy, asChild ? 1 : 0, 0, false, false);
  WidgetRecord* record = Live(widget);  // the handler may have destroyed it itself
  if (record == nullptr) return;
  const std::vector<XPWidgetID> children = record->children;
  for (XPWidgetID child : children) {
    if (withChildren) {
      DestroyOne(child, true, true);
    } else if (WidgetRecord* orphan = Live(child)) {
      orphan->parent = nullptr;  // children that survive float free, as in the SDK
    }
  }
  if (focus_ == widget) focus_ = nullptr;  // a destroyed child has already given it up
  if (mouseCapture_ == widget) mouseCapture_ = nullptr;
  Detach(widget);
  Erase(roots_, widget);
  record = Live(widget);
  if (record == nullptr) return;
  record->alive = false;
  record->children.clear();
  record->callbacks.clear();
  record->properties.clear();
  record->descriptor.clear();
}

void WidgetTree::Detach(XPWidgetID widget) {
  WidgetRecord* record = Live(widget);
  if (record == nullptr || record->parent == nullptr) return;
  const XPWidgetID parent = record->parent;
  record->parent = nullptr;
  if (WidgetRecord* container = Live(parent)) {
    Erase(container->children, widget);
    Deliver(parent, xpMsg_LoseChild, reinterpret_cast<std::intptr_t>(widget), 0, false, false);
  }
}

// ---- messages -----------------------------------------------------------------------------------

int WidgetTree::Deliver(XPWidgetID widget, int message, std::intptr_t param1, std::intptr_t param2,
                        bool everyHandler, bool firstHandlerOnly) {
  const WidgetRecord* record = Live(widget);
  if (record == nullptr) return 0;
  // A copy: handlers may add callbacks or destroy the widget while the message runs.
  std::vector<XPWidgetFunc_t> handlers(record->callbacks.rbegin(), record->callbacks.rend());
  if (record->function != nullptr) handlers.push_back(record->function);
  int handled = 0;
  for (XPWidgetFunc_t handler : handlers) {
    if (handler(message, widget, param1, param2) != 0) {
      handled = 1;
      if (!everyHandler) break;
    }
    if (firstHandlerOnly) break;
    if (Live(widget) == nullptr && message != xpMsg_Destroy) break;
  }
  return handled;
}

XPWidgetID WidgetTree::SendUpChain(XPWidgetID widget, int message, std::intptr_t param1,
                                   std::intptr_t param2) {
  for (XPWidgetID current = widget; Live(current) != nullptr;) {
    const XPWidgetID parent = Live(current)->parent;  // read first: the handler may destroy it
    if (Deliver(current, message, param1, param2, false, false) != 0) return current;
    current = parent;
  }
  return nullptr;
}

int WidgetTree::SendRecursive(XPWidgetID widget, int message, std::intptr_t param1,
                              std::intptr_t param2) {
  int handled = Deliver(widget, message, param1, param2, false, false);
  const WidgetRecord* record = Live(widget);
  if (record == nullptr) return handled;
  const std::vector<XPWidgetID> children = record->children;
  for (XPWidgetID child : children) handled |= SendRecursive(child, message, param1, param2);
  return handled;
}

int WidgetTree::Send(XPWidgetID widget, int message, int mode, std::intptr_t param1,
                     std::intptr_t param2) {
  switch (mode) {
    case xpMode_Direct: return Deliver(widget, message, param1, param2, false, false);
    case xpMode_UpChain: return SendUpChain(widget, message, param1, param2) != nullptr ? 1 : 0;
    case xpMode_Recursive: return SendRecursive(widget, message, param1, param2);
    case xpMode_DirectAllCallbacks: return Deliver(widget, message, param1, param2, true, false);
    case xpMode_Once: return Deliver(widget, message, param1, param2, false, true);
    default: return 0;  // an unknown mode reaches nobody
  }
}

// ---- the tree -----------------------------------------------------------------------------------

bool WidgetTree::IsInside(XPWidgetID widget, XPWidgetID ancestor) const {
  for (const WidgetRecord* record = Live(widget); record != nullptr; record = Live(record->parent)) {
    if (widget == ancestor) return true;
    widget = record->parent;
  }
  return false;
}

void WidgetTree::PlaceWithin(XPWidgetID sub, XPWidgetID container) {
  WidgetRecord* record = Live(sub);
  if (record == nullptr || sub == container) return;
  if (container != nullptr && (Live(container) == nullptr || IsInside(container, sub))) return;
  Detach(sub);
  if (container == nullptr) return;
  Live(container)->children.push_back(sub);
  Live(sub)->parent = container;
  Deliver(container, xpMsg_AcceptChild, reinterpret_cast<std::intptr_t>(sub), 0, false, false);
  Deliver(sub, xpMsg_AcceptParent, reinterpret_cast<std::intptr_t>(container), 0, false, false);
}

int WidgetTree::CountChildren(XPWidgetID widget) const {
  const WidgetRecord* record = Live(widget);
  return record != nullptr ? static_cast<int>(record->children.size()) : 0;
}

XPWidgetID WidgetTree::NthChild(XPWidgetID widget, int index) const {
  const WidgetRecord* record = Live(widget);
  if (record == nullptr || index < 0 || index >= static_cast<int>(record->children.size())) {
    return nullptr;
  }
  return record->children[static_cast<std::size_t>(index)];
}

XPWidgetID WidgetTree::Parent(XPWidgetID widget) const {
  const WidgetRecord* record = Live(widget);
  return record != nullptr ? record->parent : nullptr;
}

XPWidgetID WidgetTree::FindRoot(XPWidgetID widget) const {
  const WidgetRecord* record = Live(widget);
  while (record != nullptr && record->parent != nullptr) {
    widget = record->parent;
    record = Live(widget);
  }
  return record != nullptr && record->isRoot ? widget : nullptr;
}

void WidgetTree::BringToFront(XPWidgetID widget) {
  const XPWidgetID root = FindRoot(widget);
  if (root == nullptr) return;
  Erase(roots_, root);
  roots_.push_back(root);
}

bool WidgetTree::IsInFront(XPWidgetID widget) const {
  const XPWidgetID root = FindRoot(widget);
  return root != nullptr && !roots_.empty() && roots_.back() == root;
}

// ---- look and contents --------------------------------------------------------------------------

void WidgetTree::SetVisible(XPWidgetID widget, bool visible) {
  WidgetRecord* record = Live(widget);
  if (record == nullptr || record->visible == visible) return;
  record->visible = visible;
  SendUpChain(widget, visible ? xpMsg_Shown : xpMsg_Hidden, reinterpret_cast<std::intptr_t>(widget),
              0);
}

bool WidgetTree::IsVisible(XPWidgetID widget) const {
  const WidgetRecord* record = Live(widget);
  if (record == nullptr) return false;
  for (; record != nullptr; record = Live(record->parent)) {
    if (!record->visible) return false;
  }
  return true;
}

bool WidgetTree::Geometry(XPWidgetID widget, ScreenRect* out) const {
  const WidgetRecord* record = Live(widget);
  if (record == nullptr) return false;
  *out = record->geometry;
  return true;
}

void WidgetTree::SetGeometry(XPWidgetID widget, const ScreenRect& geometry) {
  WidgetRecord* record = Live(widget);
  if (record == nullptr) return;
  const ScreenRect old = record->geometry;
  record->geometry = geometry;
  XPWidgetGeometryChange_t change{geometry.left - old.left, geometry.top - old.top,
                                  (geometry.right - geometry.left) - (old.right - old.left),
                                  (geometry.top - geometry.bottom) - (old.top - old.bottom)};
  SendUpChain(widget, xpMsg_Reshape, reinterpret_cast<std::intptr_t>(widget),
              reinterpret_cast<std::intptr_t>(&change));
}

void WidgetTree::MoveWithChildren(XPWidgetID widget, int dx, int dy) {
  WidgetRecord* record = Live(widget);
  if (record == nullptr) return;
  const ScreenRect& g = record->geometry;
  SetGeometry(widget, ScreenRect{g.left + dx, g.top + dy, g.right + dx, g.bottom + dy});
  if ((record = Live(widget)) == nullptr) return;
  const std::vector<XPWidgetID> children = record->children;
  for (XPWidgetID child : children) MoveWithChildren(child, dx, dy);
}

XPWidgetID WidgetTree::WidgetAt(XPWidgetID container, int x, int y, bool recursive,
                                bool visibleOnly) const {
  const WidgetRecord* record = Live(container);
  if (record == nullptr || (visibleOnly && !record->visible) || !record->geometry.Contains(x, y)) {
    return nullptr;
  }
  // Front-most child first: later children are drawn over earlier ones.
  for (auto it = record->children.rbegin(); it != record->children.rend(); ++it) {
    const WidgetRecord* child = Live(*it);
    if (child == nullptr || (visibleOnly && !child->visible) || !child->geometry.Contains(x, y)) {
      continue;
    }
    return recursive ? WidgetAt(*it, x, y, true, visibleOnly) : *it;
  }
  return container;
}

void WidgetTree::SetDescriptor(XPWidgetID widget, const char* descriptor) {
  WidgetRecord* record = Live(widget);
  if (record == nullptr) return;
  record->descriptor = descriptor != nullptr ? descriptor : "";
  Deliver(widget, xpMsg_DescriptorChanged, 0, 0, false, false);
}

const std::string* WidgetTree::Descriptor(XPWidgetID widget) const {
  const WidgetRecord* record = Live(widget);
  return record != nullptr ? &record->descriptor : nullptr;
}

void WidgetTree::SetProperty(XPWidgetID widget, int property, std::intptr_t value) {
  WidgetRecord* record = Live(widget);
  if (record == nullptr) return;
  record->properties[property] = value;
  Deliver(widget, xpMsg_PropertyChanged, property, value, false, false);
}

std::intptr_t WidgetTree::Property(XPWidgetID widget, int property, bool* exists) const {
  const WidgetRecord* record = Live(widget);
  const auto it = record != nullptr ? record->properties.find(property)
                                    : std::map<int, std::intptr_t>::const_iterator{};
  const bool found = record != nullptr && it != record->properties.end();
  if (exists != nullptr) *exists = found;
  return found ? it->second : 0;
}

void WidgetTree::AddCallback(XPWidgetID widget, XPWidgetFunc_t callback) {
  WidgetRecord* record = Live(widget);
  if (record != nullptr && callback != nullptr) record->callbacks.push_back(callback);
}

// ---- keyboard -----------------------------------------------------------------------------------

XPWidgetID WidgetTree::SetFocus(XPWidgetID widget) {
  XPWidgetID taker = nullptr;
  // A widget that does not want the keyboard passes it to its parents.
  for (XPWidgetID current = widget; Live(current) != nullptr; current = Live(current)->parent) {
    if (current == focus_ ||
        Deliver(current, xpMsg_KeyTakeFocus, current != widget ? 1 : 0, 0, false, false) != 0) {
      taker = current;
      break;
    }
  }
  const XPWidgetID previous = focus_;
  focus_ = taker;
  if (previous != nullptr && previous != taker) {
    Deliver(previous, xpMsg_KeyLoseFocus, taker != nullptr ? 1 : 0, 0, false, false);
  }
  return taker;
}

void WidgetTree::LoseFocus(XPWidgetID widget) {
  if (focus_ == nullptr || !IsInside(focus_, widget)) return;
  const XPWidgetID previous = focus_;
  focus_ = nullptr;
  Deliver(previous, xpMsg_KeyLoseFocus, 0, 0, false, false);
}

bool WidgetTree::Key(const XPKeyState_t& key) {
  if (Live(focus_) == nullptr) return false;
  XPKeyState_t copy = key;  // handlers get a pointer they may scribble on
  return SendUpChain(focus_, xpMsg_KeyPress, reinterpret_cast<std::intptr_t>(&copy), 0) != nullptr;
}

// ---- mouse --------------------------------------------------------------------------------------

bool WidgetTree::Mouse(int x, int y, int status) {
  if (status != xplm_MouseDown) {  // drag or up: to the widget that took the down, wherever it is
    const XPWidgetID target = mouseCapture_;
    if (Live(target) == nullptr) return false;
    if (status == xplm_MouseUp) mouseCapture_ = nullptr;
    XPMouseState_t state{};
    state.x = x;
    state.y = y;
    Deliver(target, status == xplm_MouseDrag ? xpMsg_MouseDrag : xpMsg_MouseUp,
            reinterpret_cast<std::intptr_t>(&state), 0, false, false);
    return true;
  }
  mouseCapture_ = nullptr;
  // A copy: a handler may open or close windows.
  const std::vector<XPWidgetID> roots = roots_;
  for (auto it = roots.rbegin(); it != roots.rend(); ++it) {
    if (MouseDownIn(*it, x, y)) return true;  // the root's window takes the click
  }
  return false;
}

bool WidgetTree::MouseDownIn(XPWidgetID container, int x, int y) {
  if (!IsVisible(container)) return false;
  const XPWidgetID hit = WidgetAt(container, x, y, true, true);
  if (hit == nullptr) return false;
  BringToFront(container);
  XPMouseState_t state{};
  state.x = x;
  state.y = y;
  mouseCapture_ = SendUpChain(hit, xpMsg_MouseDown, reinterpret_cast<std::intptr_t>(&state), 0);
  return true;
}

// ---- drawing ------------------------------------------------------------------------------------

void WidgetTree::DrawAll(DrawRecorder& recorder, std::vector<DisplayItem>& out) {
  const std::vector<XPWidgetID> roots = roots_;
  for (XPWidgetID root : roots) DrawWidget(root, 0, recorder, out);
}

void WidgetTree::DrawWidget(XPWidgetID widget, int depth, DrawRecorder& recorder,
                            std::vector<DisplayItem>& out) {
  const WidgetRecord* record = Live(widget);
  if (record == nullptr || !record->visible) return;
  DisplayItem item;
  item.kind = DisplayItemKind::Widget;
  item.handle = widget;
  item.depth = depth;
  item.geometry = record->geometry;
  item.widgetClass = record->widgetClass;
  item.custom = record->custom;
  item.descriptor = record->descriptor;
  item.properties = record->properties;
  out.push_back(std::move(item));
  const std::size_t index = out.size() - 1;
  // Paint is the bare message: a widget that takes it draws itself and its children. The others
  // get Draw and then their children are drawn over them.
  recorder.Begin(&out[index]);
  const bool painted = Deliver(widget, xpMsg_Paint, 0, 0, false, false) != 0;
  if (!painted) Deliver(widget, xpMsg_Draw, 0, 0, false, false);
  recorder.End();
  if (painted || (record = Live(widget)) == nullptr) return;
  const std::vector<XPWidgetID> children = record->children;
  for (XPWidgetID child : children) DrawWidget(child, depth + 1, recorder, out);
}

}  // namespace sim
