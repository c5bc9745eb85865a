#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/color.h"
#include "controls/control_kind.h"
#include "platform/runtime_failure.h"

namespace marlex {

class Form;
class PropertyBase;

/// What all controls of a window have in common. A control belongs to one form for its whole life,
/// in which it is identified by its name and, in an array, its index. Lengths are in twips, 1440 to
/// the inch.
class Control {
 public:
  static constexpr int kNoIndex = -1;

  Control(Form& form, std::string name, int index = kNoIndex);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// Decides how the control is translated and which widget it is bound to.
  virtual ControlKind Kind() const = 0;

  /// Name of the widget that shows the control: its name, followed by "_" and the index for an
  /// element of an array.
  std::string ObjectName() const;

  /// Called after each change of a property; notifies the watcher.
  virtual void Changed();

  void KeepDesign();             // ends the design: later values leave the design values alone
  virtual void ResetToDesign();  // restores the design values; raises no events

  Form& Owner;
  const std::string Name;
  const int Index;

  /// How often it has changed.
  unsigned Changes = 0;

  /// Called after each change; set by the view that shows the control.
  std::function<void()> Watcher;

  /// Used internally only; no widget shows it.
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

/// A value of a control. Setting a different value notifies the control's watcher and raises the
/// control's event, whether the value comes from code or from the operator. Setting an equal value
/// does nothing. What is set before the form is first loaded is the design value; it stays known
/// when the value changes later, so that a view paints the same whenever it is bound.
template <class T>
class Property : public PropertyBase {
 public:
  Property(Control& owner, T value, std::function<void()>* event = nullptr)
      : PropertyBase(owner), Value(std::move(value)), Design(Value), Event(event) {}

  operator const T&() const { return Value; }
  const T& Get() const { return Value; }
  const T& DesignValue() const { return Design; }

  Property& operator=(const T& value) {
    Set(value);
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.Get(); }

  /// Makes the next assignment raise the event even if it sets an equal value.
  void Forget() { Known = false; }
  bool Forgotten() const { return !Known; }

  void KeepDesign() override { InDesign = false; }
  void ResetToDesign() override { Value = Design; }

 protected:
  void Set(const T& value) {
    if (Known && value == Value) return;
    Known = true;
    Value = value;
    if (InDesign) Design = value;
    Owner.Changed();
    if (Event && *Event) (*Event)();
  }

 private:
  T Value;
  T Design;
  bool InDesign = true;
  bool Known = true;
  std::function<void()>* Event;
};

/// An array of controls with the same name, indexed from `first` to `last` or by a list of indices.
/// An unknown index is a `RuntimeFailure`.
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
