// A show driven from JScript: form, lamps, bar and assignment are plain script objects.
var calls = "";
function taken() { var all = calls; calls = ""; return all; }
function named(object) { return object === null ? "none" : object.name; }

// An object with an operation of each name, which notes its calls.
function noting(names) {
  var result = { answers: {}, actions: {} };
  for (var i = 0; i < names.length; i++) add(names[i]);
  function add(name) {
    result[name] = function () {
      var texts = [];
      for (var k = 0; k < arguments.length; k++) {
        var argument = arguments[k];
        texts.push(argument !== null && typeof argument === "object" ? named(argument) : String(argument === null ? "none" : argument));
      }
      calls += name + "(" + texts.join() + ");";
      if (result.actions[name]) result.actions[name].apply(null, arguments);
      return result.answers[name];
    };
  }
  return result;
}

var form = noting(["SetButtonGroupPageCaption", "RefreshPage", "SetFlashing", "ShowEditPopup", "DisableEditMode",
  "CopyButtonFiles", "DeleteButton", "RenameButton", "ButtonStateChanged", "LockStateChanged", "UpdateFaderUI",
  "FaderModeChanged", "HighlightBump", "ReleaseButton", "GoFromSubmaster", "UpdateFaderModelValue", "HideSplashScreen",
  "CreateMarkFadeButton", "PromptButtonOverwrite"]);
form.GetUIFaderValues = function (values) { values.GroupFaders(2) = 50; values.BumpFaders(1) = 7; };
var lamps = noting(["setLED", "StartLEDTimer", "EndLEDTimer"]);
var bar = noting(["UpdateTimecodeDisplay", "SetTimerEnabled", "TransportStateChanged", "RefreshList"]);
bar.NewEventRecorded = function (ev) { calls += "NewEventRecorded(" + ev.button.name + "," + ev.eventType + ");"; };
bar.CurrentPlayingEvent = function (ev, index) { calls += "CurrentPlayingEvent(" + ev.button.name + "," + index + ");"; };
var lampsOut = "EndLEDTimer();setLED(245,-1,false);setLED(246,-1,false);setLED(247,-1,false);";

made("VestrelStatic").Init(folder + "\\log.txt");
var recorder = made("clsRecordController");
recorder.Init(bar);
var controller = made("clsButtonGroupController");
controller.Init(form, folder, lamps, recorder);
equal("Init", taken(), lampsOut);
controller.setButtonGroupPageSize(4);
controller.CreateNewShow("Gala");
calls = "";
controller.SetPage("One");
var faders = "";
for (var g = 1; g <= 8; g++) faders += "UpdateFaderModelValue(0," + g + ",0," + (g !== 2) + ",none);";
equal("a page", taken(), faders + lampsOut);

controller.assignButton(1, 1, "Intro", 1);
controller.assignButton(1, 3, "Chase", 2);
equal("assigned", taken(), "setLED(245,1,true);");
var intro = controller.buttonWithIndex(1, 1), returned = {};
controller.controlClicked(33, 1, 0, 2.5, 3.5, 0, true, returned);
equal("a click", taken(), "ButtonStateChanged(Intro,1,0,2.5,3.5);StartLEDTimer();setLED(245,1,false);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);");
check("the button clicked", returned.value === intro);
controller.mLEDManager.TimerTick();
equal("blinking", taken(), "setLED(245,1,true);");
equal("an indexed property", controller.PageManager.CurrentPage.ButtonGroups(1).buttons.Size(), 2);
form.actions.ButtonStateChanged = function (button) {
  if (button.playState === 1) controller.releaseButtonsOnPage(button.groupIndex, 999, button);
};
controller.controlClicked(35, 1, 0, 0, 0);
equal("another, which releases it", taken(), "ButtonStateChanged(Chase,1,0,0,0);ButtonStateChanged(Intro,1,0,0,0);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);RefreshPage(2,0,Intro);");
form.actions.ButtonStateChanged = undefined;
var excluded = { value: null };
controller.releaseButtonsOnPage(-1, 999, excluded);
equal("a placeholder", excluded.value.name, "x");
var before = { value: -3 };
equal("getPrevButton", controller.getPrevButton(1, before).name, "Chase");
equal("by reference", before.value, 999999);
check("an object without a value is zero", controller.getPrevButton(1, {}) === controller.getPrevButton(1, { value: 0 }));
excluded = {};
controller.releaseButtonsOnPage(-1, 999, excluded);
equal("and no button", excluded.value.name, "x");
var blank = {};
equal("and an empty name", intro.Copy(blank).name, "Intro");
equal("which it gets", blank.value, "Intro");
calls = "";
controller.groupFaderChanged(1, 40);
equal("a fader", taken(), "UpdateFaderModelValue(0,1,40,true,none);GoFromSubmaster(Intro,0,0,false);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);");

