// Handlers by their interfaces themselves, which note their calls, and a host's object that is called through
// whichever door is in use.
#pragma once

#include <vector>

#include "tests/component/host/EarlyForm.h"
#include "tests/component/host/ScriptedHost.h"
#include "tests/component/host/Session.h"

namespace host {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class EarlyListHandler final : public EarlyHost<_IObjListEventHandler> {
 public:
  explicit EarlyListHandler(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE ItemAdded(_clsObjectList** /*list*/, IDispatch** /*item*/, LONG* at,
                                      IDispatch** /*data*/) override {
    log_.Note(L"ItemAdded", *at);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ItemRemoved(_clsObjectList** /*list*/, IDispatch** /*item*/, LONG* from,
                                        IDispatch** /*data*/) override {
    log_.Note(L"ItemRemoved", *from);
    return S_OK;
  }

 private:
  CallLog& log_;
};

class EarlyAssignment final : public EarlyHost<_IAssignmentCallback> {
 public:
  explicit EarlyAssignment(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE CompleteAssignment(VARIANT_BOOL* forceOverwrite) override {
    log_.Note(L"CompleteAssignment", *forceOverwrite);
    return S_OK;
  }

 private:
  CallLog& log_;
};

class EarlyFired final : public EarlyHost<_IVXEventListHandler> {
 public:
  explicit EarlyFired(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE EventFired(_vxEvent** /*ev*/, LONG* index) override {
    log_.Note(L"EventFired", *index);
    return S_OK;
  }

 private:
  CallLog& log_;
};

class EarlyButtonHandler final : public EarlyHost<_IButtonEventHandler> {
 public:
  explicit EarlyButtonHandler(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE PlayStateChanged(_clsButton** button, PSEventSourceEnum* source,
                                             short* mouseButton, short* shift, float* x, float* y,
                                             VARIANT_BOOL* suppressSave) override {
    log_.Note(L"PlayStateChanged", *button, *source, *mouseButton, *shift, *x, *y, *suppressSave);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE LockStateChanged(_clsButton** button) override {
    log_.Note(L"LockStateChanged", *button);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE FaderModeChanged(_clsButton** button) override {
    log_.Note(L"FaderModeChanged", *button);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE FaderValueChanged(_clsButton** button, VARIANT_BOOL* updateUI) override {
    log_.Note(L"FaderValueChanged", *button, *updateUI);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DeferPlaystateFor(_clsPage** page, _clsButton** button, PlayStateEnum* playState,
                                              LONG* faderValue) override {
    log_.Note(L"DeferPlaystateFor", *page, *button, *playState, *faderValue);
    return S_OK;
  }

 private:
  CallLog& log_;
};

class EarlyRecorder final : public EarlyHost<_IRecordController> {
 public:
  explicit EarlyRecorder(CallLog& log) : log_(log) {}
  HRESULT STDMETHODCALLTYPE ButtonPlaystateChanged(_clsButton** button, PSEventSourceEnum* source,
                                                   short* mouseButton, short* shift, float* x,
                                                   float* y) override {
    log_.Note(L"ButtonPlaystateChanged", *button, *source, *mouseButton, *shift, *x, *y);
    return S_OK;
  }

 private:
  CallLog& log_;
};

#pragma GCC diagnostic pop

// By name late bound, by the interface itself through the slots.
template <class Early>
class AnyHost {
 public:
  explicit AnyHost(std::vector<std::wstring> names) : scripted(std::move(names)) {}

  ScriptedHost scripted;

  Value object() { return Late() ? Value(&scripted) : Value(static_cast<IDispatch*>(&early_)); }
  ULONG references() const { return Late() ? scripted.references() : early_.references; }
  // `byName` as the scripted host writes it; `bySlot` as the other does, where that is not the same but for
  // the brackets of objects and the words for truth.
  void Expect(const wchar_t* byName, const wchar_t* bySlot = nullptr) {
    const std::wstring wanted = Late() ? byName : bySlot != nullptr ? bySlot : AsNumbers(byName);
    Checked((L";" + Told()).find(L";" + wanted + L";") != std::wstring::npos, "the host was told",
            Narrow(wanted).c_str(), 0, "but " + Narrow(Told()));
  }

 private:
  static bool Late() { return door == &LateBound(); }
  std::wstring Told() {
    if (!Late()) return told_ += log_.Taken();
    std::wstring all;
    for (const std::wstring& line : scripted.log) all += line + L";";
    return all;
  }
  static std::wstring AsNumbers(const wchar_t* byName) {
    std::wstring result;
    for (const wchar_t unit : std::wstring(byName)) {
      if (unit != L'<' && unit != L'>') result += unit;
    }
    for (const auto& [word, number] : {std::pair(L"True", L"-1"), std::pair(L"False", L"0")}) {
      for (std::size_t at = 0; (at = result.find(word)) != std::wstring::npos;)
        result.replace(at, std::wcslen(word), number);
    }
    return result;
  }

  CallLog log_;
  Early early_{log_};
  std::wstring told_;
};

}  // namespace host
