// The kinds of control that a window is made of: plain records that tell their listeners what changed.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/listeners.h"

namespace discwright::forms {

class Form;

// Whether two control or window names are one: letter case does not matter in them.
bool SameName(std::string_view a, std::string_view b);

// A value of a control. Giving it a different one tells the listeners; a plain assignment is the program's doing.
template <typename T>
class Property {
 public:
  Property(Control& owner, Facet facet, T value) : owner_(owner), facet_(facet), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  Property& operator=(T value) {
    Set(std::move(value), By::kProgram);
    return *this;
  }
  void Set(T value, By by);

  const T& get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads like the value it is

 private:
  Control& owner_;
  Facet facet_;
  T value_;
};

using TextProperty = Property<std::string>;

// In place of a letter: the caption marks the letter itself, by an ampersand before it.
inline constexpr char kKeyInCaption = '&';

// How a control stands on its page. Faces make coordinates of it; the records know none.
struct Placing {
  char key = 0;         // the access key, a letter of the caption; a label's key leads to the field that it names
  bool beside = false;  // in the row of the control declared before it; otherwise it begins a row
  bool heads = false;   // a check box that is the title of the frame on which it stands
};

class Control {
 public:
  // `container` is the form, or the frame on which the control stands.
  Control(Control& container, std::string name, Placing placing = {});
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Control* container() const { return container_; }  // null for a form
  Form& form() const { return *form_; }
  int index() const { return index_; }  // place in its control array; -1 outside one
  const Placing& placing() const { return placing_; }

  // The listener hears this control alone; see also Form::Listen.
  [[nodiscard]] Subscription Listen(Listener listener);
  void Notify(Facet facet, By by);
  void Refresh() { Notify(Facet::kRepaint, By::kProgram); }

  Property<bool> visible{*this, Facet::kVisible, true};
  Property<bool> enabled{*this, Facet::kEnabled, true};

 protected:
  Control(Form& self, std::string name, int);
  friend class Form;
  template <typename T, std::size_t N>
  friend class ControlArray;

 private:
  // Called before the listeners are told, for what a new value changes in other controls.
  virtual void Changed(Facet, By) {}

  std::string name_;
  Control* container_ = nullptr;
  Form* form_ = nullptr;
  int index_ = -1;
  Placing placing_;
};

template <typename T>
void Property<T>::Set(T value, By by) {
  if (value_ == value) return;
  value_ = std::move(value);
  owner_.Notify(facet_, by);
}

class CommandButton;

// A window. Knows all its controls in the order of their declaration, which is the order in which they are read and
// reached with the Tab key. It is hidden until somebody shows it; while a dialog runs over it, it is disabled.
class Form : public Control {
 public:
  Form(std::string name, std::string caption);

  const std::vector<Control*>& controls() const { return controls_; }
  // The first control of that name, letter case ignored (in a control array: the one of that index); null when none.
  Control* Find(std::string_view name, int index = -1) const;
  // The listener hears the form itself and every control of it.
  [[nodiscard]] Subscription Listen(Listener listener) { return listeners_.Add(nullptr, std::move(listener)); }
  std::size_t listener_count() const { return listeners_.count(); }

  TextProperty caption;
  Property<bool> busy{*this, Facet::kValue, false};  // the mouse pointer is an hourglass
  void* window = nullptr;                            // the handle of the window that shows the form; null: none does
  bool loaded = false;  // what the window does when it is loaded has been done; it is done once per run

  // Pressed by Enter and by Esc; null: no such button. Of several default buttons the visible one is pressed.
  std::vector<CommandButton*> default_buttons;
  CommandButton* cancel_button = nullptr;
  std::function<void()> asked_to_close;  // what the program does when the user closes the window

 private:
  friend class Control;
  std::vector<Control*> controls_;
  Listeners listeners_;
};

class Captioned : public Control {
 public:
  Captioned(Control& container, std::string name, std::string caption_text, Placing placing = {})
      : Control(container, std::move(name), placing), caption(*this, Facet::kText, std::move(caption_text)) {}
  TextProperty caption;
};

class Frame : public Captioned {
 public:
  Frame(Control& container, std::string name, std::string caption_text = "", Placing placing = {})
      : Captioned(container, std::move(name), std::move(caption_text), placing) {}
};

class Label : public Captioned {
 public:
  Label(Control& container, std::string name, std::string caption_text = "", Placing placing = {})
      : Captioned(container, std::move(name), std::move(caption_text), placing) {}
  Property<bool> bold{*this, Facet::kEmphasis, false};
  Property<int> fore_color{*this, Facet::kEmphasis, 0};  // red + 256 x green + 65536 x blue
  bool symbol_font = false;                              // its characters are glyphs of a symbol font
  bool heading = false;                                  // the title line of a page
};

// A line that opens the web address that it shows.
class Link : public Label {
 public:
  Link(Control& container, std::string name, Label& above, std::string address)
      : Label(container, std::move(name), std::move(address)), label(&above) {}
  Label* label;                 // says where the link leads
  std::function<void()> click;  // see CommandButton::click
};

class CommandButton : public Captioned {
 public:
  using Captioned::Captioned;
  std::function<void()> click;  // what the program does on a click; bound by the room that owns the logic
};

class CheckBox : public Captioned {
 public:
  CheckBox(Control& container, std::string name, std::string caption_text, Placing placing = {}, int initial = 0)
      : Captioned(container, std::move(name), std::move(caption_text), placing), value(*this, Facet::kValue, initial) {}
  bool checked() const { return value != 0; }
  Property<int> value;  // 0 clear, 1 checked, 2 greyed
};

// One of several: choosing it, whoever does, clears the other option buttons on the same frame or form.
class OptionButton : public Captioned {
 public:
  OptionButton(Control& container, std::string name, std::string caption_text, Placing placing = {},
               bool initial = false)
      : Captioned(container, std::move(name), std::move(caption_text), placing), value(*this, Facet::kValue, initial) {}
  Property<bool> value;

 private:
  void Changed(Facet facet, By by) override;
};

class TextBox : public Control {
 public:
  // `above` is the label that names the field, whether it stands above or beside it.
  TextBox(Control& container, std::string name, Captioned& above, std::string initial = "", Placing placing = {})
      : Control(container, std::move(name), placing), label(&above), text(*this, Facet::kText, std::move(initial)) {}
  Captioned* label;
  TextProperty text;
  bool read_only = false;
  bool multi_line = false;
  bool password = false;
};

class ProgressBar : public Control {
 public:
  using Control::Control;
  Property<std::int64_t> min{*this, Facet::kRange, 0};
  Property<std::int64_t> max{*this, Facet::kRange, 100};
  Property<std::int64_t> value{*this, Facet::kValue, 0};
};

class Picture : public Control {
 public:
  using Control::Control;
};

// The common open/save dialog of a form. The name that was chosen last is the one it opens with next.
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

  T& operator[](std::size_t index) { return items_[index]; }
  const T& operator[](std::size_t index) const { return items_[index]; }
  static constexpr std::size_t size() { return N; }
  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }

 private:
  template <std::size_t... I>
  ControlArray(Control& container, const std::string& name, std::index_sequence<I...>)
      : items_{((void)I, T(container, name))...} {
    for (std::size_t i = 0; i < N; ++i) items_[i].index_ = static_cast<int>(i);
  }

  std::array<T, N> items_;
};

}  // namespace discwright::forms
