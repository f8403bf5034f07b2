#include "workbench/commands/OperationTable.h"

#include "core/Convert.h"

namespace vestrel::workbench {

OperationTable::OperationTable() {
  for (const auto table :
       {ShowOperations, InputOperations, LayoutOperations, EditingOperations, FaderOperations,
        NotificationOperations, ButtonOperations, PageManagerOperations, LampOperations, RecordOperations,
        MultiFileOperations, StaticOperations, GlobalOperations, HostOperations, StateOperations}) {
    for (Operation& operation : table()) operations_.emplace(operation.name, std::move(operation));
  }
}

const Operation* OperationTable::Find(std::string_view name) const {
  const auto found = operations_.find(name);
  return found == operations_.end() ? nullptr : &found->second;
}

const Operation& OperationTable::Get(std::string_view name) const {
  if (const Operation* operation = Find(name)) return *operation;
  const std::string_view similar = Similar(name);
  throw BadCommand("unknown operation \"" + std::string(name) + "\"" +
                   (similar.empty() ? "" : "; did you mean " + std::string(similar) + "?"));
}

std::string_view OperationTable::Similar(std::string_view name) const {
  const std::u16string wanted = FromUtf8(name);
  for (const auto& [known, operation] : operations_) {
    if (EqualIgnoringCase(FromUtf8(known), wanted)) return known;
  }
  return {};
}

}  // namespace vestrel::workbench
