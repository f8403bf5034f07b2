// What the workbench refuses to do although the library would: commands after which data would be lost, that
// reach out of the data folder, or that are of no use where the time passes by itself.
#pragma once

#include <stdexcept>
#include <string_view>
#include <vector>

#include "workbench/commands/Word.h"

namespace vestrel::workbench {

class WorkSession;

// Why nothing was done, for the operator.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Raises Refusal for a command that would do harm. `words` begins with the name of a known operation; words
// that make no sense are left for the operation to tell.
void ExpectHarmless(const std::vector<Word>& words, WorkSession& session);

// Raises Refusal when the edit button cannot have the name: see ButtonNameProblem, and another button of the
// page may have it.
void ExpectFreeButtonName(std::u16string_view name, WorkSession& session);

}  // namespace vestrel::workbench