controller.setModeAssign("Harbour", 1, noting(["CompleteAssignment"]));
controller.autoAssignNextAvailable(2);
equal("an assignment", taken(), "SetFlashing(true);CompleteAssignment(false);setLED(245,2,true);SetFlashing(false);RefreshPage(1,2,none);");
form.answers.PromptButtonOverwrite = true;
controller.setModeAssign("Harbour", 4, noting(["CompleteAssignment"]));
check("overwritten", taken().indexOf("CompleteAssignment(true);") > 0);
equal("by the new type", controller.buttonWithIndex(2, 1).buttonType, 4);

recorder.Record();
controller.controlClicked(37, 1, 0, 0, 0);
check("recorded", taken().indexOf("NewEventRecorded(Harbour,0);") > 0);
recorder.Stop_();
equal("stopped", taken(), "UpdateTimecodeDisplay(0);SetTimerEnabled(false);TransportStateChanged(0,false);");
equal("one event", recorder.EventList.Size(), 1);
controller.buttonWithIndex(2, 1).setPlayState(0, 0, 1, 0, 0, 0);
recorder.Play();
calls = "";
recorder.updateEventTime(0, -5);
recorder.SeekToEventIndex(0);
equal("no seek while it plays", taken(), "RefreshList();");
recorder.Stop_();
recorder.SaveEventsTo(folder + "\\events.txt");
recorder.LoadEventsFrom(folder + "\\events.txt", controller.GetButtonMap());
equal("saved and loaded", recorder.EventList.GetItem(0).time, -5);

var handlerCalls = "", button = made("clsButton");
button.Init({
  PlayStateChanged: function (b, source, mouse, shift, x, y, suppressSave) {
    handlerCalls += [b === button, source, mouse, shift, x, y, suppressSave].join() + ";";
  },
  LockStateChanged: function (b) { handlerCalls += "lock " + b.Locked + ";"; },
  FaderModeChanged: function (b) { throw new Error(-2146828288 + 55, "on purpose"); },
  DeferPlaystateFor: function (page, b, state, value) { handlerCalls += "defer " + [page, b === button, state, value].join() + ";"; }
}, null);
button.setPlayState(1, 2, 1, 3, 2.5, 3.5);
button.setPlayState(0, 0, 1, 0, 0, 0, false, true);
button.Locked = true;
equal("a handler of the script's", handlerCalls, "true,2,1,3,2.5,3.5,false;true,0,1,0,0,0,true;lock true;");
fails("a handler that throws", function () { button.FaderMode = 1; }, 55);
var ini = made("clsIniFile");
ini.UseFile(folder + "\\button.ini");
ini.WriteString("fields", "Intro|1|1|0|0|100|False");
handlerCalls = "";
button.loadFromINI(ini, 1, 2);
equal("a deferred state", handlerCalls, "defer ,true,1,100;");

fails("number 0", function () { controller.assignButton(10, 1, "x", 1); }, 0, "10 - invalid group: clsButtonGroupController.assignButton()");
fails("number 1", function () { controller.assignButton(2, 41, "x", 1); }, 1, "41 - invalid buttonIndex: clsButtonGroupController.assignButton()");
form.actions.HideSplashScreen = function () { throw new Error(-2146828288 + 777, "on purpose"); };
fails("a callback that throws", function () { controller.HideSplashScreen(); }, 777);
form.actions.ButtonStateChanged = form.actions.HideSplashScreen;
calls = "";
intro.click(1, 0, 0, 0);
equal("one whose failure is caught", taken(), "ButtonStateChanged(Intro,1,0,0,0);");
form.actions.ButtonStateChanged = undefined;

var own = made("UIFaderValues");
controller.GetUIFaderValues(own);
equal("faders", own.GroupFaders(2), 50);
var held = {};
controller.GetUIFaderValues(held);
equal("faders into an object without a value", held.value.GroupFaders(2), 50);
held.value.GroupFaders(5) = 61;
controller.GetUIFaderValues(held);
equal("and what that holds is handed in", held.value.GroupFaders(5), 61);
fails("a list is no row of faders", function () { controller.GetUIFaderValues(made("clsObjectList")); }, 13);
own.GroupFaders(3) = 12;
equal("an indexed property is written", own.GroupFaders(3), 12);
fails("fader 9", function () { own.BumpFaders(9) = 1; }, 9);
controller.formShutdown();
totals("show.js");
