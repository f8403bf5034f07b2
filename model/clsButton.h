// A shortcut button: a named link to an item that the host plays, with play state, fader, fader mode, bump
// mode and lock. Owned by its group's list; refers back to its page and its handler, to whom it reports every
// change that matters outside. It applies no group rules and, beyond its own line, saves nothing.
//
// A button is made, then given Init or InitWithValues; before that it has no fader, and what needs one raises
// 91. The handler is called after the change is complete, may call back into the button, and what it raises
// reaches whoever made the change. A button whose page or handler is gone stays usable and calls nobody.
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
struct ButtonLine;

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
  // Whether the highlight of its group is on it.
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
  // Tells nobody.
  void SetBumpMode(BumpModeEnum value) noexcept { bumpMode_ = value; }
  // The fader's value. Raises 91 before Init.
  std::int32_t faderValue() const;
  // The fader itself, none before Init; always the same one until the next Init.
  Ref<clsFaderCatch> Fader() const;
  PlayStateEnum playState() const noexcept { return playState_; }

  // Gives every field its first value and creates the fader. Both references point back (core/BackRef.h). The
  // handler before goes when all is in place, here and in InitWithValues: its end may call back.
  void Init(IButtonEventHandler* eventHandler, clsPage* page);
  // Init, then the four fields given (groupIndex 0 to 9, buttonIndex from 1; neither is checked).
  void InitWithValues(clsPage* page, std::int32_t groupIndex, std::int32_t buttonIndex,
                      std::u16string_view name, ButtonTypeEnum buttonType, IButtonEventHandler* eventHandler);
  // Whether no host's code runs when the button goes: it is no class of a host's, and its handler is held
  // weakly or there is none.
  bool EndsQuietly() const;
  // The page that the button belongs to, none when there is none or it is gone.
  Ref<clsPage> Page() const;
  // Makes the button belong to another page. Its lists are the caller's business.
  void BelongTo(clsPage* page);
  // A new button of the same page, group, index, type and handler, with first values otherwise. Without a
  // name, or with an empty one, it takes this button's name, and *newName receives it.
  Ref<clsButton> Copy(std::u16string* newName = nullptr);
  // "group: 2, buttonIndex: 5, name: Intro, type: 1".
  std::u16string toString() const;
  // Logs a description at Info.
  void PrintObject() const;

  // The one place where the play state changes: nothing when locked or already in that state; otherwise
  // stores it and, unless suppressEvent, calls the handler's PlayStateChanged with the other arguments.
  void setPlayState(PlayStateEnum value, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                    std::int16_t shift, float x, float y, bool suppressEvent = false,
                    bool suppressSave = false);
  // Press and release of a button in bump mode, unless locked; only groups 0 and 9 answer. Group 0 goes on
  // and off. Group 9 goes on if its fader is 0, is forced to 100 and reports FaderValueChanged; the release
  // forces the value before the press, reports it, and switches off if it is 0.
  void press();
  void release();
  // Toggles the play state through setPlayState as the user; nothing when locked, in bump mode or in
  // PlayState_Null.
  void click(std::int16_t mouseButton, std::int16_t shift, float x, float y);
  // Moves the fader (0 to 100) through its pick-up; answers whether it caught, false when locked. In bump
  // mode, when the value is another or updateUI is set, it also switches the button on (from 1 up) or off (at
  // 0) and then calls the handler's FaderValueChanged.
  bool SetFaderValue(std::int32_t value, bool updateUI);

  // Writes the button's line under the key "fields" of the section and prefix in force.
  void saveToINI(clsIniFile* iniFile);
  // Reads that line and takes the two indices. A line of other than seven fields is skipped with a warning;
  // one with a field that does not convert raises 13 (6 when it does not fit); both change nothing else.
  // Otherwise the button is off with its fader at 0, and the play state and fader value of the line go to the
  // handler's DeferPlaystateFor. Calls no other notification.
  void loadFromINI(clsIniFile* iniFile, std::int32_t pGroupIndex, std::int32_t pButtonIndex);
  // The same with the line that the file holds, in the narrow page; for the page's own loop.
  void TakeBytes(std::string_view bytes, std::int32_t pGroupIndex, std::int32_t pButtonIndex);

  // Field "all": 0 when both indices, name and type are equal, else 1 when this buttonIndex is the greater,
  // else -1, so that two buttons of one index may both come first. Field "buttonIndex": by that number alone.
  // The field is matched exactly; raises 1001 for another one, 13 for an object that is no button, 91 for
  // none.
  std::int32_t CompareTo(Object* other, std::u16string_view field = u"all") override;
  // Field "name" in any letter case: the value's text against the name, by code units. Another field is
  // logged as severe and raises 7155.
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override;

 protected:
  ~clsButton() override;

 private:
  void RequireInit() const;
  clsFaderCatch& CreatedFader() const;
  void Switch(PlayStateEnum value);
  void PressBumpFader();
  void ReleaseBumpFader();
  void NotifyFaderValue(bool updateUI);
  void TakeLine(const ButtonLine& line);

  BackRef<clsPage> page_;
  BackRef<IButtonEventHandler> eventHandler_;
  PlayStateEnum playState_{};
  BumpModeEnum bumpMode_{};
  FaderModeEnum faderMode_{};
  bool hasFader_ = false;
  mutable Ref<clsFaderCatch> fader_;  // none while it is in its first state and nobody has it
  std::int32_t preBumpFaderValue_ = 0;
  bool locked_ = false;
};

}  // namespace vestrel
