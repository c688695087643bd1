// Keeps the listeners of a form. Control::Listen and Form::Listen return a Subscription, which ends the listening when
// it is destroyed. A listener may begin or end subscriptions while it is called.
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
  kValue,     // the value of a check box, an option button or a bar; the mouse pointer of a form
  kVisible,   // whether it is shown or hidden
  kEnabled,   // whether it is enabled or disabled
  kRange,     // the minimum or maximum of a bar
  kEmphasis,  // bold type or colour
  kRepaint,   // nothing has changed; a face should draw earlier changes now
};

// Who made the change. A face ignores changes by its own user, because its widget shows them already.
enum class By { kProgram, kUser };

using Listener = std::function<void(Control& control, Facet facet, By by)>;

// Keeps a listener registered. A subscription can be moved, and may outlive the form.
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

  // `only` limits the listener to one control; null stands for all.
  [[nodiscard]] Subscription Add(const Control* only, Listener listener);
  // Calls every listener that was registered before the call. A listener added during the call hears of later changes
  // only.
  void NotifyAll(Control& control, Facet facet, By by);
  std::size_t count() const;

 private:
  std::shared_ptr<Subscription::List> list_;
};

}  // namespace discwright::forms
