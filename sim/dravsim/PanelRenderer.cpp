#include "dravsim/PanelRenderer.h"

namespace dravsim {
namespace {

// How many lights each model's mask drives, for drawing; the rest of the mask stays unshown.
int LightCount(const PanelUnit& unit) {
  for (const OutputReportRow& row : OutputReportsOf(unit.model->name)) {
    if (row.role == OutputRole::Leds) return 8 * row.digits;
  }
  return 0;
}

std::string Header(const PanelUnit& unit, std::optional<std::int32_t> slot) {
  std::string text = unit.name + " (" + (unit.model ? unit.model->name : "not a panel") + ")";
  if (unit.model) text += slot ? ", unit " + std::to_string(*slot) : ", not open";
  return text + "\n";
}

std::string Displays(const PanelOutputView& view) {
  std::string text;
  for (std::size_t i = 0; i < view.displays.size(); ++i) {
    const auto& shown = view.displays[i];
    text += "  display " + std::to_string(i + 1) + ": " + (shown ? "[" + *shown + "]" : "(dark)") + "\n";
  }
  return text;
}

std::string Colours(const PanelOutputView& view) {
  std::string text;
  for (std::size_t i = 0; i < view.colours.size(); ++i) {
    const auto& colour = view.colours[i];
    if (!colour) continue;
    text += "  light " + std::to_string(i + 1) + ": rgb " + std::to_string(colour->red) + " " +
            std::to_string(colour->green) + " " + std::to_string(colour->blue) + "\n";
  }
  return text;
}

}  // namespace

std::string RenderLights(std::uint32_t mask, int count) {
  std::string lights;
  for (int i = 0; i < count && i < 32; ++i) lights += (mask >> i) & 1u ? '*' : '.';
  return lights;
}

std::string RenderUnit(const PanelUnit& unit, const PanelOutputView& view,
                       std::optional<std::int32_t> slot) {
  std::string text = Header(unit, slot);
  if (unit.model == nullptr) return text;
  text += Displays(view);
  if (view.leds) text += "  lights: " + RenderLights(*view.leds, LightCount(unit)) + "\n";
  if (view.brightness) text += "  brightness: " + std::to_string(*view.brightness) + "\n";
  text += Colours(view);
  return text;
}

}  // namespace dravsim
