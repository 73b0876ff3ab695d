-- Years from the home form: created from the year before, created over, merged, deleted.
local support = require("support")
local equal = support.equal

quillet.add_client { code = "Y1", name = "Yadav & Sons" }
quillet.add_client { code = "c'2", name = "Other's" }
local first = support.year("Y1", 2007, 1)
local editor = support.open("Y1", 2007)
support.enter(editor, "Capital A/c", "CAPITAL ACCOUNT", "100", "C")
support.enter(editor, "Cash in Hand", "CASH IN HAND", "100.10", "D")
editor:press("Escape")
editor:close()
local home = quillet.show("third")

local function choose(command, client)
  home:press("Escape")
  command:click()
  home.ClGrd1:pick(client)
  home.ClGrd1:dblclick()
end
local function dates(from)
  home.MaskEdBox1:type(from)
  home.MaskEdBox1:press("Enter")
  home.MaskEdBox2:press("Enter")
end
local function registry(client)
  local found = {}
  for i, row in ipairs(quillet.query("select f_yr,s_yr,tbl_nm,count from master where code_no='" ..
    client:gsub("'", "''") .. "' order by s_yr")) do
    found[i] = { row[1], row[2], row[3], row[4] }
  end
  return found
end

-- Created with the figures, then over itself without them.
choose(home.mnucreate, "Y1")
quillet.answer("Yes", "Yes")
dates("01042008")
equal(support.messages(),
  { "Do you want to load previous year particulars.", "Do you want to Import Figures also?" })
equal(registry("Y1"), {
  { "01042007", "31032008", first, 1 }, { "01042008", "31032009", "TAB_2", 2 } })
equal(support.stored("TAB_2", "Y1"),
  { { 1, "Capital A/c", 100, 2 }, { 2, "Cash in Hand", 100.1, 1 } })
choose(home.mnucreate, "Y1")
quillet.answer("Yes")
dates("01042008")
local deletion = assert(quillet.form("frmdelwhatinTB"), "the deletion form is not open")
equal(deletion.lblheading.caption,
  "Create Trial Balance -> Overwrite existing for F.Y. 2008-2009")
deletion.cmddelete:click()
equal(support.messages(), {
  "Duplicate date is not allowed !\r\n\r\nDo you want to overwrite previously saved data ?",
  "Select an option." })
deletion.optMain[0]:click()
quillet.answer("Yes", "Yes", "No")
deletion.cmddelete:click()
equal(support.stored("TAB_2", "Y1"),
  { { 1, "Capital A/c", 0, 2 }, { 2, "Cash in Hand", 0, 1 } })
equal(#registry("Y1"), 2)

-- Merged into a client that has no such year, whose code is no help to a statement.
support.messages()
choose(home.mnumerge, "c'2")
dates("01042007")
home.flexgrid2:dblclick()
equal(support.messages(), { "DBl Click will not work here,Press Enter to merge." })
quillet.answer("Yes")
home.flexgrid2:press("Enter")
equal(registry("c'2"), { { "01042007", "31032008", first, 1 } })
equal(#quillet.query("select * from " .. first .. " where code_no='c''2'"), 2)

-- Deleted, everything; the neighbour in the same table keeps its lines.
support.messages()
choose(home.mnudelete, "Y1")
home.flexgrid2:pick("01/04/2007")
quillet.answer("Yes")
home.flexgrid2:dblclick()
deletion = quillet.form("frmdelwhatinTB")
deletion.optMain[0]:click()
quillet.statements()
quillet.answer("Cancel", "Yes")
deletion.cmddelete:click()
equal(quillet.statements(), {})
deletion.cmddelete:click()
equal(quillet.statements()[1], "DELETE FROM " .. first .. " WHERE CODE_NO='Y1'")
equal(registry("Y1"), { { "01042008", "31032009", "TAB_2", 2 } })
equal(#quillet.query("select * from " .. first .. " where code_no='c''2'"), 2)
equal(home.flexgrid2.rows, 1)
equal(quillet.log(), {})
