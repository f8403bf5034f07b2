// The one object that the host's form drives: shows and pages, control input, layout and navigation, editing
// and faders. Made by the host, which keeps it alive; holds the form, the lamp output (through its LED
// manager) and the record controller. It draws nothing and plays nothing: every effect outside the library is
// a callback into the host. Its rooms are the source files named after what they do.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controller/clsPageManager.h"
#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/IAssignmentCallback.h"
#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "controller/interfaces/ILEDSetter.h"
#include "controller/interfaces/IPageController.h"
#include "controller/interfaces/IRecordController.h"
#include "core/BackRef.h"
#include "core/clsDictionary.h"
#include "core/clsObjectList.h"
#include "leds/LEDManager.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"
#include "model/clsDeferred.h"
#include "model/clsPage.h"
#include "recording/clsRecordController.h"

namespace vestrel {

class clsButtonGroupController : public virtual IPageController {
 public:
  VESTREL_OBJECT(clsButtonGroupController, IPageController, IButtonEventHandler, IObjListEventHandler)
  VESTREL_HELD_WEAKLY()

  // ---- Set-up, shows and pages (controllerShows.cpp)
  // -------------------------------------------------------

  // Mirrors button state onto the surface; created by Init.
  Ref<LEDManager> mLEDManager;
  Ref<clsRecordController> recordController() const;
  bool persist() const override { return persist_; }
  void SetPersist(bool value) noexcept { persist_ = value; }

  void Init(IFormSequenceShortcuts* form, std::u16string_view appPath, ILEDSetter* ledSetter,
            IRecordController* recordController);
  void formLostFocus();
  void formGotFocus();
  void formShutdown();
  void CreateNewShow(std::u16string_view showName);
  void LoadShow(std::u16string_view showName);
  void AddPage(std::u16string_view pageName);
  void SetPage(std::u16string_view pageName);
  void DeletePage(std::u16string_view pageName, std::u16string_view defaultNewName = u"Page 1");
  Ref<clsObjectList> GetPageNames();
  void InfoDump();
  void RenamePage(std::u16string_view oldName, std::u16string_view newName);
  void clearAll();
  void HideSplashScreen();
  void RefocusCurrentPage();
  Ref<clsDictionary> GetButtonMap();

  // ---- Control input and play state (controllerInput.cpp, controllerPlayState.cpp)
  // -------------------------

  void fakeMouseUp(std::int16_t controlIndex, std::u16string_view source);
  void controlPressed(std::int32_t controlIndex);
  void controlReleased(std::int32_t controlIndex);
  void controlClicked(std::int32_t controlIndex, std::int16_t mouseButton, std::int16_t shift, float x,
                      float y, TriggerModeEnum triggerMode = TriggerMode_Toggle, bool returnButton = false,
                      Ref<clsButton>* buttonVar = nullptr);
  void releaseButtonsOnPage(std::int32_t groupIndex, ButtonTypeEnum onlyType = ButtonType_None,
                            Ref<clsButton>* excludeButton = nullptr);
  void buttonGroupGo(std::int32_t groupIndex, std::int16_t crossFade = 0, float overRideTime = 0,
                     bool manualCrossfade = false);
  bool ToggleButtonAt(std::int32_t groupIndex, std::int32_t buttonIndex);

  // ---- Group layout and navigation (controllerLayout.cpp)
  // --------------------------------------------------

  std::int32_t getPageOffset(std::int32_t groupIndex);
  bool changeButtonGroupPageOffset(std::int32_t groupIndex, PageDirEnum direction);
  Ref<clsObjectList> getVisibleGroupButtons(std::int32_t groupIndex);
  Ref<clsButton> getPrevButton(std::int32_t groupIndex, std::int32_t& beforeIndex);
  Ref<clsButton> getNextButton(std::int32_t groupIndex, std::int32_t afterIndex);
  void setButtonGroupPageSize(std::int32_t pageSize);
  bool goToPageWithButtonIndex(std::int32_t groupIndex, std::int32_t buttonIndex);
  void highlightButton(std::int32_t groupIndex, HighlightDirEnum dir, bool goToHighlightPage = true,
                       clsButton* afterButton = nullptr);
  Ref<clsButton> getHighlightedButton(std::int32_t groupIndex);
  Ref<clsButton> buttonWithIndex(std::int32_t groupIndex, std::int32_t buttonIndex);
  Ref<clsButton> buttonAtControlIndex(std::int32_t controlIndex);
  void setButtonGroupButtonList(std::int32_t groupIndex, clsObjectList* theButtonList);
  Ref<clsObjectList> getButtons(std::int32_t groupIndex = -1, ButtonTypeEnum buttonType = ButtonType_None);
  bool buttonIsVisible(clsButton* button);
  void resetVisibility(std::int32_t groupIndex = -1);

  // ---- Assignment and editing (controllerEditing.cpp, controllerPlacing.cpp)
  // -------------------------------

  void assignButton(std::int32_t groupIndex, std::int32_t buttonControlIndex, std::u16string_view name,
                    ButtonTypeEnum buttonType);
  void removeButton(clsButton* button);
  void setModeAssign(std::u16string_view buttonName, ButtonTypeEnum buttonType,
                     IAssignmentCallback* assignmentCallbackObj);
  void autoAssignNextAvailable(std::int32_t groupIndex);
  void setModeEditing(bool enabled);
  void setModeMove();
  void CancelEditMode();
  void setModeCopy();
  Ref<clsButton> setModeAdjFadeInOut();
  void beginEditCue();
  void DeleteButton(bool noPrompt = false);
  void AssignMarkFade(MarkFadeTypeEnum mfType);
  void RenameButton();
  void ToggleBumpMode();
  void ToggleLockState();
  void ChangeFaderMode(FaderModeEnum newMode);

  // ---- Faders (controllerFaders.cpp)
  // -----------------------------------------------------------------------

  void groupFaderChanged(std::int32_t groupIndex, std::int32_t newValue);
  void BumpFaderChanged(std::int32_t index, std::int32_t value, bool updateUI);
  void GetUIFaderValues(TUIFaderValues& values) override;
  void UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value, bool caught,
                             clsButton* button = nullptr) override;
  void PushCurrentGroupFaderValues();

  // ---- What buttons and lists report (controllerPlayState.cpp)
  // ---------------------------------------------

  void PlayStateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                        std::int16_t shift, float x, float y, bool suppressSave = false) override;
  void LockStateChanged(clsButton* button) override;
  void FaderModeChanged(clsButton* button) override;
  void FaderValueChanged(clsButton* button, bool updateUI) override;
  void DeferPlaystateFor(clsPage* page, clsButton* button, PlayStateEnum playState,
                         std::int32_t faderValue) override;
  void ItemAdded(clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData) override;
  void ItemRemoved(clsObjectList* list, Object* item, std::int32_t fromIndex, Object* userData) override;

  // ---- Additions
  // -------------------------------------------------------------------------------------------

  // The page manager of the show that is set up, to list and search pages that are not current.
  Ref<clsPageManager> PageManager() const noexcept { return pageManager_; }

 private:
  WeakSource weakSource_;
  bool persist_ = false;
  Ref<clsPageManager> pageManager_;
};

}  // namespace vestrel
