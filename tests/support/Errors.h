// Says in one line which numbered error an operation raises.
#pragma once

#include <cstdint>
#include <utility>

#include "core/Error.h"

namespace vestrel::test {

// The number of the error that `operation` raises, 0 when it raises none.
template <class Operation>
std::int32_t RaisedNumber(Operation&& operation) {
  try {
    std::forward<Operation>(operation)();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace vestrel::test

#define EXPECT_RAISES(number, ...) \
  EXPECT_EQ(::vestrel::test::RaisedNumber([&] { (void)(__VA_ARGS__); }), number)
