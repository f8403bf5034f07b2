// A shortcut button: a named link to an item that the host plays, with play state, fader, fader mode, bump
// mode and lock. Owned by its group's list; refers back to its page and its handler, to whom it reports every
// change that matters outside. It applies no group rules and, beyond its own line, saves nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/IButtonEventHandler.h"
#include "core/BackRef.h"
#include "core/IComparable.h"
#include "model/clsFaderCatch.h"

namespace vestrel {

class clsIniFile;
class clsPage;

class clsButton : public virtual IComparable {
 public:
  VESTREL_OBJECT(clsButton, IComparable)

  clsButton();

  // Group of the page, 0 to 9; -1 when none.
  std::int32_t groupIndex = 0;
  // 1-based position inside the group; -1 when none.
  std::int32_t buttonIndex = 0;
  std::u16string name;
  ButtonTypeEnum buttonType{};
  // Whether the button is on the visible page of its group, and the control that shows it (-1 for none); the
  // form sets both when it lays the screen out.
  bool isVisible = false;
  std::int32_t controlIndex = 0;
  bool isHighlighted = false;
  // Dimmer level, 0 to 100, with which the item is triggered.
  std::int32_t triggeredDimmerValue = 0;

  bool Locked() const noexcept { return locked_; }
  // Calls the handler's LockStateChanged when the value differs.
  void SetLocked(bool value);
  FaderModeEnum FaderMode() const noexcept { return faderMode_; }
  // Calls the handler's FaderModeChanged when the value differs.
  void SetFaderMode(FaderModeEnum value);
  BumpModeEnum BumpMode() const noexcept { return bumpMode_; }
  void SetBumpMode(BumpModeEnum value) noexcept { bumpMode_ = value; }
  // The fader's value. Raises 91 before Init.
  std::int32_t faderValue() const;
  Ref<clsFaderCatch> Fader() const noexcept { return fader_; }
  PlayStateEnum playState() const noexcept { return playState_; }

  // Gives every field its first value and creates the fader. Both references point back (core/BackRef.h).
  void Init(IButtonEventHandler* eventHandler, clsPage* page);
  // Init, then the four fields given.
  void InitWithValues(clsPage* page, std::int32_t groupIndex, std::int32_t buttonIndex,
                      std::u16string_view name, ButtonTypeEnum buttonType, IButtonEventHandler* eventHandler);
  // A new button of the same page, group, index, type and handler, with first values otherwise. Without a
  // name, or with an empty one, it takes this button's name, and *newName receives it.
  Ref<clsButton> Copy(std::u16string* newName = nullptr);
  // "group: 2, buttonIndex: 5, name: Intro, type: 1".
  std::u16string toString() const;
  // Logs a description at Info.
  void PrintObject() const;

  // The one place where the play state changes: nothing when locked or already in that state; otherwise
  // stores it and, unless suppressEvent, calls the handler's PlayStateChanged with the arguments given.
  void setPlayState(PlayStateEnum value, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                    std::int16_t shift, float x, float y, bool suppressEvent = false,
                    bool suppressSave = false);
  // Press and release of a button in bump mode; only groups 0 and 9 answer.
  void press();
  void release();
  // Toggles the play state; nothing when locked or in bump mode.
  void click(std::int16_t mouseButton, std::int16_t shift, float x, float y);
  // Moves the fader (0 to 100) through its pick-up; answers whether it caught. In bump mode it also switches
  // the button and calls the handler's FaderValueChanged.
  bool SetFaderValue(std::int32_t value, bool updateUI);

  // Writes and reads the button's line under the key "fields" of the section and prefix in force. Reading a
  // line of other than seven fields logs a warning and keeps all but the two indices; raises 13 for a field
  // that does not convert; hands play state and fader value to the handler's DeferPlaystateFor.
  void saveToINI(clsIniFile* iniFile);
  void loadFromINI(clsIniFile* iniFile, std::int32_t pGroupIndex, std::int32_t pButtonIndex);

  // Fields "all" and "buttonIndex" (exact); raises 1001 for another one, 13 for an object that is no button.
  std::int32_t CompareTo(Object* other, std::u16string_view field = u"all") override;
  // Field "name" in any letter case; raises 7155 for another one.
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override;

 private:
  BackRef<clsPage> page_;
  BackRef<IButtonEventHandler> eventHandler_;
  PlayStateEnum playState_{};
  BumpModeEnum bumpMode_{};
  FaderModeEnum faderMode_{};
  Ref<clsFaderCatch> fader_;
  std::int32_t preBumpFaderValue_ = 0;
  bool locked_ = false;
};

}  // namespace vestrel
