// Who is told of a form's changes. Listening and ending it are safe at any time, also while a change is being told.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace discwright::forms {

class Control;

// What of a control is new.
enum class Facet {
  kText,      // the caption, or the text of a field
  kValue,     // of a check box, an option button or a bar; of a form: the mouse pointer
  kVisible,   //
  kEnabled,   //
  kRange,     // of a bar
  kEmphasis,  // bold, colour
  kRepaint,   // nothing is new, but what has changed before is to be drawn at once
};

// A face that has told the program of the user's doing need not show it again: it stands in its widget already.
enum class By { kProgram, kUser };

using Listener = std::function<void(Control& control, Facet facet, By by)>;

// A listener is told until its Subscription ends. Movable; it may outlive the form.
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
  // Tells those that listened when the change was made; who begins to listen meanwhile hears of the next one.
  void Tell(Control& control, Facet facet, By by);
  std::size_t count() const;

 private:
  std::shared_ptr<Subscription::List> list_;
};

}  // namespace discwright::forms
