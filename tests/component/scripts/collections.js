// The collections, helpers and files from JScript, which has no by-reference arguments: an object that is passed in the
// place of one gets its value property set.

function lists() {
  var list = made("clsObjectList"), first = boxLong(3), found = {};
  equal("AddItem", list.AddItem(first), 0);
  list.AddItem(boxLong(1));
  equal("AddItemBefore", list.AddItemBefore(boxLong(2), 0), 0);
  equal("the order", values(list), "2 3 1 ");
  check("the same object", list.GetItem(1) === first);
  equal("found", list.FindObject(first), 1);
  equal("an equal one is not", list.FindObject(boxLong(3)), -1);
  equal("but by value", list.FindObjectValue(boxLong(3)), 1);
  list.SortInPlace();
  equal("sorted", values(list), "1 2 3 ");
  var comparator = { value: null };
  list.SortInPlace(comparator, true);
  equal("an object for the comparator, in reverse", values(list), "3 2 1 ");
  check("its value is the comparator made", comparator.value !== null && comparator.value.Reverse === true);
  equal("joined", made("VestrelStatic").ListFromSplitString("a|b||c", "|").JoinStrings("-"), "a-b--c");
  equal("an array comes back", new VBArray(list.AsArray()).ubound(1), 2);
  check("its element", new VBArray(list.AsArray()).getItem(2).value === 1);
  var blank = {};
  list.SortInPlace(blank);
  equal("an object without a value for the comparator", values(list), "1 2 3 ");
  check("gets the one made", blank.value.Reverse === false);
  fails("a list is no comparator", function () { list.SortInPlace(made("clsObjectList")); }, 13);
  fails("AsArray of nothing", function () { made("clsObjectList").AsArray(); }, 9);
}

function iterators() {
  var list = made("VestrelStatic").ListFromSplitString("one,two", ","), text = {}, number = { value: 5 }, item = {};
  var iter = list.BeginIter();
  check("hasNextString", iter.hasNextString(text));
  equal("its value", text.value, "one");
  check("hasNextWithIndex", iter.hasNextWithIndex(number));
  equal("the position", number.value, 1);
  iter.resetIter();
  check("hasNextObject", iter.hasNextObject(item));
  equal("the object", item.value.value, "one");
  iter.hasNext();
  text.value = "kept";
  check("the end", !iter.hasNextString(text));
  equal("nothing was written", text.value, "kept");
  fails("iterValue past the end", function () { iter.iterValue(); }, 9);
  equal("IterIndex", iter.IterIndex, 2);
  list = made("clsObjectList");
  list.AddItem(boxLong(41));
  list.BeginIter().hasNextLong(number);
  equal("hasNextLong", number.value, 41);
  var box = boxLong(0), textBox = boxString("");
  list.BeginIter().hasNextLong(box);
  equal("into a box of the library's", box.value, 41);
  list.BeginIter().hasNextLong(textBox);
  equal("a number into a box for text", textBox.value, "41");
}

function ownObjects() {
  var asked = "";
  function Piece(weight) {
    this.weight = weight;
    this.CompareTo = function (other, field) { asked += field + " "; return weight - other.weight; };
    this.FieldCompare = function (name, value) { asked += name + "=" + value + " "; return value === weight ? 0 : 1; };
  }
  var list = made("clsObjectList"), a = new Piece(3), b = new Piece(1), c = new Piece(2);
  list.AddItem(a); list.AddItem(b); list.AddItem(c);
  check("the script's object comes back", list.GetItem(0) === a);
  equal("found by identity", list.FindObject(c), 2);
  list.SortInPlace();
  check("sorted through CompareTo", list.GetItem(0) === b && list.GetItem(1) === c && list.GetItem(2) === a);
  check("with the default field", asked.indexOf("all ") === 0);
  asked = "";
  equal("FieldCompare", list.FindFieldValue("weight", 3), 2);
  equal("asked in order", asked, "weight=3 weight=3 weight=3 ");
  var numbers = made("clsObjectList");
  for (var i = 1; i <= 5; i++) numbers.AddItem(boxLong(i * 7));
  equal("a predicate", values(numbers.Filter({ IsTrueFor: function (obj) { return obj.value % 2 === 0; } })), "14 28 ");
  numbers.SortInPlace({ Compare: function (x, y) { return x.value % 10 - y.value % 10; } });
  equal("a comparator", values(numbers), "21 14 35 7 28 ");
  var seen = "", data = { name: "data" };
  numbers.SetEventHandler({
    ItemAdded: function (l, item, at, userData) { seen += "+" + item.value + "@" + at + userData.name + (l === numbers); },
    ItemRemoved: function (l, item, from, userData) { seen += "-" + item.value + "@" + from + userData.name; }
  }, data);
  numbers.AddItem(boxLong(1));
  numbers.Remove(0);
  equal("an observer", seen, "+1@5datatrue-21@0data");
  var map = made("clsDictionary");
  map.Add("Key", a);
  check("a dictionary", map.ValueOf("KEY") === a && map.HasKey("key") && map.ValueOf("no", b) === b);
  check("a missing key", map.ValueOf("no") === null);
  equal("its keys", map.KeyList.JoinStrings(","), "Key");
  var event = made("vxEvent"), button = made("clsButton");
  event.button = button;
  check("an object property", event.button === button);
  fails("a host's object is no button", function () { event.Init(1, a, 0); }, 13);
  fails("what a script throws", function () {
    numbers.Filter({ IsTrueFor: function () { throw new Error(-2146827287, "on purpose"); } });
  }, 1001);
}

