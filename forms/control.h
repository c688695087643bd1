// The kinds of control that a window is made of: plain records that tell their subscribers when something changed.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace discwright::forms {

class Control;
class Form;

// Whether two control or window names are one: letter case does not matter in them.
bool SameName(std::string_view a, std::string_view b);

// What a subscriber hears: a property got a new value, or the control asks to be drawn at once.
enum class Change { kProperty, kRepaint };
using Subscriber = std::function<void(Control& control, Change change)>;

// A value of a control; assigning a different one notifies the control's subscribers.
template <typename T>
class Property {
 public:
  Property(Control& owner, T value) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  Property& operator=(T value);

  const T& get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads like the value it is

 private:
  Control& owner_;
  T value_;
};

using TextProperty = Property<std::string>;

class Control {
 public:
  // `container` is the form, or the frame on which the control stands.
  Control(Control& container, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Control* container() const { return container_; }  // null for a form
  Form& form() const { return *form_; }
  int index() const { return index_; }  // place in its control array; -1 outside one

  void Subscribe(Subscriber subscriber) { subscribers_.push_back(std::move(subscriber)); }
  void Notify(Change change);
  void Refresh() { Notify(Change::kRepaint); }

  Property<bool> visible{*this, true};
  Property<bool> enabled{*this, true};

 protected:
  Control(Form& self, std::string name, int);
  friend class Form;
  template <typename T, std::size_t N>
  friend class ControlArray;

 private:
  std::string name_;
  Control* container_ = nullptr;
  Form* form_ = nullptr;
  int index_ = -1;
  std::vector<Subscriber> subscribers_;
};

template <typename T>
Property<T>& Property<T>::operator=(T value) {
  if (value_ == value) return *this;
  value_ = std::move(value);
  owner_.Notify(Change::kProperty);
  return *this;
}

// A window. Knows all its controls in the order of their declaration; is hidden until somebody shows it.
class Form : public Control {
 public:
  Form(std::string name, std::string caption);

  const std::vector<Control*>& controls() const { return controls_; }
  // The first control of that name, letter case ignored (in a control array: the one of that index); null when none.
  Control* Find(std::string_view name, int index = -1) const;
  // Hears the changes of every control of the form.
  void SubscribeToAll(Subscriber subscriber) { all_subscribers_.push_back(std::move(subscriber)); }

  TextProperty caption;
  Property<bool> busy{*this, false};  // the mouse pointer is an hourglass
  void* window = nullptr;             // the handle of the window that shows the form; null while none does
  bool loaded = false;                // what the window does when it is loaded has been done; it is done once per run

 private:
  friend class Control;
  std::vector<Control*> controls_;
  std::vector<Subscriber> all_subscribers_;
};

class Captioned : public Control {
 public:
  Captioned(Control& container, std::string name, std::string caption_text)
      : Control(container, std::move(name)), caption(*this, std::move(caption_text)) {}
  TextProperty caption;
};

class Frame : public Captioned {
 public:
  Frame(Control& container, std::string name, std::string caption_text = "")
      : Captioned(container, std::move(name), std::move(caption_text)) {}
};

class Label : public Captioned {
 public:
  Label(Control& container, std::string name, std::string caption_text = "")
      : Captioned(container, std::move(name), std::move(caption_text)) {}
  Property<bool> bold{*this, false};
  Property<int> fore_color{*this, 0};  // red + 256 x green + 65536 x blue
  bool symbol_font = false;            // its characters are glyphs of a symbol font
  bool link = false;                   // opens a web address when clicked
};

class CommandButton : public Captioned {
 public:
  using Captioned::Captioned;
  std::function<void()> click;  // what the program does on a click; bound by the room that owns the logic
};

class CheckBox : public Captioned {
 public:
  CheckBox(Control& container, std::string name, std::string caption_text, int initial = 0)
      : Captioned(container, std::move(name), std::move(caption_text)), value(*this, initial) {}
  bool checked() const { return value != 0; }
  Property<int> value;  // 0 clear, 1 checked, 2 greyed
};

class OptionButton : public Captioned {
 public:
  OptionButton(Control& container, std::string name, std::string caption_text, bool initial = false)
      : Captioned(container, std::move(name), std::move(caption_text)), value(*this, initial) {}
  Property<bool> value;
};

class TextBox : public Control {
 public:
  TextBox(Control& container, std::string name, std::string initial = "")
      : Control(container, std::move(name)), text(*this, std::move(initial)) {}
  TextProperty text;
  bool read_only = false;
  bool multi_line = false;
  bool password = false;
};

class ProgressBar : public Control {
 public:
  using Control::Control;
  Property<std::int64_t> min{*this, 0};
  Property<std::int64_t> max{*this, 100};
  Property<std::int64_t> value{*this, 0};
};

class Picture : public Control {
 public:
  using Control::Control;
};

// The common open/save dialog of a form.
class FileDialog : public Control {
 public:
  using Control::Control;
  std::string title;
  std::string filter;
  std::string file_name;
};

// Controls of one kind and one name, told apart by their index from 0.
template <typename T, std::size_t N>
class ControlArray {
 public:
  ControlArray(Control& container, const std::string& name)
      : ControlArray(container, name, std::make_index_sequence<N>()) {}
  // One caption per control.
  ControlArray(Control& container, const std::string& name, const std::array<const char*, N>& captions)
      : ControlArray(container, name, captions, std::make_index_sequence<N>()) {}

  T& operator[](std::size_t index) { return items_[index]; }
  const T& operator[](std::size_t index) const { return items_[index]; }
  static constexpr std::size_t size() { return N; }
  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }

 private:
  template <std::size_t... I>
  ControlArray(Control& container, const std::string& name, std::index_sequence<I...>)
      : items_{((void)I, T(container, name))...} {
    Number();
  }
  template <std::size_t... I>
  ControlArray(Control& container, const std::string& name, const std::array<const char*, N>& captions,
               std::index_sequence<I...>)
      : items_{T(container, name, captions[I])...} {
    Number();
  }
  void Number() {
    for (std::size_t i = 0; i < N; ++i) items_[i].index_ = static_cast<int>(i);
  }

  std::array<T, N> items_;
};

}  // namespace discwright::forms
