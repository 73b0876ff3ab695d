-- Members of forms and controls, and what happens to those that are not there.
local support = require("support")
local equal, fails = support.equal, support.fails

quillet.add_client { code = "C1", name = "First" }
quillet.add_client { code = "C2", name = "Second", status = "Firm" }
support.year("C1", 2008, 1)

local home = quillet.show("third")

-- Looking up: case does not matter, what is missing is nil, nothing can be assigned.
equal(home.FLEXGRID2.name, "flexgrid2")
assert(home.ClGrd1 == home.clgrd1 and home.ClGrd1 ~= home.flexgrid2)
equal(home.nosuchcontrol, nil)
fails("cannot be set", function() home.caption = "x" end)
fails("cannot be set", function() home.mnualter.caption = "x" end)
fails("no member 'txt'", function() return home.mnualter.txt end)
fails("no member 'checked'", function() return home.mnualter.checked end)
fails("no member 'type'", function() return home.mnualter.type end)
fails("not an array", function() return home.mnualter[0] end)
fails("without its control", home.mnualter.click)
fails("no key", home.press, home, "Entre")

-- Buttons.
equal({ home.mnualter.caption, home.mnualter.text },
  { "&Alter/View Trial Balance", "&Alter/View Trial Balance" })
equal(home.mnualter:click(), true)

-- Combos.
local status = home.cbostatus
assert(#status.items >= 2)
equal(status.index, 1)
status:choose("Firm")
equal(status.items[status.index], "Firm")
equal(status.text, "Firm")
equal(home.ClGrd1.rows, 1)
status:choose(1)
equal(home.ClGrd1.rows, 2)
fails("no item 'Company of fools'", status.choose, status, "Company of fools")
fails("no item 0", status.choose, status, 0)
fails("no item 99", status.choose, status, 99)
status:press("Down")
equal(status.index, 2)
status:press("Home")

-- Grids.
local clients = home.ClGrd1
equal(clients.cols, #clients:heads())
equal(clients:heads()[1], "Code")
equal(clients:row(1)[1], clients:cell(1, 1))
equal(clients:cell(1, "code"), clients:cell(1, "Code"))
equal(clients:hidden(1), false)
equal(clients:pick(2), 2)
equal(clients.current, 2)
clients:press("Up")
equal(clients.current, 1)
equal(clients:pick("Second"), 2)
-- Ordered, selected, copied.
clients:sort("Name")
clients:sort("name")
equal(clients:cell(1, "Name"), "Second")
clients:pick(1)
clients:select()
equal(select(2, clients:copy():gsub("\n", "")), 1)
clients:select(1)
equal(clients:copy():match("^(%w+)\tSecond"), "C2")
equal(clients.current, 1)
home:press("Ctrl+F")
equal(home.active, "txtsearch")
clients:sort("Name")
clients:pick("Second")
fails("has no row 0", clients.pick, clients, 0)
fails("has no row 3", clients.row, clients, 3)
fails("with 'Third'", clients.pick, clients, "Third")
fails("no column 'Colour'", clients.cell, clients, 1, "Colour")
fails("no column 99", clients.cell, clients, 1, 99)
fails("whole number", clients.row, clients, 1.5)
fails("cannot be edited", clients.set, clients, 1, "Name", "x")
fails("has no ticks", clients.tick, clients, 1)
fails("is hidden", home.flexgrid2.pick, home.flexgrid2, 1)
equal(home.flexgrid2:focus(), false)

-- Text boxes: typing goes over what stands there, one key after the other.
local search = home.txtsearch
search:type("sec")
equal({ search.text, home.active }, { "sec", "txtsearch" })
search:press("Backspace")
equal(search.text, "se")
search:press("Home")
search:press("é")
equal(search.text, "ése")
search:type("first")
equal(search.text, "first")
search:type("")
equal(search.text, "")

-- Date boxes are reached only while they are shown.
assert(not home.MaskEdBox1.visible)
fails("is hidden", home.MaskEdBox1.type, home.MaskEdBox1, "01/04/2008")

-- Menus and arrays.
local editor = support.open("C1", 2008)
equal({ editor.mnuyrs[0].checked, editor.mnuyrs[0].caption }, { true, "&Current Year" })
equal(editor.mnuyrs[3], nil)
equal(editor.mnuyrs[-1], nil)
assert(not editor.mnuyrs[1].enabled, "an entry below a disabled heading cannot be used")
fails("mnuyrs[1] of frmcrtb is disabled", editor.mnuyrs[1].click, editor.mnuyrs[1])
editor.mnusortopt[1]:click()
equal({ editor.mnusortopt[0].checked, editor.mnusortopt[1].checked }, { false, true })

-- Drop-down lists follow the text, and a click takes a row.
support.enter(editor, "Cash", "CASH IN HAND", "10", "D")
editor.txtpart:type("c")
assert(editor.vsfp.visible)
equal(editor.vsfp:cell(editor.vsfp.current, 1), "Cash")
editor.vsfp:pick("Cash")
equal(editor.txtpart.text, "Cash")
editor.txtpart:press("Tab")
equal(editor.active, "txtgroup")
assert(not editor.vsfp.visible)
fails("is hidden", editor.vsfp.pick, editor.vsfp, 1)
editor:press("Escape")

-- A closed form gives errors, not crashes, and its controls with it.
local box = editor.txtpart
assert(editor.visible)
editor:close()
assert(not editor.visible)
fails("frmcrtb is not open", function() return editor.caption end)
fails("frmcrtb is not open", function() return box.text end)
fails("frmcrtb is not open", function() box:type("x") end)
fails("frmcrtb is not open", editor.press, editor, "Enter")
assert(tostring(box):find("txtpart", 1, true))
support.open("C1", 2008)
equal(box.text, "")
