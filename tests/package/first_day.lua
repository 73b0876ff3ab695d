-- A first day on the program as it was installed, with the starter data that it holds: a client, a
-- year, lines, a printout and a workbook in the folder given.
local support = require("support")
local folder = arg[1]
quillet.today("2009-06-15")

local home = quillet.show("third")
home.mnunewclient:click()
local client = quillet.form("frmClient")
client.txtcode:type("A1")
client.txtname:type("Asha Traders")
client.cmdsave:click()
support.create_year("A1", 2008)
local editor = support.open("A1", 2008)
support.enter(editor, "Capital Asha", "CAPITAL ACCOUNT", "45678.25", "C")
support.enter(editor, "State Bank of Mysore", "BANK BALANCES", "40000.25", "D")
support.enter(editor, "Till", "CASH IN HAND", "5678", "D")
assert(editor.vsfm.rows >= 3 and editor.txtdiff.text == "", "the lines are not in balance")

editor.mnuPreview:click()
quillet.save_report(folder .. "/printout.pdf")
quillet.file(folder .. "/workbook.xls")
editor.mnuexport:click()
for _, message in ipairs(quillet.messages()) do print(message.text) end
assert(#quillet.log() == 0, quillet.log()[1])