function helpers() {
  var helper = made("VestrelStatic");
  fails("the log before Init", function () { helper.Log("x"); }, 91);
  helper.Init(folder + "\\log.txt");
  equal("OneBasedMod", helper.OneBasedMod(5, 4), 1);
  equal("a text for a number", helper.OneBasedMod("5", "4"), 1);
  equal("Basename", helper.Basename("C:\\a\\b.txt"), "b.txt");
  equal("Basename with a delimiter", helper.Basename("a/b", "/"), "b");
  equal("a list from an array", helper.StringListFrom(["a", 1, true]).JoinStrings("/"), "a/1/True");
  equal("a boolean", helper.IsSomething(null), false);
  equal("a property", helper.NUM_TOP_BUTTONS, 32);
  helper.NUM_TOP_BUTTONS = 40;
  equal("written", helper.NUM_TOP_BUTTONS, 40);
  fails("Assert", function () { helper.Assert(false); }, 7155, "assert false");
  fails("division", function () { helper.OneBasedMod(1, 0); }, 11);
  fails("a wrong type", function () { helper.OneBasedMod("x", 1); }, 13);
  fails("too large", function () { helper.ZeroToOneBased(1e10); }, 6);
  fails("an unknown operation", function () { helper.NoSuchThing(); }, 438);
  fails("too many arguments", function () { helper.Assert(true, 1, 2); }, 450);
  fails("an object of the wrong class", function () { helper.UnboxLong(boxString("x")); }, 13);
  equal("a class by the name with its version", new ActiveXObject("Vestrel.clsLong.1").value, 0);
  equal("letter case does not matter", helper.oneBASEDmod(7, 4), 3);
}

function captures() {
  var capture = made("clsFormatCapture"), targets = [0, 0, "x"];
  check("fits", capture.DoMatch("##:##.###", "01:02.345"));
  check("parsed", capture.ParseItems(targets));
  equal("into the script's array", targets.join(), "1,2,345");
  check("not into two", !capture.ParseItems([0, 0]));
  var recorder = made("clsRecordController"), result = {};
  check("a timecode", recorder.timecodeToMS("00:59.999", result));
  equal("its milliseconds", result.value, 59999);
  equal("and back", recorder.msToTimecode(3723004), "01:02:03.004");
}

function iniFiles() {
  var ini = made("clsIniFile"), text = { value: "a\r\nb" };
  ini.UseFile(folder + "\\values.ini");
  ini.UseSection("S");
  ini.WriteLong("n", -12);
  equal("a number", ini.ReadLong("n", 0), -12);
  ini.WriteString("t", text);
  equal("an object's value is read, and written back", text.value, "a  b");
  var title = boxString("x\r\ny"), blank = {};
  ini.WriteString("t", title);
  equal("a box is read, and written back", title.value, "x  y");
  ini.WriteString("blank", blank);
  equal("an object without a value is an empty text", ini.ReadString("blank", "default"), "");
  ini.WriteString("plain", "p");
  equal("a text", ini.ReadString("plain", ""), "p");
  equal("a default", ini.ReadBool("missing", true), true);
  fails("no number", function () { ini.ReadLong("plain", 0); }, 13);
}

lists();
iterators();
ownObjects();
helpers();
captures();
iniFiles();
totals("collections.js");
