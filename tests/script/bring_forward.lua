-- The year's end: the old year brought forward, changed afterwards, and its differences taken.
local support = require("support")
local equal = support.equal

quillet.today("2008-04-15")
quillet.add_client { code = "F1", name = "Fernandes & Co" }
support.year("F1", 2007, 1)
local editor = support.open("F1", 2007)
for _, line in ipairs({ { "Capital, Maria", "PARTNERS CAPITAL ACCOUNT", "60000", "C" },
  { "Capital, Joseph", "PARTNERS CAPITAL ACCOUNT", "40000", "C" },
  { "Canara Bank", "BANK BALANCES", "95000.05", "D" }, { "Purchases", "PURCHASES", "55000", "D" },
  { "Sales", "SALES", "70000.05", "C" }, { "Shop Rent", "RENT", "20000", "D" } }) do
  support.enter(editor, table.unpack(line))
end
editor.cmdclstock[0]:click()
local stock = quillet.form("frmTrade")
stock.txtpart:type("Cloth")
stock.txtgroup:type("CLOSING STOCK - TRADED GOODS")
stock.txtamount:type("15000")
stock.txtamount:press("Enter")
stock:close()
support.messages()
-- The profit is the one of the summary figures: 70,000.05 sold of 40,000, and 20,000 of rent.
editor.mnushsumm:click()
equal(editor.vsfr:cell(editor.vsfr:pick("Profit Tr. to B/S"), 2), "10,000.05")
editor:close()

local home = quillet.show("third")
home.mnubringfwd:click()
local page = assert(quillet.form("frmbringfwd"), "the review is not open")
equal(page.lblprofit.caption, "Profit of the old year: 10,000.05")
for _, share in ipairs({ { "Capital, Maria", "60" }, { "Capital, Joseph", "40" } }) do
  page.vsfs:pick(share[1])
  page.mnushares:click()
  page.txtpercent:type(share[2])
  page.txtpercent:press("Enter")
end
equal(page.lblstate.caption, "Nothing stands in the way.")
page.cmdbring:click()
equal(support.messages(), { "Brought forward into 2008-2009. Lines written: 7." })
equal(support.stored("TAB_2", "F1"), { { 1, "Capital, Maria", 66000.03, 2 },
  { 2, "Capital, Joseph", 44000.02, 2 }, { 3, "Canara Bank", 95000.05, 1 }, { 4, "Purchases", 0, 1 },
  { 5, "Sales", 0, 2 }, { 6, "Shop Rent", 0, 1 }, { 7, "Opening Stock", 15000, 1 } })
equal(home.flexgrid2:cell(2, "Difference"), "Agrees")

-- An auditor's correction in the old year, after the new one was begun.
editor = support.open("F1", 2007)
support.enter(editor, "Audit Fee", "LEGAL AND PROFESSIONAL CHARGES", "500", "D")
support.enter(editor, "Audit Fee Payable", "EXPENSES PAYABLE", "500", "C")
editor:close()
editor = support.open("F1", 2008)
editor.mnuopening:click()
local report = quillet.report()
equal(report.rows[2], { "Capital, Maria", "PARTNERS CAPITAL ACCOUNT", "65,700.03 CR", "66,000.03 CR",
  "300.00 CR" })
equal(#report.rows, 6) -- headings, three ledgers, the total, and when it was brought forward
editor:close()
home.flexgrid2:pick(1)
home.mnubringfwd:click()
page.cboshow:choose("To be written")
equal(page.vsfl.rows, 4)
equal(page.vsfl:row(1), { "1", "Capital, Maria", "PARTNERS CAPITAL ACCOUNT", "60,000.00 CR",
  "65,700.03 CR", "66,000.03 CR", "65,700.03 CR", "Old year changed", "Balance sheet; 60 % of the profit" })
page.cmdbring:click()
support.messages()
home.mnuopening:click()
equal(support.messages(), { "The opening of 2008-2009 agrees with the closing of 2007-2008." })
home.flexgrid2:pick(1)
home.mnubringfwd:click()
page.cmdbring:click()
equal(#support.messages(), 1)
page:press("Escape")
equal(quillet.form("frmbringfwd"), nil)
equal(home.active, "flexgrid2")

-- Taken back, the year is not as it was brought any more, and the form offers it again.
editor = support.open("F1", 2008)
editor.mnutakeback:click()
editor:close()
home.flexgrid2:pick(1)
home.mnubringfwd:click()
page.cboshow:choose("To be written")
equal(page.vsfl.rows, 4)
page:press("Escape")
support.messages()
equal(quillet.log(), {})
