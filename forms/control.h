// Defines the kinds of control that a window is made of. A window of the program is a struct with one member for each
// control; a face shows the members and listens to their changes.
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

// Whether two names of controls or windows are equal. Letter case does not matter.
bool SameName(std::string_view a, std::string_view b);

// A value of a control. A change is reported to the listeners; an assignment with "=" counts as a change by the
// program.
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
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): used like a T

 private:
  Control& owner_;
  Facet facet_;
  T value_;
};

using TextProperty = Property<std::string>;

// A value of Placing::key: the access key is the letter after the ampersand in the caption.
inline constexpr char kKeyInCaption = '&';

// The place of a control on its page, without coordinates. Each face computes its own coordinates from it.
struct Placing {
  char key = 0;         // the access key, a letter of the caption; the key of a label moves the focus to its field
  bool beside = false;  // the control continues the row of the control declared before it
  bool inset = false;   // the row begins further to the right, because it belongs to the check box above it
  bool heads = false;   // the control is a check box in the title of its frame
};

class Control {
 public:
  // `container` is the form or the frame that contains the control.
  Control(Control& container, std::string name, Placing placing = {});
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Control* container() const { return container_; }  // null for a form
  Form& form() const { return *form_; }
  int index() const { return index_; }  // in its ControlArray; -1 outside one
  const Placing& placing() const { return placing_; }

  // `listener` is called for changes of this control only; see also Form::Listen.
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
  // This function is called before the listeners, so that a new value can change other controls.
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

// A window. The order of its controls is that of their declaration, and that of the Tab key. A form is hidden at first.
// It is disabled while a dialog runs over it.
class Form : public Control {
 public:
  Form(std::string name, std::string caption);

  const std::vector<Control*>& controls() const { return controls_; }
  // Returns the first control that has this name, in any letter case, and this index in its ControlArray; -1 stands for
  // any index. Returns null if there is no such control.
  Control* Find(std::string_view name, int index = -1) const;
  // `listener` is called for changes of the form itself and of each of its controls.
  [[nodiscard]] Subscription Listen(Listener listener) { return listeners_.Add(nullptr, std::move(listener)); }
  std::size_t listener_count() const { return listeners_.count(); }

  TextProperty caption;
  Property<bool> busy{*this, Facet::kValue, false};  // the mouse pointer is an hourglass
  void* window = nullptr;                            // handle of the window that shows the form; null without one
  bool loaded = false;                               // the load handler of the window has run; it runs once

  // Enter presses the visible default button. `cancel_button` is null when the form has none.
  std::vector<CommandButton*> default_buttons;
  CommandButton* cancel_button = nullptr;
  CommandButton* help_button = nullptr;   // F1 presses this button; null when the form has no help
  std::function<void()> asked_to_cancel;  // called when the user presses Esc; when empty, Esc presses cancel_button
  std::function<void()> asked_to_close;   // called when the user closes the window

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
  bool symbol_font = false;                              // the caption is shown in a symbol font
  bool heading = false;                                  // the label is the title line of a page
  bool one_line = false;  // the text changes all the time; what does not fit into one line may be left out
};

// A line with a web address. Following it opens the address.
class Link : public Label {
 public:
  Link(Control& container, std::string name, Label& above, std::string address)
      : Label(container, std::move(name), std::move(address)), label(&above) {}
  Label* label;                 // the text above the link
  std::function<void()> click;  // see CommandButton::click
};

class CommandButton : public Captioned {
 public:
  using Captioned::Captioned;
  std::function<void()> click;  // called on a click; empty until the wizard sets it
};

class CheckBox : public Captioned {
 public:
  CheckBox(Control& container, std::string name, std::string caption_text, Placing placing = {}, int initial = 0)
      : Captioned(container, std::move(name), std::move(caption_text), placing), value(*this, Facet::kValue, initial) {}
  bool checked() const { return value != 0; }
  Property<int> value;  // 0 clear, 1 checked, 2 greyed
};

// One of several options. Choosing it clears the other option buttons with the same container.
class OptionButton : public Captioned {
 public:
  OptionButton(Control& container, std::string name, std::string caption_text, Placing placing = {},
               bool initial = false)
      : Captioned(container, std::move(name), std::move(caption_text), placing), value(*this, Facet::kValue, initial) {}
  Property<bool> value;

 private:
  void Changed(Facet facet, By by) override;
};

// What the user can drop onto a field.
enum class DropKind { kNothing, kFolder, kFile };

class TextBox : public Control {
 public:
  // `above` is the label that names the field. It may also stand beside the field.
  TextBox(Control& container, std::string name, Captioned& above, std::string initial = "", Placing placing = {})
      : Control(container, std::move(name), placing), label(&above), text(*this, Facet::kText, std::move(initial)) {}
  Captioned* label;
  TextProperty text;
  bool read_only = false;
  bool multi_line = false;
  bool password = false;
  DropKind drop_kind = DropKind::kNothing;  // a face refuses other things while the user drags them over the field
  std::function<void(const std::string& path)> dropped;  // called when the user drops a path; empty: takes none
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

// The open and save dialog of a form. It opens with the file name that was chosen last.
class FileDialog : public Control {
 public:
  using Control::Control;
  std::string title;
  std::string filter;
  std::string file_name;
};

// N controls of one kind with one name. Their index counts from 0.
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
