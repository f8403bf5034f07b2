// A small host in JScript: makes a show, puts buttons on its page, clicks and presses them, and prints every
// callback. Prints examples/transcript.txt.
//
//   cscript //nologo host.js FOLDER    an empty folder for the show and the log
var ButtonType_Sequence = 1, ButtonType_Multi = 2, ButtonType_Auto = 4, ButtonType_None = 999;
var PlayState_On = 1;
var folder = WScript.Arguments(0);
var controller;

function step(text) { WScript.Echo("> " + text); }

// How arguments are printed: numbers in decimal, True or False, a button by its name.
function shown(value) {
  if (value === null) return "none";
  if (typeof value === "boolean") return value ? "True" : "False";
  return typeof value === "object" ? value.name : String(value);
}

// A callback that prints its arguments.
function printing(name) {
  return function () {
    var texts = [];
    for (var i = 0; i < arguments.length; i++) texts.push(shown(arguments[i]));
    WScript.Echo("  " + name + "(" + texts.join(", ") + ")");
  };
}

// The lamps that a call concerns, four hexadecimal digits, lamp 1 the last bit.
function mask(bits) {
  var digits = "000" + (bits & 0xFFFF).toString(16).toUpperCase();
  return digits.substr(digits.length - 4);
}

// The form has every operation: a callback to one that is missing fails.
function nothing() {}
var form = {
  RefreshPage: printing("RefreshPage"),
  SetFlashing: printing("SetFlashing"),
  ShowEditPopup: printing("ShowEditPopup"),
  DisableEditMode: function () {
    printing("DisableEditMode")();
    controller.setModeEditing(false);
  },
  ButtonStateChanged: function (button, mouseButton, shift, x, y) {
    printing("ButtonStateChanged")(button, button.playState === PlayState_On, mouseButton, shift, x, y);
    // This host's policy: a button of groups 1 to 8 that goes on releases the others of its group.
    if (button.playState === PlayState_On) controller.releaseButtonsOnPage(button.groupIndex, ButtonType_None, button);
  },
  UpdateFaderUI: printing("UpdateFaderUI"),
  HighlightBump: printing("HighlightBump"),
  GetUIFaderValues: function (values) {
    printing("GetUIFaderValues")();
    values.GroupFaders(2) = 75; // the others stand at 0
  },
  UpdateFaderModelValue: printing("UpdateFaderModelValue"),
  HideSplashScreen: nothing,
  LockStateChanged: nothing,
  FaderModeChanged: nothing,
  GoFromSubmaster: nothing,
  CopyButtonFiles: nothing,
  DeleteButton: nothing,
  RenameButton: function () { return ""; },
  CreateMarkFadeButton: nothing,
  PromptButtonOverwrite: function () { return false; }
};

var lamps = {
  setLED: function (ledGroupCode, bits, state) { printing("setLED")(ledGroupCode, mask(bits), state); },
  StartLEDTimer: printing("StartLEDTimer"),
  EndLEDTimer: printing("EndLEDTimer")
};

var assignment = { CompleteAssignment: printing("CompleteAssignment") };

function setUp() {
  step("Init");
  new ActiveXObject("Vestrel.VestrelStatic").Init(folder + "\\host.log");
  // This host has no transport bar: the empty one that the library offers does.
  var recorder = new ActiveXObject("Vestrel.clsRecordController");
  recorder.Init(new ActiveXObject("Vestrel.IRecordEventHandler"));
  controller = new ActiveXObject("Vestrel.clsButtonGroupController");
  controller.Init(form, folder, lamps, recorder);
  controller.setButtonGroupPageSize(4);
  step("CreateNewShow");
  controller.CreateNewShow("Gala");
  step("SetPage");
  controller.SetPage("Overture");
}

function putButtons() {
  step("setModeAssign: the operator picks the place of Harbour");
  controller.setModeAssign("Harbour", ButtonType_Sequence, assignment);
  step("controlClicked 33");
  controller.controlClicked(33, 1, 0, 120, 40);
  controller.setModeEditing(false); // the mode outlives the placement
  step("assignButton: Lighthouse, Blackout and Strobe are put in place");
  controller.assignButton(1, 2, "Lighthouse", ButtonType_Multi);
  controller.assignButton(0, 17, "Blackout", ButtonType_Auto);
  controller.assignButton(9, 1, "Strobe", ButtonType_Sequence);
}

function play() {
  step("controlClicked 33");
  controller.controlClicked(33, 1, 0, 120, 40);
  step("controlClicked 34");
  controller.controlClicked(34, 1, 0, 130, 40);
  step("TimerTick: one blink");
  controller.mLEDManager.TimerTick();
  step("ToggleBumpMode of the button at control 17");
  controller.setModeEditing(true);
  controller.controlClicked(17, 1, 0, 0, 0);
  controller.ToggleBumpMode();
  step("controlPressed 17");
  controller.controlPressed(17);
  step("controlReleased 17");
  controller.controlReleased(17);
  step("controlPressed 65, the button of bump fader 1");
  controller.controlPressed(65);
  step("controlReleased 65");
  controller.controlReleased(65);
  step("groupFaderChanged 1 50");
  controller.groupFaderChanged(1, 50);
}

function refuse() {
  step("assignButton at slot 41 of four times ten");
  try {
    controller.assignButton(2, 41, "Nowhere", ButtonType_Sequence);
  } catch (error) {
    WScript.Echo("  error " + (error.number & 0xFFFF) + ": " + error.description);
  }
}

setUp();
putButtons();
play();
refuse();
step("formShutdown");
controller.formShutdown();
step("done");
