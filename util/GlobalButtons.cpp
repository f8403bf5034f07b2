#include "util/GlobalButtons.h"

#include "core/Convert.h"
#include "util/modLog.h"

namespace vestrel {

void GlobalButtons::setCaller(std::u16string_view name) {
  caller_ = name;
  TraceAccess(caller_ + u":");
}

std::u16string GlobalButtons::getButtonEditing() const {
  TraceValue(u" - READ ButtonEditing (", buttonEditing_);
  return buttonEditing_;
}

void GlobalButtons::setButtonEditing(std::u16string_view value) {
  buttonEditing_ = value;
  TraceValue(u" - WRITE ButtonEditing (", buttonEditing_);
}

std::int32_t GlobalButtons::getButtonIndex() const {
  return Read(u" - READ ButtonIndex (", buttonIndex_);
}

void GlobalButtons::setButtonIndex(std::int32_t value) {
  Write(u" - WRITE ButtonIndex (", buttonIndex_, value);
}

std::int32_t GlobalButtons::getButtonMoving() const {
  return Read(u" - READ ButtonMoving (", buttonMoving_);
}

void GlobalButtons::setButtonMoving(std::int32_t value) {
  Write(u" - WRITE ButtonMoving (", buttonMoving_, value);
}

std::int32_t GlobalButtons::getButtonX() const {
  return Read(u" - READ ButtonX (", buttonX_);
}

void GlobalButtons::setButtonX(std::int32_t value) {
  Write(u" - WRITE ButtonX (", buttonX_, value);
}

std::int32_t GlobalButtons::getButtonY() const {
  return Read(u" - READ ButtonY (", buttonY_);
}

void GlobalButtons::setButtonY(std::int32_t value) {
  Write(u" - WRITE ButtonY (", buttonY_, value);
}

std::int32_t GlobalButtons::getButtonDown() const {
  return Read(u" - READ ButtonDown (", buttonDown_);
}

void GlobalButtons::setButtonDown(std::int32_t value) {
  Write(u" - WRITE ButtonDown (", buttonDown_, value);
}

void GlobalButtons::TraceAccess(std::u16string_view text) const {
  if (loggingEnabled_) modLog::LogFormat(LogLevel_3_INFO, u"global buttons log: %s", text);
}

void GlobalButtons::TraceValue(std::u16string_view marker, std::u16string_view value) const {
  if (!loggingEnabled_) return;
  TraceAccess(std::u16string(marker).append(value).append(u")"));
}

std::int32_t GlobalButtons::Read(std::u16string_view marker, std::int32_t value) const {
  TraceValue(marker, LongToText(value));
  return value;
}

void GlobalButtons::Write(std::u16string_view marker, std::int32_t& field, std::int32_t value) {
  field = value;
  TraceValue(marker, LongToText(value));
}

}  // namespace vestrel
