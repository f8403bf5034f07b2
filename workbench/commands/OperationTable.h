// Every operation that the command language knows, by name. The tables are in the files named after what
// their operations work on; a new operation is a line in one of them.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "workbench/commands/Operation.h"

namespace vestrel::workbench {

std::vector<Operation> ShowOperations();
std::vector<Operation> InputOperations();
std::vector<Operation> LayoutOperations();
std::vector<Operation> EditingOperations();
std::vector<Operation> FaderOperations();
std::vector<Operation> NotificationOperations();
std::vector<Operation> ButtonOperations();
std::vector<Operation> PageManagerOperations();
std::vector<Operation> LampOperations();
std::vector<Operation> RecordOperations();
std::vector<Operation> MultiFileOperations();
std::vector<Operation> StaticOperations();
std::vector<Operation> GlobalOperations();
std::vector<Operation> HostOperations();
std::vector<Operation> StateOperations();

class OperationTable {
 public:
  OperationTable();

  // Null when there is none of that name.
  const Operation* Find(std::string_view name) const;
  // Raises BadCommand when there is none, naming the one that may be meant.
  const Operation& Get(std::string_view name) const;
  // The name that differs in letter case alone, or the empty text.
  std::string_view Similar(std::string_view name) const;
  // In alphabetical order.
  const std::map<std::string_view, Operation>& all() const noexcept { return operations_; }

 private:
  std::map<std::string_view, Operation> operations_;
};

}  // namespace vestrel::workbench
