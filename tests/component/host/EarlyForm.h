// The host's form, lamps and transport bar, each by its interface itself. Every call goes into one log.
#pragma once

#include <functional>
#include <string>

#include "tests/component/host/EarlyHost.h"

namespace host {

// "name(arguments);" of every call, in order.
class CallLog {
 public:
  template <class... A>
  void Note(const wchar_t* name, const A&... arguments) {
    text_ += name;
    text_ += L"(";
    [[maybe_unused]] const wchar_t* separator = L"";
    ((text_ += separator + Shown(arguments), separator = L","), ...);
    text_ += L");";
  }
  // What was called since the last look.
  std::wstring Taken() { return std::exchange(text_, {}); }

 private:
  static std::wstring Shown(BSTR text) { return text == nullptr ? L"" : text; }
  static std::wstring Shown(_clsButton* button) {
    if (button == nullptr) return L"none";
    Text name;
    button->get_name(name.out());
    return name.str();
  }
  static std::wstring Shown(_clsPage* page) { return page == nullptr ? L"none" : L"clsPage"; }
  static std::wstring Shown(float number) {
    std::wstring text = std::to_wstring(number);
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.') text.pop_back();
    return text;
  }
  template <class T>
  static std::wstring Shown(T number) {
    return std::to_wstring(static_cast<int>(number));
  }

