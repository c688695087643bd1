// Keeps the list of listeners. When a subscription ends while a listener runs, its entry is only marked: the listener
// may have ended itself, and its function object must not be destroyed while it is running. Sweep() removes marked
// entries later.
#include "forms/listeners.h"

#include <algorithm>

namespace discwright::forms {

struct Subscription::Entry {
  const Control* only;
  Listener listener;
  bool ended = false;
};

struct Subscription::List {
  std::vector<std::shared_ptr<Entry>> entries;
  int notifying = 0;  // nested calls of NotifyAll: a listener may make a further change

  void Sweep() {
    if (notifying > 0) return;
    std::erase_if(entries, [](const std::shared_ptr<Entry>& entry) { return entry->ended; });
  }
};

Subscription& Subscription::operator=(Subscription&& other) noexcept {
  if (this == &other) return *this;
  End();
  list_ = std::move(other.list_);
  entry_ = std::move(other.entry_);
  return *this;
}

void Subscription::End() {
  if (entry_ == nullptr) return;
  entry_->ended = true;
  list_->Sweep();
  entry_.reset();
  list_.reset();
}

Listeners::Listeners() : list_(std::make_shared<Subscription::List>()) {}

Subscription Listeners::Add(const Control* only, Listener listener) {
  const auto entry = std::make_shared<Subscription::Entry>(Subscription::Entry{only, std::move(listener)});
  list_->entries.push_back(entry);
  return {list_, entry};
}

void Listeners::NotifyAll(Control& control, Facet facet, By by) {
  const std::shared_ptr<Subscription::List> list = list_;
  ++list->notifying;
  // Uses indexes and holds a reference to the entry, because a listener may add entries and the vector then
  // reallocates.
  for (std::size_t i = 0, count = list->entries.size(); i < count; ++i) {
    const std::shared_ptr<Subscription::Entry> entry = list->entries[i];
    const bool hears = entry->only == nullptr || entry->only == &control;
    if (hears && !entry->ended) entry->listener(control, facet, by);
  }
  --list->notifying;
  list->Sweep();
}

std::size_t Listeners::count() const { return list_->entries.size(); }

}  // namespace discwright::forms
