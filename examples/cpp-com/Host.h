// The host's own objects: form, lamps and assignment, which print every call.
#pragma once

#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>

#include "examples/cpp-com/Com.h"

namespace example {

// How arguments are printed: numbers in decimal, True or False, a button by its name.
inline std::string Narrow(const std::wstring& text) {
  std::string result;
  for (const wchar_t unit : text) result += unit < 128 ? static_cast<char>(unit) : '?';
  return result;
}
inline std::string Shown(bool value) {
  return value ? "True" : "False";
}
inline std::string Shown(const std::string& value) {
  return value;
}
inline std::string Shown(_clsButton* button) {
  if (button == nullptr) return "none";
  com::Text name;
  com::Check(button->get_name(name.out()));
  return Narrow(name.str());
}
template <class T>
std::string Shown(T number) {
  return std::to_string(static_cast<int>(number));
}

template <class... A>
HRESULT Called(const char* name, const A&... arguments) {
  std::cout << "  " << name << "(";
  [[maybe_unused]] const char* separator = "";
  ((std::cout << separator << Shown(arguments), separator = ", "), ...);
  std::cout << ")\n";
  return S_OK;
}

inline bool IsOn(_clsButton* button) {
  PlayStateEnum state{};
  com::Check(button->get_playState(&state));
  return state == PlayState_On;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class Form final : public com::HostObject<Form, _IFormSequenceShortcuts> {
 public:
  // The controller is borrowed: it keeps the form alive, so a counted reference back would keep both for
  // ever.
  explicit Form(_clsButtonGroupController* controller) : controller_(controller) {}

  HRESULT STDMETHODCALLTYPE RefreshPage(IFSSRefreshEnum* refreshType, LONG* justGroupIndex,
                                        _clsButton** justButton) override {
    return Called("RefreshPage", *refreshType, *justGroupIndex, *justButton);
  }
  HRESULT STDMETHODCALLTYPE SetFlashing(VARIANT_BOOL* state) override {
    return Called("SetFlashing", *state != VARIANT_FALSE);
  }
  HRESULT STDMETHODCALLTYPE ShowEditPopup(_clsButton** button) override {
    return Called("ShowEditPopup", *button);
  }
  HRESULT STDMETHODCALLTYPE DisableEditMode() override {
    Called("DisableEditMode");
    return controller_->setModeEditing(com::By(VARIANT_BOOL{VARIANT_FALSE}));
  }
  HRESULT STDMETHODCALLTYPE ButtonStateChanged(_clsButton** button, short* mouseButton, short* shift,
                                               float* x, float* y) override {
    const bool on = IsOn(*button);
    Called("ButtonStateChanged", *button, on, *mouseButton, *shift, *x, *y);
    if (!on) return S_OK;
    // This host's policy: a button of groups 1 to 8 that goes on releases the others of its group.
    LONG group = 0;
    com::Check((*button)->get_groupIndex(&group));
    com::Pointer<_clsButton> spared(*button);
    return controller_->releaseButtonsOnPage(&group, com::By(ButtonType_None), spared.by());
  }
  HRESULT STDMETHODCALLTYPE UpdateFaderUI(IFSSFaderTypeEnum* faderType, LONG* index, LONG* value) override {
    return Called("UpdateFaderUI", *faderType, *index, *value);
  }
  HRESULT STDMETHODCALLTYPE HighlightBump(LONG* bumpIndex, VARIANT_BOOL* state) override {
    return Called("HighlightBump", *bumpIndex, *state != VARIANT_FALSE);
  }
  HRESULT STDMETHODCALLTYPE GetUIFaderValues(TUIFaderValues* values) override {
    values->GroupFaders[1] = 75;  // group fader 2: the arrays of the record begin at 0 in C++
    return Called("GetUIFaderValues");
  }
  HRESULT STDMETHODCALLTYPE UpdateFaderModelValue(IFSSFaderTypeEnum* faderType, LONG* index, LONG* value,
                                                  VARIANT_BOOL* caught, _clsButton** button) override {
    return Called("UpdateFaderModelValue", *faderType, *index, *value, *caught != VARIANT_FALSE, *button);
  }

  // What this host does not need, but the interface has.
  HRESULT STDMETHODCALLTYPE SetButtonGroupPageCaption(LONG*, BSTR*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE CopyButtonFiles(ButtonTypeEnum*, BSTR*, BSTR*, BSTR*, BSTR*,
                                            VARIANT_BOOL*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DeleteButton(_clsButton**, VARIANT_BOOL*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RenameButton(_clsButton**, LONG*, BSTR* result) override {
    *result = nullptr;  // the empty text: keep the name
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE LockStateChanged(_clsButton**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE FaderModeChanged(_clsButton**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ReleaseButton(_clsButton**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GoFromSubmaster(_clsButton**, short*, float*, VARIANT_BOOL*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE HideSplashScreen() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE CreateMarkFadeButton(_clsButton**, BSTR*, MarkFadeTypeEnum*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PromptButtonOverwrite(BSTR*, VARIANT_BOOL* result) override {
    *result = VARIANT_FALSE;
    return S_OK;
  }

 private:
  _clsButtonGroupController* controller_;
};

class Lamps final : public com::HostObject<Lamps, _ILEDSetter> {
 public:
  HRESULT STDMETHODCALLTYPE setLED(unsigned char* ledGroupCode, short* bits, VARIANT_BOOL* state) override {
    return Called("setLED", *ledGroupCode, Mask(*bits), *state != VARIANT_FALSE);
  }
  HRESULT STDMETHODCALLTYPE StartLEDTimer() override { return Called("StartLEDTimer"); }
  HRESULT STDMETHODCALLTYPE EndLEDTimer() override { return Called("EndLEDTimer"); }

 private:
  // The lamps that a call concerns, four hexadecimal digits, lamp 1 the last bit.
  static std::string Mask(short bits) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto mask = static_cast<std::uint16_t>(bits);
    std::string text;
    for (const int shift : {12, 8, 4, 0}) text += kDigits[(mask >> shift) & 15U];
    return text;
  }
};

class Assignment final : public com::HostObject<Assignment, _IAssignmentCallback> {
 public:
  HRESULT STDMETHODCALLTYPE CompleteAssignment(VARIANT_BOOL* forceOverwrite) override {
    return Called("CompleteAssignment", *forceOverwrite != VARIANT_FALSE);
  }
};

#pragma GCC diagnostic pop

}  // namespace example
