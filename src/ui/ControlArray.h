// Several controls that work alike under one name, told apart by an index from 0. Elements can
// be loaded and unloaded while the window lives.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "ui/Control.h"

namespace tintbench::ui {

template <typename Kind>
class ControlArray {
 public:
  // What holds the element of an index.
  using Holder = std::function<Container&(int)>;

  // Makes the elements 0 to `count` - 1, all in `parent`.
  ControlArray(Container& parent, std::string name, int count)
      : ControlArray([&parent](int) -> Container& { return parent; }, std::move(name), count) {}

  // The same, each in a holder of its own.
  ControlArray(Holder holder, std::string name, int count)
      : holder_(std::move(holder)), name_(std::move(name)) {
    for (int index = 0; index < count; ++index) Load(index);
  }

  // The element; asking for one that isn't loaded is a programming fault.
  Kind& operator()(int index) { return *elements_.at(index); }
  const Kind& operator()(int index) const { return *elements_.at(index); }

  const std::string& Name() const { return name_; }
  bool Has(int index) const { return elements_.contains(index); }
  int Count() const { return static_cast<int>(elements_.size()); }

  // Adds an element, prepared like the others. One that is there already is given as it is.
  Kind& Load(int index) {
    std::unique_ptr<Kind>& element = elements_[index];
    if (!element) {
      element = std::make_unique<Kind>(holder_(index), name_, index);
      if (prepare_) prepare_(*element, index);
    }
    return *element;
  }

  void Unload(int index) { elements_.erase(index); }

  // Calls `prepare(element, index)` for every element now and for every one loaded later: the
  // place to set captions and handlers.
  void Prepare(std::function<void(Kind&, int)> prepare) {
    prepare_ = std::move(prepare);
    for (const auto& [index, element] : elements_) prepare_(*element, index);
  }

 private:
  Holder holder_;
  std::string name_;
  std::map<int, std::unique_ptr<Kind>> elements_;
  std::function<void(Kind&, int)> prepare_;
};

}  // namespace tintbench::ui
