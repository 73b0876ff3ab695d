-- The previous year: offered for import into an empty year, shown instead or beside.
local support = require("support")
local equal, enter = support.equal, support.enter
local question = 'Do you want to Import "Trail Balance" from Previous F.Y. ?'

quillet.add_client { code = "P1", first = "Asha", last = "Pillai" }
local old = support.year("P1", 2007, 1)
local new = support.year("P1", 2008, 2)

-- Both years empty: nothing to ask.
local editor = support.open("P1", 2008)
equal(editor.caption, "Trial Balance of Asha Pillai for the Period 01/04/2008 - 31/03/2009")
equal(quillet.messages(), {})
editor:close()

-- Lines in the old year; refusing leaves the new one empty, and it is asked at every load.
editor = support.open("P1", 2007)
assert(not editor.mnuyropts.enabled, "there is no year before the first")
enter(editor, "Capital", "CAPITAL ACCOUNT", "5000", "C")
enter(editor, "Cash", "CASH IN HAND", "5000", "D")
equal(editor.txtdiff.text, "")
equal(quillet.messages(), {})
quillet.answer("No")
editor = support.open("P1", 2008)
equal(editor.vsfm.rows, 0)
local asked = quillet.messages()
equal(#asked, 1)
equal({ asked[1].text, asked[1].buttons, asked[1].icon, asked[1].default },
  { question, "YesNo", "question", "No" })

quillet.statements()
quillet.answer("Yes")
editor.mnurefresh:click()
equal(support.stored(new, "P1"), support.stored(old, "P1"))
equal(#support.stored(new, "P1"), 2)
local sent = table.concat(quillet.statements(), "\n")
local import = "Insert into TAB_2 select * from TAB_1 where code_no='P1'\nFlush Tables"
assert(sent:find(import, 1, true), sent)
quillet.messages()

-- The three views.
enter(editor, "Bank", "BANK BALANCES", "700", "D")
equal({ editor.mnuyrs[0].checked, editor.mnuyrs[1].checked, editor.mnuyrs[2].checked },
  { true, false, false })

editor.mnuyrs[1]:click()
equal({ editor.mnuyrs[0].checked, editor.mnuyrs[1].checked }, { false, true })
assert(editor.caption:find(" (Previous Year)", 1, true), editor.caption)
equal(editor.vsfm.rows, 2)
equal(editor.txttotdeb.text, "5,000.00", "the array answers for the member that is shown")

editor.mnuyrs[2]:click()
assert(editor.caption:find(" (with Previous Year)", 1, true), editor.caption)
equal(editor.vsfm:heads(),
  { "Particulars", "Group", "Amount (Curr)", "Dr/Cr", "Amount (Prev)", "Dr/Cr" })
equal(editor.vsfm:row(editor.vsfm:pick("Bank")),
  { "Bank", "BANK BALANCES", "700.00", "DR", "-", "-" })
equal(editor.vsfm:row(editor.vsfm:pick("Cash")),
  { "Cash", "CASH IN HAND", "5000.00", "DR", "5000.00", "DR" })
equal({ editor.txttotdeb[0].text, editor.txttotdeb[1].text }, { "5,700.00", "5,000.00" })
equal({ editor.cmdclstock[0].caption, editor.cmdclstock[1].caption },
  { "Closing &Stock (Curr)", "Closing Stoc&k (Prev)" })

-- Deleting beside the previous year deletes the line in both.
editor.vsfm:pick("Cash")
quillet.answer("Yes")
editor.mnudelete:click()
equal(#support.stored(old, "P1"), 1)
equal(#support.stored(new, "P1"), 2)

editor.mnuyrs[0]:click()
equal(editor.cmdclstock[0].caption, "Closing &Stock")
assert(not editor.cmdclstock[1].visible)
equal(quillet.log(), {})
