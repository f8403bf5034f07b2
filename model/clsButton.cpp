#include "model/clsButton.h"

#include <optional>
#include <typeinfo>

#include "core/Cast.h"
#include "core/Convert.h"
#include "model/ButtonLine.h"
#include "model/clsPage.h"
#include "storage/clsIniFile.h"
#include "storage/modIniFile.h"
#include "util/modLog.h"
#include "util/modUtils.h"

namespace vestrel {
namespace {

// What a press, a release or a bump fader reports as the click that caused it.
constexpr std::int16_t kSyntheticMouseButton = 1;
constexpr std::int32_t kTopGroup = 0;
constexpr std::int32_t kBumpGroup = 9;
constexpr std::int32_t kFullFader = 100;
constexpr std::u16string_view kNoName = u"none";

std::int32_t CompareNumbers(std::int32_t a, std::int32_t b) noexcept {
  if (a == b) return 0;
  return a < b ? -1 : 1;
}

}  // namespace

clsButton::clsButton() = default;

clsButton::~clsButton() = default;

void clsButton::SetLocked(bool value) {
  if (value == locked_) return;
  const Ref<clsButton> self(this);
  locked_ = value;
  if (const auto handler = eventHandler_.Lock()) handler->LockStateChanged(this);
}

void clsButton::SetFaderMode(FaderModeEnum value) {
  if (value == faderMode_) return;
  const Ref<clsButton> self(this);
  faderMode_ = value;
  if (const auto handler = eventHandler_.Lock()) handler->FaderModeChanged(this);
}

std::int32_t clsButton::faderValue() const {
  RequireInit();
  return fader_ ? fader_->value() : 0;
}

Ref<clsFaderCatch> clsButton::Fader() const {
  return hasFader_ ? Ref<clsFaderCatch>(&CreatedFader()) : nullptr;
}

void clsButton::Init(IButtonEventHandler* eventHandler, clsPage* page) {
  groupIndex = -1;
  buttonIndex = -1;
  name = std::u16string(kNoName);
  buttonType = ButtonType_None;
  isVisible = false;
  controlIndex = -1;
  isHighlighted = false;
  triggeredDimmerValue = kFullFader;
  page_ = page;
  playState_ = PlayState_Off;
  bumpMode_ = BumpMode_Off;
  faderMode_ = FaderMode_Dimmer;
  hasFader_ = true;
  fader_ = nullptr;
  preBumpFaderValue_ = 0;
  locked_ = false;
  // Last: the end of the one before may let go of this button.
  eventHandler_ = eventHandler;
}

void clsButton::InitWithValues(clsPage* page, std::int32_t newGroupIndex, std::int32_t newButtonIndex,
                               std::u16string_view newName, ButtonTypeEnum newButtonType,
                               IButtonEventHandler* eventHandler) {
  // Goes last: its end may call back.
  const Ref<IButtonEventHandler> former = eventHandler_.Lock();
  // Before Init, which overwrites the name that the caller's text may be.
  std::u16string ownName(newName);
  Init(eventHandler, page);
  groupIndex = newGroupIndex;
  buttonIndex = newButtonIndex;
  name = std::move(ownName);
  buttonType = newButtonType;
}

bool clsButton::EndsQuietly() const {
  return typeid(*this) == typeid(clsButton) && (eventHandler_.IsUnset() || eventHandler_.Anchor() != nullptr);
}

Ref<clsPage> clsButton::Page() const {
  return page_.Lock();
}

void clsButton::BelongTo(clsPage* page) {
  page_ = page;
}

Ref<clsButton> clsButton::Copy(std::u16string* newName) {
  if (newName != nullptr && newName->empty()) *newName = name;
  auto copy = MakeRef<clsButton>();
  copy->InitWithValues(page_.Lock().get(), groupIndex, buttonIndex, newName != nullptr ? *newName : name,
                       buttonType, eventHandler_.Lock().get());
  return copy;
}

std::u16string clsButton::toString() const {
  return u"group: " + LongToText(groupIndex) + u", buttonIndex: " + LongToText(buttonIndex) + u", name: " +
         name + u", type: " + LongToText(buttonType);
}

void clsButton::PrintObject() const {
  modLog::LogFormat(LogLevel_3_INFO, u"button object: %s - gi %d, bi %d, bt %d, ps %d, iv %d, ci %d%", name,
                    groupIndex, buttonIndex, std::int32_t{buttonType}, std::int32_t{playState_}, isVisible,
                    controlIndex);
}

void clsButton::setPlayState(PlayStateEnum value, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                             std::int16_t shift, float x, float y, bool suppressEvent, bool suppressSave) {
  if (locked_ || value == playState_) return;
  const Ref<clsButton> self(this);
  playState_ = value;
  if (suppressEvent) return;
  if (const auto handler = eventHandler_.Lock()) {
    handler->PlayStateChanged(this, eventSource, mouseButton, shift, x, y, suppressSave);
  }
}

void clsButton::press() {
  if (locked_ || bumpMode_ != BumpMode_On) return;
  const Ref<clsButton> self(this);
  if (groupIndex == kTopGroup) {
    Switch(PlayState_On);
  } else if (groupIndex == kBumpGroup) {
    PressBumpFader();
  }
}

void clsButton::release() {
  if (locked_ || bumpMode_ != BumpMode_On) return;
  const Ref<clsButton> self(this);
  if (groupIndex == kTopGroup) {
    Switch(PlayState_Off);
  } else if (groupIndex == kBumpGroup) {
    ReleaseBumpFader();
  }
}

void clsButton::click(std::int16_t mouseButton, std::int16_t shift, float x, float y) {
  if (locked_ || bumpMode_ == BumpMode_On) return;
  if (playState_ == PlayState_On) {
    setPlayState(PlayState_Off, PSEventSource_User, mouseButton, shift, x, y);
  } else if (playState_ == PlayState_Off) {
    setPlayState(PlayState_On, PSEventSource_User, mouseButton, shift, x, y);
  }
}

bool clsButton::SetFaderValue(std::int32_t value, bool updateUI) {
  if (locked_) return false;
  const Ref<clsButton> self(this);
  const std::int32_t oldValue = faderValue();
  if (!CreatedFader().SetValue(value)) return false;
  if (value == oldValue && !updateUI) return true;
  if (bumpMode_ != BumpMode_On) return true;
  if (value >= 1 && playState_ == PlayState_Off) {
    Switch(PlayState_On);
  } else if (value == 0 && playState_ == PlayState_On) {
    Switch(PlayState_Off);
  }
  NotifyFaderValue(updateUI);
  return true;
}

void clsButton::saveToINI(clsIniFile* iniFile) {
  if (iniFile == nullptr) RaiseError(Error_ObjectNotSet);
  const ButtonLine line{name, buttonType, playState_, bumpMode_, faderMode_, faderValue(), locked_};
  const NarrowButtonLine bytes(line);
  if (!bytes.view().empty()) return iniFile->WriteBytes(ButtonKey::kWithoutPrefix, bytes.view());
  TextBuffer text;
  AppendButtonLine(line, text);
  iniFile->WriteText(u"fields", text.view());
}

void clsButton::loadFromINI(clsIniFile* iniFile, std::int32_t pGroupIndex, std::int32_t pButtonIndex) {
  if (iniFile == nullptr) RaiseError(Error_ObjectNotSet);
  std::optional<std::string> own;
  const auto bytes = iniFile->ReadBytes(ButtonKey::kWithoutPrefix, own);
  TakeBytes(bytes.value_or(std::string_view()), pGroupIndex, pButtonIndex);
}

void clsButton::TakeBytes(std::string_view bytes, std::int32_t pGroupIndex, std::int32_t pButtonIndex) {
  groupIndex = pGroupIndex;
  buttonIndex = pButtonIndex;
  ButtonLine line;
  if (bytes.size() <= modIniFile::kLongestRead && ParseButtonLine(bytes, name, line)) return TakeLine(line);
  TextBuffer text;
  modIniFile::AppendWidened(bytes, text);
  if (!ParseButtonLine(text.view(), line)) {
    modLog::Log(u"skipping button load -- incorrect number of fields in INI", LogLevel_2_WARNING);
    return;
  }
  name = std::u16string(line.name);
  TakeLine(line);
}

std::int32_t clsButton::CompareTo(Object* other, std::u16string_view field) {
  const clsButton& button = Cast<clsButton>(other);
  if (field == u"buttonIndex") return CompareNumbers(buttonIndex, button.buttonIndex);
  if (field != u"all")
    throw Error(errBadFieldName, u"clsButton.IComparable_CompareTo", u"unsupported field (yet)");
  const bool equal = groupIndex == button.groupIndex && buttonIndex == button.buttonIndex &&
                     name == button.name && buttonType == button.buttonType;
  if (equal) return 0;
  return buttonIndex > button.buttonIndex ? 1 : -1;
}

std::int32_t clsButton::FieldCompare(std::u16string_view fieldName, const Variant& value) {
  if (EqualIgnoringCase(fieldName, u"name")) return CompareNumbers(ToText(value).compare(name), 0);
  modLog::LogFormat(LogLevel_1_SEVERE, u"unhandled field in clsButton.IComparable_FieldCompare: %s",
                    fieldName);
  modUtils::Assert(false);
  return 0;
}

void clsButton::RequireInit() const {
  if (!hasFader_) RaiseError(Error_ObjectNotSet);
}

// Most buttons' faders are never moved, so each is made when it is first asked for.
clsFaderCatch& clsButton::CreatedFader() const {
  RequireInit();
  if (!fader_) fader_ = MakeRef<clsFaderCatch>();
  return *fader_;
}

void clsButton::Switch(PlayStateEnum value) {
  setPlayState(value, PSEventSource_User, kSyntheticMouseButton, 0, 0, 0);
}

void clsButton::PressBumpFader() {
  if (faderValue() == 0) Switch(PlayState_On);
  preBumpFaderValue_ = faderValue();
  CreatedFader().SetValue(kFullFader, true);
  NotifyFaderValue(true);
}

void clsButton::ReleaseBumpFader() {
  CreatedFader().SetValue(preBumpFaderValue_, true);
  NotifyFaderValue(true);
  if (faderValue() == 0) Switch(PlayState_Off);
}

void clsButton::NotifyFaderValue(bool updateUI) {
  if (const auto handler = eventHandler_.Lock()) handler->FaderValueChanged(this, updateUI);
}

// All but the name.
void clsButton::TakeLine(const ButtonLine& line) {
  const Ref<clsButton> self(this);
  buttonType = line.buttonType;
  bumpMode_ = line.bumpMode;
  faderMode_ = line.faderMode;
  locked_ = line.locked;
  playState_ = PlayState_Off;
  RequireInit();
  // One that was not asked for yet stands there.
  if (fader_) fader_->SetValue(0, true);
  if (const auto handler = eventHandler_.Lock()) {
    handler->DeferPlaystateFor(page_.Lock().get(), this, line.playState, line.faderValue);
  }
}

}  // namespace vestrel
