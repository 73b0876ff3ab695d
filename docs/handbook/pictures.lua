-- The pictures of the handbook, made on an empty practice: from the first client to the printed year.
-- docs/handbook/pictures runs it: quillet --data DIR script --show docs/handbook/pictures.lua FOLDER
package.path = package.path .. ";" .. arg[0]:match("^(.*)/") .. "/../../tests/script/?.lua"
local support = require("support")
local folder = arg[1]

local function picture(name) quillet.screenshot(folder .. "/" .. name .. ".png") end

local function fill(form, texts)
  for _, text in ipairs(texts) do
    form[text[1]]:type(text[2])
    if text[3] then form[text[1]]:press("Enter") end
  end
end

quillet.today("2009-06-15")
local home = quillet.show("third")
home.mnusettings:click()
local settings = quillet.form("frmSettings")
settings.txtfirm:type("Rao & Co")
settings.cbotheme:choose("Light")
picture("settings")
settings.cmdok:click()

home.mnunewclient:click()
local client = quillet.form("frmClient")
fill(client, { { "txtcode", "A1" }, { "txtname", "Asha Traders" }, { "txtaddress", "12 Mill Road" } })
picture("client")
client.cmdsave:click()
home.mnunewclient:click()
fill(client, { { "txtcode", "R1" }, { "txtname", "Rao Textiles" } })
client.cmdsave:click()

picture("clients")

-- The first year, and its lines.
support.create_year("A1", 2007, function() picture("new-year") end)
local editor = support.open("A1", 2007)
local lines = {
  { "Capital, Asha", "CAPITAL ACCOUNT", 412000, "C" },
  { "Drawings, Asha", "CAPITAL ACCOUNT", 96000, "D" },
  { "State Bank of Mysore", "BANK BALANCES", 148250.5, "D" },
  { "Cash in Hand", "CASH IN HAND", 21740, "D" },
  { "Sales", "SALES", 1864300, "C" },
  { "Opening Stock", "OPENING STOCK - TRADED GOODS", 186400, "D" },
  { "Purchases", "PURCHASES", 1412600, "D" },
  { "Elavanti Pharma", "SUNDRY DEBTORS", 318900, "D" },
  { "Mehta Supply", "SUNDRY CREDITORS FOR GOODS", 226590.5, "C" },
  { "Shop Rent", "RENT", 144000, "D" },
  { "Salaries", "SALARIES AND BONUS", 168000, "D" },
}
local known = {}
for _, row in ipairs(quillet.query("select allgrp from mast_allgrp")) do known[row[1]] = true end
for _, line in ipairs(lines) do
  assert(known[line[2]], "there is no group " .. line[2])
  support.enter(editor, line[1], line[2], string.format("%.2f", line[3]), line[4])
end
editor.txtpart:type("elavanti pharm")
picture("entry")
editor.txtpart:type("Freight Inward")
editor.txtpart:press("Enter")
fill(editor, { { "txtgroup", "FREIGHT AND OCTROI", true }, { "txtamount", "7000", true } })
picture("difference")
editor.txtdrcr:press("Enter")
picture("agrees")
assert(editor.txtdiff.text == "", "the difference is " .. editor.txtdiff.text)

-- Closing stock and the summary figures.
editor.cmdclstock:click()
local stock = quillet.form(quillet.forms()[#quillet.forms()])
fill(stock, { { "txtpart", "Medicines", true }, { "txtgroup", "CLOSING STOCK - TRADED GOODS", true },
  { "txtamount", "231500", true } })
picture("stock")
stock:close()
editor.mnushsumm:click()
picture("summary")
editor.mnushsumm:click()

-- A voucher.
editor.mnujournal:click()
local journal = quillet.form("frmjrnl")
journal.cmdadd:click()
journal.txtdt:type("31032008")
quillet.answer("Yes", "Yes")
support.voucher_line(journal, 0, "By", "Audit Fees", "AUDIT FEES", "15000")
support.voucher_line(journal, 1, "To", "Audit Fees Payable", "EXPENSES PAYABLE", "15000")
journal.txtnarr:type("Audit fee of the year provided for")
picture("voucher")
journal.cmdupdate:click()
picture("journal")
quillet.answer("Yes")
journal:close()

-- The year on paper.
editor.mnuPreview:click()
picture("preview")
editor:close()

-- What the next year would begin with.
home.mnubringfwd:click()
picture("forward")
quillet.form("frmbringfwd"):close()

-- The heads of the statements, for the groups of the year.
home.cmdgrpmas:click()
local groups = quillet.form("frmgrpmas")
groups.cmdMap:click()
local function map(names, scheduleVI, incomeTax)
  for _, group in ipairs(names) do groups.vsMap:tick(groups.vsMap:pick(group)) end
  groups.cboSVI:choose(scheduleVI)
  groups.cboIT:choose(incomeTax)
end
map({ "AUDIT FEES" }, "Other expenses", "Audit fees")
groups.cmdMapSet:click()
map({ "BANK BALANCES" }, "Cash and cash equivalents", "Balances with banks")
groups.cmdMapSet:click()
map({ "CASH IN HAND" }, "Cash and cash equivalents", "Cash in hand")
picture("mapping")
groups:close()

-- The next year, with the figures carried forward, beside this one.
quillet.answer("Yes", "Yes")
support.create_year("A1", 2008)
support.list_years("A1")
picture("home")
home.flexgrid2:pick(2)
home.flexgrid2:dblclick()
editor.mnuyrs[2]:click()
picture("both-years")
assert(#quillet.log() == 0, quillet.log()[1])
for _, message in ipairs(quillet.messages()) do print(message.text) end
