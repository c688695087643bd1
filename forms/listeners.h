// Who is told of a form's changes. Listening and ending it are safe at any time, also while a change is being told.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace discwright::forms {

class Control;

// Which property of a control has changed.
enum class Facet {
  kText,      // the caption, or the text of a field
  kValue,     // of a check box, an option button or a bar; of a form: the mouse pointer
  kVisible,   // shown or hidden
  kEnabled,   // can be used or not
  kRange,     // of a bar
  kEmphasis,  // bold, colour
  kRepaint,   // none; the control asks that earlier changes are drawn at once
};

// Who made the change. A face ignores notices of what its own user did, because its widget shows that already.
enum class By { kProgram, kUser };

using Listener = std::function<void(Control& control, Facet facet, By by)>;

// A listener hears of changes until its Subscription ends. A Subscription can be moved, and it may outlive the form.
class Subscription {
 public:
  struct Entry;
  struct List;

  Subscription() = default;
  Subscription(std::shared_ptr<List> list, std::shared_ptr<Entry> entry)
      : list_(std::move(list)), entry_(std::move(entry)) {}
  Subscription(Subscription&& other) noexcept = default;
  Subscription& operator=(Subscription&& other) noexcept;
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() { End(); }

  void End();

 private:
  std::shared_ptr<List> list_;
  std::shared_ptr<Entry> entry_;
};

// The listeners of one form.
class Listeners {
 public:
  Listeners();

  // `only` is the one control that the listener hears; null: all of them.
  [[nodiscard]] Subscription Add(const Control* only, Listener listener);
  // Tells every listener that was there when the change was made. One that begins to listen meanwhile hears of the next
  // change.
  void Tell(Control& control, Facet facet, By by);
  std::size_t count() const;

 private:
  std::shared_ptr<Subscription::List> list_;
};

}  // namespace discwright::forms
