#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/color.h"
#include "platform/runtime_failure.h"

namespace marlex {

class Form;
class PropertyBase;

/// What all controls of a window have in common. A control belongs to one form for its whole life
/// and is known there by its name and, in an array, its index. Lengths are in twips, 1440 to the
/// inch.
class Control {
 public:
  static constexpr int kNoIndex = -1;

  Control(Form& form, std::string name, int index = kNoIndex);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// Name of the control's kind, such as "Label"; translation goes by it.
  virtual const char* Kind() const = 0;

  /// Name of the widget that shows the control: the name, and for an element of an array "_" and
  /// its index.
  std::string ObjectName() const;

  /// Called after each change of a property; tells the watcher.
  virtual void Changed();

  void KeepDesign();             // the present values become those of the design
  virtual void ResetToDesign();  // back to the design's values, raising no event

  Form& Owner;
  const std::string Name;
  const int Index;

  /// Set by the view that shows the control.
  std::function<void()> Watcher;

  /// Works behind the window; no widget shows it.
  bool NeverShown = false;

 private:
  friend class PropertyBase;
  std::vector<PropertyBase*> Properties;
};

class PropertyBase {
 public:
  explicit PropertyBase(Control& owner) : Owner(owner) { owner.Properties.push_back(this); }
  virtual ~PropertyBase() = default;
  PropertyBase(const PropertyBase&) = delete;
  PropertyBase& operator=(const PropertyBase&) = delete;

  virtual void KeepDesign() = 0;
  virtual void ResetToDesign() = 0;

 protected:
  Control& Owner;
};

/// A value of a control. Setting another value tells the control's watcher and raises the control's
/// event, whether code or the operator's hand sets it; setting an equal value does nothing.
template <class T>
class Property : public PropertyBase {
 public:
  Property(Control& owner, T value, std::function<void()>* event = nullptr)
      : PropertyBase(owner), Value(std::move(value)), Design(Value), Event(event) {}

  operator const T&() const { return Value; }
  const T& Get() const { return Value; }

  Property& operator=(const T& value) {
    Set(value);
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.Get(); }

  /// Lets the next setting raise the event even where it sets the value that stands here.
  void Forget() { Known = false; }
  bool Forgotten() const { return !Known; }

  void KeepDesign() override { Design = Value; }
  void ResetToDesign() override { Value = Design; }

 protected:
  void Set(const T& value) {
    if (Known && value == Value) return;
    Known = true;
    Value = value;
    Owner.Changed();
    if (Event && *Event) (*Event)();
  }

 private:
  T Value;
  T Design;
  bool Known = true;
  std::function<void()>* Event;
};

/// An array of controls of one name, with the indices `first` to `last` or those of a list.
template <class T>
class ControlArray {
 public:
  ControlArray(Form& form, const std::string& name, int first, int last) {
    for (int index = first; index <= last; ++index) {
      Elements.push_back(std::make_unique<T>(form, name, index));
    }
  }
  ControlArray(Form& form, const std::string& name, std::initializer_list<int> indices) {
    for (const int index : indices) Elements.push_back(std::make_unique<T>(form, name, index));
  }

  T& operator[](int index) {
    for (const auto& element : Elements) {
      if (element->Index == index) return *element;
    }
    throw RuntimeFailure("Control array index " + std::to_string(index) + " out of range");
  }

  auto begin() { return Elements.begin(); }
  auto end() { return Elements.end(); }

 private:
  std::vector<std::unique_ptr<T>> Elements;
};

}  // namespace marlex
