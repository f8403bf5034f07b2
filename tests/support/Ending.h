// A part of a host whose end calls back, as a class of a script may: whoever lets go of the last reference
// runs the host's code.
#pragma once

#include <functional>
#include <utility>

namespace vestrel::test {

template <class T>
class Ending : public T {
 public:
  template <class... Arguments>
  explicit Ending(std::function<void()> atEnd, Arguments&&... arguments)
      : T(std::forward<Arguments>(arguments)...), atEnd_(std::move(atEnd)) {}
  ~Ending() override { atEnd_(); }

 private:
  std::function<void()> atEnd_;
};

}  // namespace vestrel::test
