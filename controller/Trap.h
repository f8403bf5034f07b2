// An error trap: runs something that may fail and answers how it failed, in words. The controller's
// operations that end at a failure, quietly or with a log line, run inside one.
#pragma once

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "core/Convert.h"
#include "core/Error.h"

namespace vestrel {

// The failure's description, or nothing when `body` came to its end.
template <class Body>
[[nodiscard]] std::optional<std::u16string> FailureOf(Body&& body) {
  try {
    std::forward<Body>(body)();
    return std::nullopt;
  } catch (const Error& error) {
    return error.description();
  } catch (const std::bad_alloc&) {
    return std::u16string(RuntimeErrorText(Error_OutOfMemory));
  } catch (const std::exception& error) {
    return FromUtf8(error.what());
  }
}

// Runs `body`; a failure ends it without a word, but for memory that has run out: what was asked for is then
// neither done nor found out, which the caller must not take for an answer.
template <class Body>
void Quietly(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): ending quietly is what is asked for
  }
}

}  // namespace vestrel
