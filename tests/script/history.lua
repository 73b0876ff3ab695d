-- What was changed in a year, and how it stood, as a person looks for it.
local support = require("support")
local equal, rows = support.equal, support.rows

local editor = support.two_lines()

-- What was changed of late is there at once; Enter leads to how it stood after the act.
editor.mnuchanges:click()
local changes = quillet.form("frmchanges")
equal(changes.active, "vsf")
equal(changes.vsf.rows, 3, "two lines and the year")
local function told(grid)
  local all = {}
  for r = 1, grid.rows do
    local row = grid:row(r)
    all[r] = { row[2], row[3], row[4], row[6], row[7] }
  end
  return all
end
local year = { "Added", "Year", "", "", "31/03/2009" }
equal(told(changes.vsf), {
  { "Added", "Line", "Capital", "", "100.00 CR" }, { "Added", "Line", "Cash", "", "100.00 DR" }, year })
assert(changes.lblcount.text:find("3 changes in 3 acts", 1, true), changes.lblcount.text)
assert(changes.lblact.text:find("Enter in Dr/Cr", 1, true), changes.lblact.text)
assert(changes.caption:find("Rao Textiles (C1), 01/04/2008 - 31/03/2009", 1, true), changes.caption)
changes.vsf:pick("Cash")
changes.vsf:press("Enter")
local asof = quillet.form("frmasof")
equal(rows(asof.vsf), {
  { "Cash", "BANK BALANCES", "100.00 DR", "100.00 DR", "" },
  { "Capital", "CAPITAL ACCOUNT", "", "100.00 CR", "Added since" } })
equal({ asof.txtthendr.text, asof.txtthencr.text, asof.txtnowdr.text, asof.txtnowcr.text },
  { "100.00", "0.00", "100.00", "100.00" })
asof.chkdiffers:click()
equal(asof.vsf.rows, 1)
asof.cmdlater:click()
equal(asof.vsf.rows, 0)
asof.cmdlater:click()
equal(asof.lblstate.text, "No later act changed these lines.")
asof.cmdearlier:click()
equal(asof.vsf.rows, 1)
asof.cmdprint:click()
assert(quillet.report().file:find("Trial Balance as It Stood", 1, true), quillet.report().file)
asof.txttime:type("25:00")
asof.cmdshow:click()
equal({ asof.vsf.rows, asof.txtthendr.text, asof.active }, { 0, "", "txttime" })
asof.mskdate:type("01012001")
asof.txttime:type("")
asof.cmdshow:click()
equal({ asof.vsf.rows, asof.txtnowdr.text }, { 0, "" })
asof:press("Escape")
equal(changes.active, "vsf")

-- One ledger, a name that is none, a period without changes, all clients.
changes.txtledger:type("cash")
changes.txtledger:press("Enter")
equal(told(changes.vsf), { { "Added", "Line", "Cash", "", "100.00 DR" } })
changes.txtledger:type("Nobody's")
changes.cmdshow:click()
equal({ changes.vsf.rows, changes.active, changes.cmdprint.enabled }, { 0, "txtledger", false })
changes.txtledger:type("")
local today = changes.msktill.text
changes.mskfrom:type("01012001")
changes.msktill:type("02012001")
changes.cmdshow:click()
equal({ changes.vsf.rows, changes.lblcount.text }, { 0, "" })
changes.msktill:type(today)
changes.cboyear:choose("Names and groups of all clients")
equal(told(changes.vsf)[1], { "Added", "Ledger", "Capital", "", "Capital" })
equal(changes.cmdasof.enabled, false)
changes.cboyear:choose("2008-2009")
changes.cmdprint:click()
equal(#quillet.report().rows, 4)
assert(table.concat(quillet.report().headings, "\n"):find("3 changes in 3 acts", 1, true))
changes:press("Escape")
equal(editor.active, "txtpart")

-- A year that was deleted is there to be looked at.
editor:close()
local home = quillet.show("third")
home.mnudelete:click()
home.ClGrd1:pick("C1")
home.ClGrd1:dblclick()
quillet.answer("Yes")
home.flexgrid2:dblclick()
local deletion = assert(quillet.form("frmdelwhatinTB"))
deletion.optMain[0]:click()
quillet.answer("Yes")
deletion.cmddelete:click()
equal(home.flexgrid2.rows, 0)
home.cmdchanges:click()
equal(changes.cboyear.text, "2008-2009 (deleted)")
equal(#told(changes.vsf), 6)
equal(told(changes.vsf)[1], { "Deleted", "Year", "", "31/03/2009", "" })
changes:press("Escape")
equal(quillet.log(), {})
