// What a host's screens share while a button is edited, moved or dragged. The library gives the values no
// meaning of its own; it keeps them and, with LoggingEnabled, writes each access to the log at
// LogLevel_3_INFO under the name of the code that announced itself. Owned by the host.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Object.h"

namespace vestrel {

class GlobalButtons : public Object {
 public:
  VESTREL_OBJECT(GlobalButtons)

  // Whether accesses are logged; false in a new one.
  bool LoggingEnabled() const noexcept { return loggingEnabled_; }
  void SetLoggingEnabled(bool value) noexcept { loggingEnabled_ = value; }
  // Plain values, never logged.
  bool CountButton() const noexcept { return countButton_; }
  void SetCountButton(bool value) noexcept { countButton_ = value; }
  const std::u16string& NewButton() const noexcept { return newButton_; }
  void SetNewButton(std::u16string_view value) { newButton_ = value; }

  // Names the code that is about to use the values below. This and every access below raises what logging
  // raises, when it logs; the value is stored by then.
  void setCaller(std::u16string_view name);

  std::u16string getButtonEditing() const;
  void setButtonEditing(std::u16string_view value);
  std::int32_t getButtonIndex() const;
  void setButtonIndex(std::int32_t value);
  std::int32_t getButtonMoving() const;
  void setButtonMoving(std::int32_t value);
  std::int32_t getButtonX() const;
  void setButtonX(std::int32_t value);
  std::int32_t getButtonY() const;
  void setButtonY(std::int32_t value);
  std::int32_t getButtonDown() const;
  void setButtonDown(std::int32_t value);

 private:
  void TraceAccess(std::u16string_view text) const;
  void TraceValue(std::u16string_view marker, std::u16string_view value) const;
  std::int32_t Read(std::u16string_view marker, std::int32_t value) const;
  void Write(std::u16string_view marker, std::int32_t& field, std::int32_t value);

  bool loggingEnabled_ = false;
  bool countButton_ = false;
  std::u16string newButton_;
  std::u16string caller_;
  std::u16string buttonEditing_;
  std::int32_t buttonIndex_ = 0;
  std::int32_t buttonMoving_ = 0;
  std::int32_t buttonX_ = 0;
  std::int32_t buttonY_ = 0;
  std::int32_t buttonDown_ = 0;
};

}  // namespace vestrel
