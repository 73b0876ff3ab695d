-- Entering lines: a new one, the same pair again, both sides of the totals, what nets to nothing.
local support = require("support")
local equal, enter = support.equal, support.enter

quillet.add_client { code = "R1", name = "Rao Textiles" }
local tab = support.year("R1", 2008, 1)
local editor = support.open("R1", 2008)
equal(editor.caption, "Trial Balance of Rao Textiles for the Period 01/04/2008 - 31/03/2009")
equal(editor.vsfm:heads(), { "Particulars", "Group", "Amount", "Dr/Cr" })
equal(editor.vsfm.rows, 0)
equal({ editor.txttotdeb.text, editor.txttotcr.text, editor.txtdiff.text }, { "0.00", "0.00", "" })

-- A new line; the fields are ready for the next one.
quillet.statements()
enter(editor, "Office Rent", "RENT", "12000", "D")
equal(support.rows(editor.vsfm), { { "Office Rent", "RENT", "12000.00", "DR" } })
equal(support.stored(tab, "R1"), { { 1, "Office Rent", 12000, 1 } })
equal({ editor.txttotdeb.text, editor.txttotcr.text }, { "12,000.00", "0.00" })
equal({ editor.txtdiff.text, editor.txtdifft.text }, { "12,000.00", "Debit" })
equal({ editor.txtpart.text, editor.txtgroup.text, editor.txtamount.text, editor.txtdrcr.text },
  { "", "", "", "" })
equal(editor.active, "txtpart")

local sent = table.concat(quillet.statements(), "\n")
local part = quillet.query("select PartId from Mast_Part where Particular='Office Rent'")[1].partid
local group = quillet.query("select ALLID from Mast_AllGrp where ALLGRP='RENT'")[1].allid
local insert = "insert into TAB_1 values(1,'R1'," .. part .. "," .. group .. ",12000,1)\nflush tables"
assert(sent:lower():find(insert:lower(), 1, true), "not sent: " .. insert .. "\nbut: " .. sent)

-- The same pair again on the other side: one row with the net amount, under a new number.
enter(editor, "Salaries", "SALARIES AND BONUS", "500", "d")
enter(editor, "office rent", "rent", "2000", "c")
equal(support.stored(tab, "R1"),
  { { 2, "Salaries", 500, 1 }, { 3, "Office Rent", 10000, 1 } })

-- More on the other side turns the line round; the stored amount is never negative.
enter(editor, "Office Rent", "RENT", "10000.50", "CR")
equal(support.stored(tab, "R1"),
  { { 2, "Salaries", 500, 1 }, { 3, "Office Rent", 0.5, 2 } })
equal({ editor.txttotdeb.text, editor.txttotcr.text, editor.txtdiff.text, editor.txtdifft.text },
  { "500.00", "0.50", "499.50", "Debit" })

-- What nets to nothing leaves no row.
enter(editor, "Office Rent", "RENT", "0.5", "D")
equal(support.stored(tab, "R1"), { { 2, "Salaries", 500, 1 } })

-- Altering a line replaces it.
editor.vsfm:pick("Salaries")
editor.vsfm:dblclick()
equal({ editor.txtpart.text, editor.txtgroup.text, editor.txtamount.text, editor.txtdrcr.text },
  { "Salaries", "SALARIES AND BONUS", "500.00", "DR" })
editor.txtamount:type("750")
editor.txtdrcr:press("Enter")
equal(support.stored(tab, "R1"), { { 1, "Salaries", 750, 1 } })

-- Deleting asks first, with No as the proposal.
editor.vsfm:pick(1)
quillet.messages()
quillet.answer("No")
editor.mnudelete:click()
equal(#support.stored(tab, "R1"), 1)
local asked = quillet.messages()[1]
equal({ asked.text, asked.title, asked.buttons, asked.icon, asked.default, asked.answer },
  { "Do you want to delete the selected record?", "Delete", "YesNo", "none", "No", "No" })
quillet.answer("Yes")
editor.mnudelete:click()
equal(support.stored(tab, "R1"), {})
equal(editor.vsfm.rows, 0)

-- A neighbour in the same table keeps its lines.
quillet.add_client { code = "R2", name = "Rao & Sons" }
support.year("R2", 2008, 1)
quillet.exec("insert into TAB_1 values(1,'R2'," .. part .. "," .. group .. ",77,2)")
enter(editor, "Office Rent", "RENT", "1", "D")
editor.vsfm:pick("Office Rent")
quillet.answer("Yes")
editor.mnudelete:click()
equal(support.stored(tab, "R2"), { { 1, "Office Rent", 77, 2 } })
equal(quillet.log(), {})
