// Makes widgets and layouts that belong to another object of Qt: MakeChild<QLabel>(parent).
#pragma once

#include <utility>

namespace discwright::desktop {

// The object belongs to the parent that its constructor gets, or to the layout to which the caller adds it; these
// delete it. This is the only place in which an object is made without an owning pointer.
template <typename T, typename... Arguments>
T* MakeChild(Arguments&&... arguments) {
  return new T(std::forward<Arguments>(arguments)...);  // NOLINT(cppcoreguidelines-owning-memory)
}

}  // namespace discwright::desktop
