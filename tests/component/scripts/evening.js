// Plays the commands of the sample evening with the component server: a whole host in JScript - form, lamps, transport
// bar, stage, item files, timers and a clock of its own - and a reader of the command language, as far as the evening
// uses it. Prints what the workbench prints.
//   evening.js DATA COMMANDS      a folder with the sample shows, and the file with the commands
var files = new ActiveXObject("Scripting.FileSystemObject");
var stagehand = new ActiveXObject("VestrelTests.Stagehand");

// ---- Printing ----

function line(text) { WScript.Echo(text); }
function quoted(text) { return '"' + text.replace(/\r/g, "").replace(/\n/g, " ").replace(/"/g, '""') + '"'; }
function buttonText(button) {
  return button === null ? "none" : button.name + "@" + button.groupIndex + "/" + button.buttonIndex;
}
function eventText(ev) { return buttonText(ev.button) + (ev.eventType === 1 ? " off at " : " on at ") + ev.time; }
function listText(list, itemText) {
  var texts = [];
  for (var i = 0; i < list.Size(); i++) texts.push(itemText(list.GetItem(i)));
  return "[" + texts.join(", ") + "]";
}
function pageText(page) { return "page " + quoted(page.pageName); }
function boxedText(box) { return quoted(box.value); }
function sequenceText(sequence) { return "sequence " + quoted(sequence.theName); }
function faderRow(name, values) { return name + " " + values.slice(1).join(" "); }

function called(name, parts, note) { line("  " + name + "(" + parts.join(", ") + ")" + (note || "")); }
function acted(name, parts) { line("  host: " + name + "(" + parts.join(", ") + ")"); }

// ---- Enumerations, by the names of their members ----

var members = {
  ButtonType: { 1: "Sequence", 2: "Multi", 3: "Timeline", 4: "Auto", 999: "None" },
  PlayState: { 0: "Off", 1: "On", 999: "Null" },
  FaderMode: { 0: "Dimmer", 1: "Speed", 2: "Proportional" },
  BumpMode: { 0: "Off", 1: "On" },
  PSEventSource: { 0: "User", 1: "AutoRelease", 2: "RecPlayback" },
  Highlight: { 0: "First", 1: "Prev", 2: "Next", 3: "NextAfter" },
  PageDir: { 0: "Prev", 1: "Next" },
  MarkFadeType: { 0: "Mark", 1: "Fade" },
  IFSSRefresh: { 0: "EntirePage", 1: "Group", 2: "Control", 3: "EntirePageNonGUI" },
  FaderType: { 0: "Group", 1: "BumpFader" },
  RecordMode: { 0: "Overwrite", 1: "Merge" }
};
var transportStates = ["Stopped", "playing", "Paused"];
function memberText(stem, value) { return stem + "_" + members[stem][value]; }
function memberValue(word) {
  var parts = word.split("_");
  for (var value in members[parts[0]]) {
    if (members[parts[0]][value] === parts[1]) return Number(value);
  }
  throw new Error("unknown member " + word);
}

// ---- The host ----

var helper = made("VestrelStatic"), recorder = made("clsRecordController");
var controller = made("clsButtonGroupController"), multi = made("clsMultiFile");
var now = 1000000, pageSize = -1, showName = "", releaseOnPlay = false;
var answers = { PromptButtonOverwrite: false, RenameButton: "", DeleteButton: true };
var hands = { groups: [0, 0, 0, 0, 0, 0, 0, 0, 0], bumps: [0, 0, 0, 0, 0, 0, 0, 0, 0] };

function currentPage() { return controller.PageManager.CurrentPage; }

// The items that play, in the order in which they were started.
var stage = {
  items: [],
  find: function (button) {
    for (var i = 0; i < this.items.length; i++) {
      if (this.items[i].button === button) return i;
    }
    return -1;
  },
  follow: function (button) {
    var at = this.find(button);
    if (at >= 0) this.items.splice(at, 1);
    if (button.playState === 1) {
      this.items.push({ button: button, level: button.triggeredDimmerValue, goes: 0, startedAt: now });
    }
  },
  setLevel: function (button, level) {
    var at = this.find(button);
    if (at >= 0) this.items[at].level = level;
  },
  setGroupLevel: function (group, level) {
    var buttons = controller.getButtons(group);
    for (var i = 0; i < buttons.Size(); i++) this.setLevel(buttons.GetItem(i), level);
  }
};

// The files of a button's item.
var itemFiles = {
  extensions: { 1: ["ASQ", "BMP", "UQF"], 2: ["MUL"], 3: ["TLN"], 4: ["AUT"] },
  path: function (page, name, extension) {
    return folder + "\\Sequences\\" + showName + "\\" + page + "\\" + name + "." + extension;
  },
  each: function (type, page, name, act) {
    var extensions = this.extensions[type] || [];
    for (var i = 0; i < extensions.length; i++) {
      var source = this.path(page, name, extensions[i]);
      if (files.FileExists(source)) act(source, extensions[i]);
    }
  },
  copy: function (type, page, name, toPage, toName) {
    this.each(type, page, name, function (source, extension) {
      files.CopyFile(source, itemFiles.path(toPage, toName, extension), true);
    });
  },
  move: function (type, page, name, toPage, toName) {
    this.each(type, page, name, function (source, extension) {
      files.MoveFile(source, itemFiles.path(toPage, toName, extension));
    });
  },
  remove: function (type, page, name) {
    this.each(type, page, name, function (source) { files.DeleteFile(source); });
  }
};

// Tells every button whether a control shows it, and which.
function layOut() {
  if (pageSize < 1) return;
  controller.resetVisibility();
  for (var group = 0; group <= 9; group++) {
    var shown = controller.getVisibleGroupButtons(group);
    for (var i = 0; i < shown.Size(); i++) {
      var button = shown.GetItem(i);
      button.isVisible = true;
      if (group <= 8) {
        button.controlIndex = helper.controlIndexFromButtonIndex(pageSize, group, button.buttonIndex);
      }
    }
  }
}

var form = {
  SetButtonGroupPageCaption: function (group, caption) {
    called("SetButtonGroupPageCaption", [group, quoted(caption)]);
  },
  RefreshPage: function (type, group, button) {
    called("RefreshPage", [memberText("IFSSRefresh", type), group, buttonText(button)]);
    if (type !== 2) layOut();
  },
  SetFlashing: function (state) { called("SetFlashing", [state]); },
  ShowEditPopup: function (button) { called("ShowEditPopup", [buttonText(button)]); },
  DisableEditMode: function () {
    called("DisableEditMode", []);
    acted("setModeEditing", ["false"]);
    controller.setModeEditing(false);
  },
  CopyButtonFiles: function (type, page, name, toPage, toName, deleteSource) {
    called("CopyButtonFiles", [memberText("ButtonType", type), quoted(page), quoted(name), quoted(toPage),
      quoted(toName), deleteSource]);
    if (deleteSource) {
      itemFiles.move(type, page, name, toPage, toName);
    } else {
      itemFiles.copy(type, page, name, toPage, toName);
    }
  },
  DeleteButton: function (button, noPrompt) {
    var deletes = noPrompt || answers.DeleteButton;
    called("DeleteButton", [buttonText(button), noPrompt], noPrompt ? "" : " -> " + deletes);
    if (deletes) itemFiles.remove(button.buttonType, controller.PageManager.CurrentPageName, button.name);
  },
  RenameButton: function (button, controlIndex) {
    var page = controller.PageManager.CurrentPageName;
    called("RenameButton", [buttonText(button), controlIndex], " -> " + quoted(answers.RenameButton));
    if (answers.RenameButton !== "") {
      itemFiles.move(button.buttonType, page, button.name, page, answers.RenameButton);
    }
    return answers.RenameButton;
  },
  ButtonStateChanged: function (button, mouseButton, shift, x, y) {
    called("ButtonStateChanged", [buttonText(button), mouseButton, shift, x, y]);
    stage.follow(button);
    if (button.playState !== 1 || !releaseOnPlay) return;
    acted("releaseButtonsOnPage", [button.groupIndex, "ButtonType_None", buttonText(button)]);
    controller.releaseButtonsOnPage(button.groupIndex, 999, button);
  },
  LockStateChanged: function (button) { called("LockStateChanged", [buttonText(button)]); },
  UpdateFaderUI: function (type, index, value) {
    called("UpdateFaderUI", [memberText("FaderType", type), index, value]);
  },
  FaderModeChanged: function (button) { called("FaderModeChanged", [buttonText(button)]); },
  HighlightBump: function (index, state) { called("HighlightBump", [index, state]); },
  ReleaseButton: function (button) { called("ReleaseButton", [buttonText(button)]); },
  GoFromSubmaster: function (button, crossFade, overRideTime, manualCrossfade) {
    called("GoFromSubmaster", [buttonText(button), crossFade, overRideTime, manualCrossfade]);
    if (button.playState === 1) {
      stage.items[stage.find(button)].goes++;
      return;
    }
    acted("setPlayState", [buttonText(button), "PlayState_On", "PSEventSource_User"]);
    button.setPlayState(1, 0, 1, 0, 0, 0);
  },
  GetUIFaderValues: function (values) {
    for (var i = 1; i <= 8; i++) {
      values.GroupFaders(i) = hands.groups[i];
      values.BumpFaders(i) = hands.bumps[i];
    }
    called("GetUIFaderValues", [faderRow("groups", hands.groups) + " " + faderRow("bumps", hands.bumps)]);
  },
  UpdateFaderModelValue: function (type, index, value, caught, button) {
    called("UpdateFaderModelValue", [memberText("FaderType", type), index, value, caught, buttonText(button)]);
    if (button !== null) {
      stage.setLevel(button, value);
    } else if (type === 0) {
      stage.setGroupLevel(index, value);
    }
  },
  HideSplashScreen: function () { called("HideSplashScreen", []); },
  CreateMarkFadeButton: function (button, originalName, type) {
    var page = controller.PageManager.CurrentPageName;
    called("CreateMarkFadeButton", [buttonText(button), quoted(originalName), memberText("MarkFadeType", type)]);
    itemFiles.copy(button.buttonType, page, originalName, page, button.name);
  },
  PromptButtonOverwrite: function (promptText) {
    called("PromptButtonOverwrite", [quoted(promptText)], " -> " + answers.PromptButtonOverwrite);
    return answers.PromptButtonOverwrite;
  }
};

var lamps = {
  lit: [0, 0, 0],
  text: function (row, bits) {
    var text = "";
    for (var lamp = 0; lamp < (row === 0 ? 8 : 16); lamp++) text += bits >> lamp & 1 ? "#" : ".";
    return text;
  },
  setLED: function (code, bits, state) {
    var row = code - 245, mask = bits & 0xFFFF;
    lamps.lit[row] = state ? lamps.lit[row] | mask : lamps.lit[row] & ~mask;
    called("setLED", [code, lamps.text(row, mask)], state ? " on" : " off");
  },
  StartLEDTimer: function () { called("StartLEDTimer", []); blink.start(); },
  EndLEDTimer: function () { called("EndLEDTimer", []); blink.running = false; }
};

var bar = {
  timecode: 0, state: 0, recording: false,
  UpdateTimecodeDisplay: function (value) { bar.timecode = value; called("UpdateTimecodeDisplay", [value]); },
  SetTimerEnabled: function (value) {
    called("SetTimerEnabled", [value]);
    if (value) transport.start(); else transport.running = false;
  },
  TransportStateChanged: function (state, recording) {
    bar.state = state;
    bar.recording = recording;
    called("TransportStateChanged", [transportStates[state], recording]);
  },
  NewEventRecorded: function (ev) { called("NewEventRecorded", [eventText(ev)]); },
  CurrentPlayingEvent: function (ev, index) { called("CurrentPlayingEvent", [eventText(ev), index]); },
  RefreshList: function () { called("RefreshList", []); }
};

// ---- Time ----

function Timer(interval, tick) { this.interval = interval; this.tick = tick; this.running = false; this.due = 0; }
Timer.prototype.start = function () {
  if (this.running) return;
  this.running = true;
  this.due = now + this.interval;
};
var blink = new Timer(500, function () { controller.mLEDManager.TimerTick(); });
var transport = new Timer(50, function () { recorder.TimerTick(); });

function goOnTo(time) { now = time; stagehand.Now = time; }
function nextTimer(until) {
  var blinks = blink.running && blink.due <= until, moves = transport.running && transport.due <= until;
  if (blinks && (!moves || blink.due <= transport.due)) return blink;
  return moves ? transport : null;
}
function advance(milliseconds) {
  var until = now + milliseconds, timer;
  while ((timer = nextTimer(until)) !== null) {
    goOnTo(timer.due);
    timer.due += timer.interval;
    timer.tick();
  }
  goOnTo(until);
}

// ---- Commands. Each answers the lines that show its results. ----

function result(text) { return ["= " + text]; }
function truth(value) { return result(value ? "true" : "false"); }
function faderText(hand, fader) {
  return "hand " + hand + ", stored " + fader.value + (fader.Engaged ? ", caught" : ", waiting");
}

var states = {
  show: function () {
    var pages = controller.PageManager;
    return ["show = " + quoted(pages.showName), "pages = " + listText(pages.PageList, pageText),
      "current = " + quoted(pages.CurrentPageName)];
  },
  page: function () {
    var page = currentPage(), lines = ["page = " + quoted(page.pageName)];
    for (var i = 0; i <= 9; i++) lines.push("group " + i + " = " + listText(page.ButtonGroups(i).buttons, buttonText));
    return lines;
  },
  group: function (index) {
    var group = currentPage().ButtonGroups(index);
    return ["buttons = " + listText(group.buttons, buttonText),
      "nowPlaying = " + listText(group.nowPlayingList, buttonText),
      "highlighted = " + buttonText(group.highlightedButton), "pageOffset = " + group.pageOffset,
      "fader = " + group.Fader.value, "engaged = " + group.Fader.Engaged];
  },
  button: function (button) {
    return ["name = " + quoted(button.name), "buttonType = " + memberText("ButtonType", button.buttonType),
      "playState = " + memberText("PlayState", button.playState), "BumpMode = " + memberText("BumpMode", button.BumpMode),
      "FaderMode = " + memberText("FaderMode", button.FaderMode), "faderValue = " + button.faderValue,
      "Locked = " + button.Locked, "isHighlighted = " + button.isHighlighted, "isVisible = " + button.isVisible,
      "controlIndex = " + button.controlIndex, "triggeredDimmerValue = " + button.triggeredDimmerValue];
  },
  lamps: function () {
    return ["go = " + lamps.text(0, lamps.lit[0]), "top 1 to 16 = " + lamps.text(1, lamps.lit[1]),
      "top 17 to 32 = " + lamps.text(2, lamps.lit[2])];
  },
  faders: function () {
    var lines = [], i;
    for (i = 1; i <= 8; i++) {
      lines.push("group " + i + " = " + faderText(hands.groups[i], currentPage().ButtonGroups(i).Fader));
    }
    for (i = 1; i <= 8; i++) {
      var button = controller.buttonWithIndex(9, i);
      if (button !== null) lines.push("bump " + i + " = " + faderText(hands.bumps[i], button.Fader));
    }
    return lines;
  },
  items: function () {
    var lines = [];
    for (var i = 0; i < stage.items.length; i++) {
      var item = stage.items[i];
      lines.push(buttonText(item.button) + " = level " + item.level + " for " + (now - item.startedAt) / 1000 + " s" +
        (item.goes > 0 ? ", " + item.goes + " goes" : ""));
    }
    return lines;
  },
  transport: function () {
    return ["timecode = " + quoted(recorder.msToTimecode(bar.timecode)), "state = " + transportStates[bar.state],
      "recording = " + bar.recording, "events = " + recorder.EventList.Size()];
  }
};

function released(group, type, button) {
  if (button === undefined) {
    controller.releaseButtonsOnPage(group);
    return [];
  }
  var excluded = { value: button };
  controller.releaseButtonsOnPage(group, type, excluded);
  return ["excludeButton = " + buttonText(excluded.value)];
}

function sequence(words) {
  var fields = ["theName", "myMulti", "myPlayback", "myButtonGroup", "releaseActive", "isRunning", "timeBool", "beatBool",
    "theBeat", "theTime", "mySequenceType", "currentX", "currentY", "tag", "seqType"];
  var made_ = made("clsSequence");
  for (var i = 0; i < words.length; i++) {
    if (words[i] === null) continue;
    made_[fields[i]] = words[i] === "true" ? true : words[i];
  }
  return made_;
}

function timecode(text) {
  var holder = { value: 0 };
  return truth(recorder.timecodeToMS(text, holder)).concat("result = " + holder.value);
}

// Kinds of arguments: n number, s text, m member of an enumeration, t truth, b button, p path in the data folder.
// Operations without an entry take no word and are the controller's of that name.
var operations = {
  "wait": ["n", function (ms) { advance(ms); }],
  "host.group": ["nn", function (i, value) { hands.groups[i] = value; controller.groupFaderChanged(i, value); }],
  "host.bump": ["nn", function (i, value) { hands.bumps[i] = value; controller.BumpFaderChanged(i, value, true); }],
  "host.answer": ["ss", function (dialog, answer) { answers[dialog] = dialog === "RenameButton" ? answer : answer === "yes"; }],
  "host.policy": ["st", function (policy, state) { releaseOnPlay = state; }],
  "host.interval": ["sn", function (timer, ms) { (timer === "blink" ? blink : transport).interval = ms; }],
  "state.show": ["", states.show], "state.page": ["", states.page], "state.group": ["n", states.group],
  "state.button": ["b", states.button], "state.lamps": ["", states.lamps], "state.faders": ["", states.faders],
  "state.items": ["", states.items], "state.transport": ["", states.transport],
  "button.press": ["b", function (button) { button.press(); }],
  "button.release": ["b", function (button) { button.release(); }],
  "button.setPlayState": ["bm", function (button, state) { button.setPlayState(state, 0, 1, 0, 0, 0); }],
  "record.EventList": ["", function () { return result(listText(recorder.EventList, eventText)); }],
  "record.Play": ["", function () { recorder.Play(); }],
  "record.Record": ["", function () { recorder.Record(); }],
  "record.Stop_": ["", function () { recorder.Stop_(); }],
  "record.ClearEvents": ["", function () { recorder.ClearEvents(); }],
  "record.SetRecordMode": ["m", function (mode) { recorder.SetRecordMode(mode); }],
  "record.SaveEventsTo": ["p", function (path) { recorder.SaveEventsTo(path); }],
  "record.LoadEventsFrom": ["p", function (path) { recorder.LoadEventsFrom(path, controller.GetButtonMap()); }],
  "record.SeekToEventIndex": ["n", function (index) { recorder.SeekToEventIndex(index); }],
  "record.updateEventTime": ["nn", function (index, time) { recorder.updateEventTime(index, time); }],
  "record.timecodeToMS": ["s", timecode],
  "record.msToTimecode": ["n", function (ms) { return result(quoted(recorder.msToTimecode(ms))); }],
  "multi.Init": ["psss", function (path, show, page, button) { multi.Init(path, show, page, button); }],
  "multi.Load": ["", function () { multi.Load(); }],
  "multi.Save": ["", function () { multi.Save(); }],
  "multi.Delete": ["", function () { multi.Delete(); }],
  "multi.SequenceList": ["", function () { return result(listText(multi.SequenceList, sequenceText)); }],
  "multi.AddSequence": ["sssssssssssssss", function () { multi.AddSequence(sequence(arguments)); }],
  "setButtonGroupPageSize": ["n", function (size) { pageSize = size; controller.setButtonGroupPageSize(size); }, layOut],
  "LoadShow": ["s", function (name) { showName = name; controller.LoadShow(name); }, layOut],
  "AddPage": ["s", function (name) { controller.AddPage(name); }, layOut],
  "SetPage": ["s", function (name) { controller.SetPage(name); }, layOut],
  "DeletePage": ["s", function (name) { controller.DeletePage(name); }, layOut],
  "clearAll": ["", function () { controller.clearAll(); }, layOut],
  "changeButtonGroupPageOffset": ["nm", function (group, direction) {
    return truth(controller.changeButtonGroupPageOffset(group, direction));
  }, layOut],
  "RenamePage": ["ss", function (from, to) { controller.RenamePage(from, to); }],
  "GetPageNames": ["", function () { return result(listText(controller.GetPageNames(), boxedText)); }],
  "controlClicked": ["nnnnn", function (control, mouse, shift, x, y) { controller.controlClicked(control, mouse, shift, x, y); }],
  "controlPressed": ["n", function (control) { controller.controlPressed(control); }],
  "controlReleased": ["n", function (control) { controller.controlReleased(control); }],
  "releaseButtonsOnPage": ["nmb", released],
  "buttonGroupGo": ["nnnt", function (group, crossFade, time, manual) {
    if (crossFade === undefined) controller.buttonGroupGo(group);
    else controller.buttonGroupGo(group, crossFade, time, manual);
  }],
  "ToggleButtonAt": ["nn", function (group, index) { return truth(controller.ToggleButtonAt(group, index)); }],
  "getVisibleGroupButtons": ["n", function (group) {
    return result(listText(controller.getVisibleGroupButtons(group), buttonText));
  }],
  "buttonAtControlIndex": ["n", function (control) { return result(buttonText(controller.buttonAtControlIndex(control))); }],
  "getHighlightedButton": ["n", function (group) { return result(buttonText(controller.getHighlightedButton(group))); }],
  "highlightButton": ["nm", function (group, direction) { controller.highlightButton(group, direction); }],
  "assignButton": ["nnsm", function (group, slot, name, type) { controller.assignButton(group, slot, name, type); }],
  "removeButton": ["b", function (button) { controller.removeButton(button); }],
  "setModeAssign": ["sm", function (name, type) {
    controller.setModeAssign(name, type, { CompleteAssignment: function (force) { called("CompleteAssignment", [force]); } });
  }],
  "autoAssignNextAvailable": ["n", function (group) { controller.autoAssignNextAvailable(group); }],
  "setModeEditing": ["t", function (enabled) { controller.setModeEditing(enabled); }],
  "setModeAdjFadeInOut": ["", function () { return result(buttonText(controller.setModeAdjFadeInOut())); }],
  "AssignMarkFade": ["m", function (type) { controller.AssignMarkFade(type); }],
  "ChangeFaderMode": ["m", function (mode) { controller.ChangeFaderMode(mode); }],
  "HideSplashScreen": ["", function () { controller.HideSplashScreen(); }],
  "PushCurrentGroupFaderValues": ["", function () { controller.PushCurrentGroupFaderValues(); }],
  "formLostFocus": ["", function () { controller.formLostFocus(); }],
  "formGotFocus": ["", function () { controller.formGotFocus(); }],
  "formShutdown": ["", function () { controller.formShutdown(); }],
  "RefocusCurrentPage": ["", function () { controller.RefocusCurrentPage(); }],
  "RenameButton": ["", function () { controller.RenameButton(); }],
  "ToggleLockState": ["", function () { controller.ToggleLockState(); }],
  "ToggleBumpMode": ["", function () { controller.ToggleBumpMode(); }],
  "setModeCopy": ["", function () { controller.setModeCopy(); }],
  "setModeMove": ["", function () { controller.setModeMove(); }],
  "CancelEditMode": ["", function () { controller.CancelEditMode(); }],
  "beginEditCue": ["", function () { controller.beginEditCue(); }],
  "DeleteButton": ["", function () { controller.DeleteButton(); }]
};

function readWord(word, kind) {
  if (kind === "n") return Number(word);
  if (kind === "m") return memberValue(word);
  if (kind === "t") return word === "true" || word === "on" || word === "yes";
  if (kind === "p") return word === "." ? folder : folder + "\\" + word;
  if (kind === "b") {
    var parts = word.substr(1).split("/");
    return controller.buttonWithIndex(Number(parts[0]), Number(parts[1]));
  }
  return word;
}

// The words of a command; null for "-".
function split(command) {
  var words = [], pattern = /"((?:[^"]|"")*)"|[^ "]+/g, match;
  while ((match = pattern.exec(command)) !== null) {
    if (match[0].charAt(0) === '"') {
      words.push(match[0].substr(1, match[0].length - 2).replace(/""/g, '"'));
    } else {
      words.push(match[0] === "-" ? null : match[0]);
    }
  }
  return words;
}

function perform(command) {
  line("> " + command);
  var words = split(command), operation = operations[words[0]], read = [];
  for (var i = 1; i < words.length; i++) {
    read.push(words[i] === null ? null : readWord(words[i], operation[0].charAt(i - 1)));
  }
  var lines = operation[1].apply(null, read);
  if (operation[2]) operation[2]();
  for (var k = 0; lines && k < lines.length; k++) line("  " + lines[k]);
}

function play() {
  stagehand.Attach();
  stagehand.MessageBox = function (text, caption) {
    line("  message box [" + caption + "]: " + text.replace(/\r/g, "").replace(/\n/g, " "));
  };
  goOnTo(now);
  // What the start itself calls is not part of the evening.
  var print = line;
  line = function () {};
  helper.Init(folder + "\\vestrel.log");
  recorder.Init(bar);
  controller.Init(form, folder, lamps, recorder);
  line = print;
  var commands = files.OpenTextFile(WScript.Arguments(1), 1);
  while (!commands.AtEndOfStream) {
    var text = commands.ReadLine();
    if (text === "" || text.charAt(0) === "#") line(text); else perform(text);
  }
  commands.Close();
}

play();
