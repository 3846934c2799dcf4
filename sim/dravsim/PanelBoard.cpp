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

std::string VirtualUnitPath(std::uint16_t vendorId, std::uint16_t productId, std::string_view name) {
  char prefix[64];
  std::snprintf(prefix, sizeof prefix, "\\\\?\\HID#VID_%04X&PID_%04X#DRAVSIM_", vendorId, productId);
  std::string path = prefix;
  for (const char c : name) path += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return path;
}

const drav::PanelModel* FindPanelModelByName(std::string_view name) {
  for (const drav::PanelModel& model : drav::PanelModels()) {
    if (name == model.name) return &model;
  }
  return nullptr;
}

}  // namespace dravsim
