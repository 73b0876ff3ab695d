-- The home form: clients, their years, and what stops a person on the way to the editor.
local support = require("support")
local equal = support.equal

quillet.add_client { code = "B2", name = "Beta Stores", status = "Firm", password = "" }
quillet.add_client { code = "A1", first = "Asha", middle = "K", last = "Pillai", father = "K Pillai" }
support.year("B2", 2009, 2)
support.year("B2", 2008, 1)

local home = quillet.show("third")
equal(home.visible, true)
equal(home.name, "third")
assert(quillet.show("THIRD") == home, "there is one home form")
equal(quillet.forms(), { "third" })
equal(home.ClGrd1.rows, 2)
equal(home.ClGrd1:cell(home.ClGrd1:pick("A1"), "Name"), "Asha K Pillai")

-- A client without years.
home.mnualter:click()
home.ClGrd1:dblclick()
equal(support.messages(), { "No entry of this year is available." })
equal(home.flexgrid2.rows, 0)
home.flexgrid2:press("Enter")
equal(quillet.form("frmcrtb"), nil)
equal(quillet.context.client, "A1")

-- Years stand in their order; Escape leads back to the clients.
home.ClGrd1:focus()
home:press("Escape")
assert(home.ClGrd1.visible)
home.ClGrd1:pick("B2")
home.ClGrd1:press("Enter")
equal(support.rows(home.flexgrid2),
  { { "01/04/2008", "31/03/2009", "0", "0.00", "0.00", "", "" },
    { "01/04/2009", "31/03/2010", "0", "0.00", "0.00", "", "" } })
assert(not home.ClGrd1.visible and home.flexgrid2.visible)
home:press("Escape")
assert(home.ClGrd1.visible and not home.flexgrid2.visible)

-- A refused client check stops before anything is read.
home.ClGrd1:pick("B2")
quillet.statements()
quillet.refuse("CheckClpass")
home.ClGrd1:dblclick()
assert(home.ClGrd1.visible)
equal(quillet.statements(), {})

-- A refused right to open a year that is signed leaves no table in the context.
quillet.exec("update master set d_of_s='2009-09-30' where code_no='B2' and count=1")
home.ClGrd1:dblclick()
home.flexgrid2:pick("01/04/2008")
quillet.refuse("CheckPass")
home.flexgrid2:dblclick()
equal(quillet.form("frmcrtb"), nil)
equal(quillet.context.table, "")

-- A year that has gone in the meantime opens nothing.
quillet.exec("delete from master where code_no='B2' and count=2")
home.flexgrid2:pick("01/04/2009")
home.flexgrid2:dblclick()
equal(quillet.form("frmcrtb"), nil)

home.flexgrid2:pick("01/04/2008")
home.flexgrid2:dblclick()
equal({ quillet.context.client, quillet.context.table, quillet.context.first,
  quillet.context.second }, { "B2", "TAB_1", "01042008", "31032009" })
equal(quillet.forms(), { "third", "frmcrtb" })
equal(quillet.log(), {})
