#include "dravsim/PanelBoard.h"

#include <cctype>
#include <cstdio>
#include <utility>

namespace dravsim {

PanelUnit* PanelBoard::Find(std::string_view name) {
  for (PanelUnit& unit : units_) {
    if (unit.name == name) return &unit;
  }
  return nullptr;
}

PanelUnit& PanelBoard::Add(PanelUnit unit) { return units_.emplace_back(std::move(unit)); }

bool PanelBoard::AnyWritesFail() const {
  for (const PanelUnit& unit : units_) {
    if (unit.writesFail) return true;
  }
  return false;
}

void FoldIntoFace(std::vector<drav::VirtualSentReport>& face, const std::vector<drav::VirtualSentReport>& sent) {
  face.insert(face.end(), sent.begin(), sent.end());
  const auto sameSlot = [](const drav::VirtualSentReport& a, const drav::VirtualSentReport& b) {
    const auto byteAt = [](const drav::VirtualSentReport& r, std::size_t i) { return i < r.bytes.size() ? r.bytes[i] : -1; };
    return a.kind == b.kind && a.bytes.size() == b.bytes.size() && byteAt(a, 0) == byteAt(b, 0) &&
           byteAt(a, 1) == byteAt(b, 1);
  };
  std::vector<drav::VirtualSentReport> kept;
  for (std::size_t i = 0; i < face.size(); ++i) {
    bool overtaken = false;
    for (std::size_t later = i + 1; later < face.size() && !overtaken; ++later) {
      overtaken = sameSlot(face[i], face[later]);
    }
    if (!overtaken) kept.push_back(std::move(face[i]));
  }
  face = std::move(kept);
}

std::string VirtualUnitPath(std::uint16_t vendorId, std::uint16_t productId, std::string_view name) {
  char prefix[64];
  std::snprintf(prefix, sizeof prefix, "\\\\?\\HID#VID_%04X&PID_%04X#DRAVSIM_", vendorId, productId);
  std::string path = prefix;
  for (const char c : name) path += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return path;
}

const drav::PanelModel* FindPanelModelByName(std::string_view name) {
  for (const drav::PanelModel* model : drav::PanelModels()) {
    if (name == model->name) return model;
  }
  return nullptr;
}

namespace {

constexpr std::uint16_t kPanelReportLength = 8;  // output and feature reports of every model
// ... except the radios' sixteen-segment display 1, a 9-byte feature report: a unit that declared 8
// would refuse it, as a real device refuses a report longer than its feature length.
constexpr std::uint16_t kSixteenSegmentFeatureLength = 9;

}  // namespace

std::optional<drav::VirtualUnitSpec> PanelUnitSpec(const drav::PanelModel& model) {
  const InputLayout* layout = FindInputLayout(model.name);
  if (layout == nullptr) return std::nullopt;
  const bool hasSixteenSegmentDisplay = model.moduleType == drav::kModuleGF45 || model.moduleType == drav::kModuleGF46;
  drav::VirtualUnitSpec spec;
  spec.productId = model.productId;
  spec.capabilities = {layout->length, kPanelReportLength,
                       hasSixteenSegmentDisplay ? kSixteenSegmentFeatureLength : kPanelReportLength};
  return spec;
}

}  // namespace dravsim
