-- The group and the ledger master, worked from the home form: add, rename, delete, what is in use.
local support = require("support")
local equal = support.equal

quillet.add_client { code = "M1", name = "Menon Mills" }
local tab = support.year("M1", 2008, 1)
local editor = support.open("M1", 2008)
support.enter(editor, "Office Rent", "RENT", "100", "D")
editor:close()
local home = quillet.show("third")
local function named(sql) return #quillet.query(sql) end

-- Groups.
home.cmdgrpmas:click()
local groups = quillet.form("frmgrpmas")
local before = groups.vsf.rows
groups.cmdadd:click()
groups.Text1:type("CANTEEN's \"50%\"")
groups.cmdupdate:click()
equal(support.messages(), { "Please Select 'Under Group'." })
groups.Combo1:choose(1)
groups.cmdupdate:click()
equal(groups.vsf.rows, before + 1)
groups.cmdadd:click()
groups.Text1:type("canteen's \"50%\"")
groups.Combo1:choose(1)
groups.cmdupdate:click()
equal(support.messages(), { "Duplicate Group!!" })
groups.cmdcancel:click()
groups.vsf:pick("CANTEEN's \"50%\"")
groups.cmdmodify:click()
groups.Text1:type("CANTEEN")
groups.cmdupdate:click()
equal(named("select * from Mast_AllGrp where ALLGRP='CANTEEN' and UserGrp='Y'"), 1)

-- Predefined groups stay, and so does one that a closing stock alone uses.
groups.vsf:pick("RENT")
groups.cmddelete:click()
equal(support.messages(), { "You Can not Delete Predefined Group." })
quillet.exec("insert into TRADE_1(code_no,partid,allid,amt) select 'M1',1,ALLID,5 " ..
  "from Mast_AllGrp where ALLGRP='CANTEEN'")
groups.vsf:pick("CANTEEN")
groups.cmddelete:click()
equal(support.messages(), { "Group already in use. You can not delete this Group." })
quillet.exec("delete from TRADE_1")
quillet.answer("Yes")
groups.cmddelete:click()
equal(support.messages(), { "Do you want to delele the Group [CANTEEN] ?" })
equal(named("select * from Mast_AllGrp where ALLGRP='CANTEEN'"), 0)

-- Mapping, and a column that shows it.
groups.cmdMap:click()
for _, name in ipairs { "RENT", "AUDIT FEES" } do groups.vsMap:tick(groups.vsMap:pick(name)) end
groups.cboSVI:choose("Other expenses")
groups.cmdMapSet:click()
equal(named("select * from AllGrp_Map where Code_No='#?#COMMON#?#' and SVIMapId=35"), 2)
groups.cmdMapBack:click()
groups.cmdShow:click()
groups.vsCols:tick(groups.vsCols:pick("Schedule VI"))
groups.cmdShowBack:click()
equal(groups.vsf:cell(groups.vsf:pick("RENT"), "Schedule VI"), "Other expenses")
groups.cmdback:click()
equal(quillet.forms(), { "third" })

-- Ledgers.
home.cmdledmas:click()
local ledgers = quillet.form("frmtbledmas")
ledgers.cmdadd:click()
ledgers.VTxt1:type("tea & snacks")
ledgers.VTxt1:press("Enter")
equal(ledgers.active, "cmdupdate")
ledgers.cmdupdate:click()
ledgers.vsf:pick("TEA & SNACKS")
ledgers.cmdmodify:click()
ledgers.VTxt1:type("tea")
ledgers.cmdupdate:click()
equal(support.rows(ledgers.vsf), { { "Office Rent", "Y" }, { "TEA", "N" } })
equal(ledgers.lblcount.caption, "2 of 2")

-- What is in use is refused, with the list of its users on request.
ledgers.vsf:pick("Office Rent")
quillet.answer("Yes")
ledgers.cmddelete:click()
equal(support.messages(), {
  "Particulars already in use. You can not delete this Particulars.\r\n\r\n" ..
  "Do you want to view the list of Client/F.Y. using the Particulars?" })
equal(support.rows(ledgers.vsfC), { { "Menon Mills", "01042008-31032009", "Trial Balance" } })
ledgers.cmdbackC:click()
ledgers.vsf:pick("TEA")
quillet.answer("No")
ledgers.cmddelete:click()
equal(#support.rows(ledgers.vsf), 2)
quillet.answer("Yes")
ledgers.cmddelete:click()
equal(support.rows(ledgers.vsf), { { "Office Rent", "Y" } })
equal(named("select * from Mast_Part"), 1)
support.messages()

-- A name that exists takes the other's place, in every year.
ledgers.cmdadd:click()
ledgers.VTxt1:type("hire")
ledgers.cmdupdate:click()
ledgers.vsf:pick("Office Rent")
ledgers.cmdmodify:click()
ledgers.VTxt1:type("hire")
quillet.answer("Yes", "Yes")
ledgers.cmdupdate:click()
equal(#support.messages(), 2)
equal(support.rows(ledgers.vsf), { { "HIRE", "Y" } })
equal(support.stored(tab, "M1"), { { 1, "HIRE", 100, 1 } })
ledgers.cmdback:click()
equal(quillet.forms(), { "third" })
equal(quillet.log(), {})
