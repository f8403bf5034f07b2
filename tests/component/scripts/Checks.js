// Put in front of every JScript suite. A suite's last line is a call of totals: an engine that stops at an error says
// nothing, so a run without that line has failed.
var passedChecks = 0, failedChecks = 0;
var folder = WScript.Arguments(0);

function made(className) { return new ActiveXObject("Vestrel." + className); }

function check(what, holds) {
  if (holds) {
    passedChecks++;
  } else {
    failedChecks++;
    WScript.Echo("FAILED " + what);
  }
}

function equal(what, actual, expected) {
  check(what + ": is " + actual + ", not " + expected, actual === expected);
}

// The platform's own codes for what does not reach an operation. Some engines hand them on, others tell the number.
var ownCodes = { 6: -2147352566, 13: -2147352571, 450: -2147352562 };

// The call must fail with that number and, where given, that description.
function fails(what, call, number, description) {
  try {
    call();
  } catch (error) {
    check(what + ": " + error.number + " not " + number,
      error.number === -2146828288 + number || error.number === ownCodes[number]);
    if (description !== undefined) equal(what, error.description, description);
    return;
  }
  check(what + ": did not fail", false);
}

function totals(suite) {
  WScript.Echo(suite + ": " + passedChecks + " passed, " + failedChecks + " failed");
  WScript.Quit(failedChecks > 0 ? 1 : 0);
}

function boxLong(number) { var box = made("clsLong"); box.value = number; return box; }
function boxString(text) { var box = made("clsString"); box.value = text; return box; }

function values(list) {
  var text = "";
  for (var i = 0; i < list.Size(); i++) text += list.GetItem(i).value + " ";
  return text;
}
