// XPWidgets.h: the widget library's calls, acting on the current simulator's widget tree.
#include <XPWidgets.h>

#include <cstring>

#include "host/SdkHost.h"
#include "host/WidgetClasses.h"

using sim::SdkHost;

namespace {

XPWidgetID CreateWidget(int left, int top, int right, int bottom, int visible,
                        const char* descriptor, int isRoot, XPWidgetID container, int widgetClass,
                        bool custom, XPWidgetFunc_t function) {
  sim::WidgetParams params;
  params.geometry = sim::ScreenRect{left, top, right, bottom};
  params.visible = visible != 0;
  params.descriptor = descriptor;
  params.isRoot = isRoot != 0;
  params.container = container;
  params.widgetClass = widgetClass;
  params.custom = custom;
  params.function = function;
  return SdkHost().widgets.Create(params);
}

}  // namespace

XPWidgetID XPCreateWidget(int inLeft, int inTop, int inRight, int inBottom, int inVisible,
                          const char* inDescriptor, int inIsRoot, XPWidgetID inContainer,
                          XPWidgetClass inClass) {
  return CreateWidget(inLeft, inTop, inRight, inBottom, inVisible, inDescriptor, inIsRoot,
                      inContainer, inClass, false, sim::StandardClassFunction(inClass));
}

XPWidgetID XPCreateCustomWidget(int inLeft, int inTop, int inRight, int inBottom, int inVisible,
                                const char* inDescriptor, int inIsRoot, XPWidgetID inContainer,
                                XPWidgetFunc_t inCallback) {
  return CreateWidget(inLeft, inTop, inRight, inBottom, inVisible, inDescriptor, inIsRoot,
                      inContainer, xpWidgetClass_None, true, inCallback);
}

void XPDestroyWidget(XPWidgetID inWidget, int inDestroyChildren) {
  SdkHost().widgets.Destroy(inWidget, inDestroyChildren != 0);
}

int XPSendMessageToWidget(XPWidgetID inWidget, XPWidgetMessage inMessage, XPDispatchMode inMode,
                          intptr_t inParam1, intptr_t inParam2) {
  return SdkHost().widgets.Send(inWidget, inMessage, inMode, inParam1, inParam2);
}

void XPPlaceWidgetWithin(XPWidgetID inSubWidget, XPWidgetID inContainer) {
  SdkHost().widgets.PlaceWithin(inSubWidget, inContainer);
}

int XPCountChildWidgets(XPWidgetID inWidget) { return SdkHost().widgets.CountChildren(inWidget); }

XPWidgetID XPGetNthChildWidget(XPWidgetID inWidget, int inIndex) {
  return SdkHost().widgets.NthChild(inWidget, inIndex);
}

XPWidgetID XPGetParentWidget(XPWidgetID inWidget) { return SdkHost().widgets.Parent(inWidget); }

void XPShowWidget(XPWidgetID inWidget) { SdkHost().widgets.SetVisible(inWidget, true); }

void XPHideWidget(XPWidgetID inWidget) { SdkHost().widgets.SetVisible(inWidget, false); }

int XPIsWidgetVisible(XPWidgetID inWidget) { return SdkHost().widgets.IsVisible(inWidget) ? 1 : 0; }

XPWidgetID XPFindRootWidget(XPWidgetID inWidget) { return SdkHost().widgets.FindRoot(inWidget); }

void XPBringRootWidgetToFront(XPWidgetID inWidget) { SdkHost().widgets.BringToFront(inWidget); }

int XPIsWidgetInFront(XPWidgetID inWidget) { return SdkHost().widgets.IsInFront(inWidget) ? 1 : 0; }

void XPGetWidgetGeometry(XPWidgetID inWidget, int* outLeft, int* outTop, int* outRight,
                         int* outBottom) {
  sim::ScreenRect g;
  if (!SdkHost().widgets.Geometry(inWidget, &g)) return;
  if (outLeft != nullptr) *outLeft = g.left;
  if (outTop != nullptr) *outTop = g.top;
  if (outRight != nullptr) *outRight = g.right;
  if (outBottom != nullptr) *outBottom = g.bottom;
}

void XPSetWidgetGeometry(XPWidgetID inWidget, int inLeft, int inTop, int inRight, int inBottom) {
  SdkHost().widgets.SetGeometry(inWidget, sim::ScreenRect{inLeft, inTop, inRight, inBottom});
}

XPWidgetID XPGetWidgetForLocation(XPWidgetID inContainer, int inXOffset, int inYOffset,
                                  int inRecursive, int inVisibleOnly) {
  return SdkHost().widgets.WidgetAt(inContainer, inXOffset, inYOffset, inRecursive != 0,
                                    inVisibleOnly != 0);
}

void XPSetWidgetDescriptor(XPWidgetID inWidget, const char* inDescriptor) {
  SdkHost().widgets.SetDescriptor(inWidget, inDescriptor);
}

// The full length whatever the buffer; the copy is strncpy's, so a short buffer gets no NUL.
int XPGetWidgetDescriptor(XPWidgetID inWidget, char* outDescriptor, int inMaxDescLength) {
  const std::string* text = SdkHost().widgets.Descriptor(inWidget);
  if (text == nullptr) return 0;
  if (outDescriptor != nullptr && inMaxDescLength > 0) {
    std::strncpy(outDescriptor, text->c_str(), static_cast<std::size_t>(inMaxDescLength));
  }
  return static_cast<int>(text->size());
}

void XPSetWidgetProperty(XPWidgetID inWidget, XPWidgetPropertyID inProperty, intptr_t inValue) {
  SdkHost().widgets.SetProperty(inWidget, inProperty, inValue);
}

intptr_t XPGetWidgetProperty(XPWidgetID inWidget, XPWidgetPropertyID inProperty, int* inExists) {
  bool exists = false;
  const intptr_t value = SdkHost().widgets.Property(inWidget, inProperty, &exists);
  if (inExists != nullptr) *inExists = exists ? 1 : 0;
  return value;
}

// One keyboard: a widget that takes it takes it from any plug-in window.
XPWidgetID XPSetKeyboardFocus(XPWidgetID inWidget) {
  sim::SimHostImpl& host = SdkHost();
  const XPWidgetID taker = host.widgets.SetFocus(inWidget);
  if (taker != nullptr) host.windows.TakeKeyboardFocus(nullptr);
  return taker;
}

void XPLoseKeyboardFocus(XPWidgetID inWidget) { SdkHost().widgets.LoseFocus(inWidget); }

XPWidgetID XPGetWidgetWithFocus(void) { return SdkHost().widgets.Focus(); }

void XPAddWidgetCallback(XPWidgetID inWidget, XPWidgetFunc_t inNewCallback) {
  SdkHost().widgets.AddCallback(inWidget, inNewCallback);
}

XPWidgetFunc_t XPGetWidgetClassFunc(XPWidgetClass inWidgetClass) {
  return sim::StandardClassFunction(inWidgetClass);
}
