// The container of one model's module objects: position = unit number. The manager sees every model
// through the abstract ModuleContainer; ModuleVector<T> is the one implementation. Each module is
// made in place and stays at its address until it is destroyed: read threads decode against it and
// its bindings point into it, so a module is never copied or moved.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <vector>

#include "modules/GF_Abstract_Module.h"
#include "hid/ModuleTypes.h"

namespace drav {

class ModuleContainer {
 public:
  virtual ~ModuleContainer();

  // Surplus objects at the end are destroyed; missing ones are made afresh at the end; the others
  // keep their state and their addresses.
  virtual void Resize(std::int32_t count) = 0;
  virtual std::int32_t Size() const = 0;
  // nullptr for an index outside 0..Size()-1.
  virtual GF_Abstract_Module* At(std::int32_t index) = 0;
  // Input thread: the unit's decoder (the model's own DecodeInput where it has one, else
  // GetButton). -1 also for an index outside the container.
  virtual std::int32_t Decode(std::int32_t index, const void* record, std::int32_t* value) = 0;

 protected:
  ModuleContainer() = default;
  ModuleContainer(const ModuleContainer&) = delete;
  ModuleContainer& operator=(const ModuleContainer&) = delete;
};

// A model whose input records GetButton cannot decode (the GF-DIO) offers a non-virtual decoder of
// its own instead.
template <class T>
concept HasOwnInputDecoder = requires(T& module, const void* record, std::int32_t* value) {
  { module.DecodeInput(record, value) } -> std::convertible_to<std::int32_t>;
};

template <class T>
class ModuleVector final : public ModuleContainer {
  static_assert(std::derived_from<T, GF_Abstract_Module>);
  static_assert(!std::copy_constructible<T> && !std::move_constructible<T>, "a module never leaves its address");

 public:
  void Resize(std::int32_t count) override {
    const std::size_t wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
    // Room for every unit a model can have comes with the first, so that a unit joining mid-flight
    // does not move even the pointers.
    if (wanted > 0) modules_.reserve(static_cast<std::size_t>(kMaxUnitsPerModel));
    if (wanted < modules_.size()) modules_.resize(wanted);
    while (modules_.size() < wanted) modules_.push_back(std::make_unique<T>());
  }

  std::int32_t Size() const override { return static_cast<std::int32_t>(modules_.size()); }

  GF_Abstract_Module* At(std::int32_t index) override { return Find(index); }

  std::int32_t Decode(std::int32_t index, const void* record, std::int32_t* value) override {
    T* module = Find(index);
    if (module == nullptr) return -1;
    if constexpr (HasOwnInputDecoder<T>) {
      return module->DecodeInput(record, value);
    } else {
      return module->GetButton(record, value);
    }
  }

 private:
  T* Find(std::int32_t index) {
    if (index < 0 || index >= Size()) return nullptr;
    return modules_[static_cast<std::size_t>(index)].get();
  }

  std::vector<std::unique_ptr<T>> modules_;
};

// The factory a model table entry names: MakeModuleVector<GFP8_Module>.
template <class T>
std::unique_ptr<ModuleContainer> MakeModuleVector() {
  return std::make_unique<ModuleVector<T>>();
}

}  // namespace drav