  std::wstring text_;
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class EarlyForm final : public EarlyHost<_IFormSequenceShortcuts>, public ISupportErrorInfo {
 public:
  explicit EarlyForm(CallLog& log) : log_(log) {}

  std::function<void(_clsButton* button)> whenButtonChanges;
  HRESULT answer = S_OK;    // of HideSplashScreen
  bool tellsErrors = true;  // whether it has error information to give
  bool setsTexts = true;    // whether it gives any
  VARIANT_BOOL overwrite = VARIANT_FALSE;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (id != IID_ISupportErrorInfo || !tellsErrors) return EarlyHost::QueryInterface(id, result);
    *result = static_cast<ISupportErrorInfo*>(this);
    ++references;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return EarlyHost::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return EarlyHost::Release(); }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID /*id*/) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE SetButtonGroupPageCaption(LONG* group, BSTR* caption) override {
    return Noted(L"SetButtonGroupPageCaption", *group, *caption);
  }
  HRESULT STDMETHODCALLTYPE RefreshPage(IFSSRefreshEnum* type, LONG* group, _clsButton** button) override {
    return Noted(L"RefreshPage", *type, *group, *button);
  }
  HRESULT STDMETHODCALLTYPE SetFlashing(VARIANT_BOOL* state) override {
    return Noted(L"SetFlashing", *state);
  }
  HRESULT STDMETHODCALLTYPE ShowEditPopup(_clsButton** button) override {
    return Noted(L"ShowEditPopup", *button);
  }
  HRESULT STDMETHODCALLTYPE DisableEditMode() override { return Noted(L"DisableEditMode"); }
  HRESULT STDMETHODCALLTYPE CopyButtonFiles(ButtonTypeEnum* type, BSTR* fromPage, BSTR* fromName,
                                            BSTR* toPage, BSTR* toName, VARIANT_BOOL* deleteSource) override {
    return Noted(L"CopyButtonFiles", *type, *fromPage, *fromName, *toPage, *toName, *deleteSource);
  }
  HRESULT STDMETHODCALLTYPE DeleteButton(_clsButton** button, VARIANT_BOOL* noPrompt) override {
    return Noted(L"DeleteButton", *button, *noPrompt);
  }
  HRESULT STDMETHODCALLTYPE RenameButton(_clsButton** button, LONG* /*controlIndex*/, BSTR* result) override {
    *result = SysAllocString(L"Renamed");
    return Noted(L"RenameButton", *button);
  }
  HRESULT STDMETHODCALLTYPE ButtonStateChanged(_clsButton** button, short* mouseButton, short* shift,
                                               float* x, float* y) override {
    Noted(L"ButtonStateChanged", *button, *mouseButton, *shift, *x, *y);
    if (whenButtonChanges) whenButtonChanges(*button);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE LockStateChanged(_clsButton** button) override {
    return Noted(L"LockStateChanged", *button);
  }
  HRESULT STDMETHODCALLTYPE UpdateFaderUI(IFSSFaderTypeEnum* type, LONG* index, LONG* value) override {
    return Noted(L"UpdateFaderUI", *type, *index, *value);
  }
  HRESULT STDMETHODCALLTYPE FaderModeChanged(_clsButton** button) override {
    return Noted(L"FaderModeChanged", *button);
  }
  HRESULT STDMETHODCALLTYPE HighlightBump(LONG* index, VARIANT_BOOL* state) override {
    return Noted(L"HighlightBump", *index, *state);
  }
  HRESULT STDMETHODCALLTYPE ReleaseButton(_clsButton** button) override {
    return Noted(L"ReleaseButton", *button);
  }
  HRESULT STDMETHODCALLTYPE GoFromSubmaster(_clsButton** button, short* crossFade, float* time,
                                            VARIANT_BOOL* manual) override {
    return Noted(L"GoFromSubmaster", *button, *crossFade, *time, *manual);
  }
  HRESULT STDMETHODCALLTYPE GetUIFaderValues(TUIFaderValues* values) override {
    Noted(L"GetUIFaderValues", values->GroupFaders[0]);
    for (LONG i = 0; i < 8; ++i) {
      values->GroupFaders[i] = 10 * (i + 1);
      values->BumpFaders[i] = i + 1;
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE UpdateFaderModelValue(IFSSFaderTypeEnum* type, LONG* index, LONG* value,
                                                  VARIANT_BOOL* caught, _clsButton** button) override {
    return Noted(L"UpdateFaderModelValue", *type, *index, *value, *caught, *button);
  }
  HRESULT STDMETHODCALLTYPE HideSplashScreen() override;
  HRESULT STDMETHODCALLTYPE CreateMarkFadeButton(_clsButton** button, BSTR* name,
                                                 MarkFadeTypeEnum* type) override {
    return Noted(L"CreateMarkFadeButton", *button, *name, *type);
  }
  HRESULT STDMETHODCALLTYPE PromptButtonOverwrite(BSTR* prompt, VARIANT_BOOL* result) override {
    *result = overwrite;
    return Noted(L"PromptButtonOverwrite", *prompt);
  }

 private:
  template <class... A>
  HRESULT Noted(const wchar_t* name, const A&... arguments) {
    log_.Note(name, arguments...);
    return S_OK;
  }

  CallLog& log_;
};

class EarlyLamps final : public EarlyHost<_ILEDSetter> {
 public:
  explicit EarlyLamps(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE setLED(unsigned char* code, short* bits, VARIANT_BOOL* state) override {
    log_.Note(L"setLED", *code, *bits, *state);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE StartLEDTimer() override {
    log_.Note(L"StartLEDTimer");
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EndLEDTimer() override {
    log_.Note(L"EndLEDTimer");
    return S_OK;
  }

 private:
  CallLog& log_;
};

class EarlyBar final : public EarlyHost<_IRecordEventHandler> {
 public:
  explicit EarlyBar(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE UpdateTimecodeDisplay(LONG* value) override {
    log_.Note(L"UpdateTimecodeDisplay", *value);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE SetTimerEnabled(VARIANT_BOOL* value) override {
    log_.Note(L"SetTimerEnabled", *value);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE TransportStateChanged(TransportStateEnum* state,
                                                  VARIANT_BOOL* recording) override {
    log_.Note(L"TransportStateChanged", *state, *recording);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE NewEventRecorded(_vxEvent** ev) override {
    Pointer<_clsButton> button;
    (*ev)->get_button(button.out());
    log_.Note(L"NewEventRecorded", button.get());
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE CurrentPlayingEvent(_vxEvent** /*ev*/, LONG* index) override {
    log_.Note(L"CurrentPlayingEvent", *index);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE RefreshList() override {
    log_.Note(L"RefreshList");
    return S_OK;
  }

 private:
  CallLog& log_;
};

#pragma GCC diagnostic pop

}  // namespace host
