-- Counts the keys that 24 lines take: a client's new year, typed key by key with the help that the
-- editor offers: what it proposes for the beginning of a name, or what stands two steps below it at
-- most in the list. On a sample practice, which it changes (README.md, "count keys").
package.path = package.path .. ";" .. arg[0]:match("^(.*)/") .. "/../tests/script/?.lua"
local support = require("support")
local client, year, year_table = "TAV01", 2008, "TAB_4"

-- Ledgers of the client's year before, of other clients, and new ones. The amounts are those of the
-- year before, the side is C where it is credit.
local lines = {
  { "Capital, Mohan Lal Tavdekar", "CAPITAL ACCOUNT", "4025666.54", "C" },
  { "Drawings, Mohan Lal Tavdekar", "DRAWINGS", "329933", "D" },
  { "Sales (Local)", "SALES", "18232455.07", "C" },
  { "Sales Returns", "SALES", "340910.19", "D" },
  { "Purchases (Local)", "PURCHASES", "12833245.85", "D" },
  { "Freight Inward", "FREIGHT AND OCTROI", "123150.95", "D" },
  { "Loading and Unloading", "DIRECT EXPENSES", "29851", "D" },
  { "Salaries", "SALARIES AND BONUS", "387300", "D" },
  { "Shop Rent", "RENT", "105600", "D" },
  { "Discount Received", "COMMISSION AND DISCOUNT RECEIVED", "45074.96", "C" },
  { "Motor Car", "VEHICLES", "197103.46", "D" },
  { "Electricity Deposit", "DEPOSITS", "19600", "D" },
  { "Cash in Hand", "CASH IN HAND", "59133.53", "D" },
  { "Kaveripur Mercantile Bank, Current A/c", "BANK BALANCES", "832114.07", "D" },
  { "TDS Payable", "STATUTORY DUES", "19094", "C" },
  { "Printing and Stationery", "PRINTING AND STATIONERY", "29055.23", "D" },
  { "Bank Charges", "BANK CHARGES", "13104.77", "D" },
  { "Elavanti Synthetics", "SUNDRY CREDITORS FOR GOODS", "285081.02", "C" },
  { "Elavanti Cloth Stores", "SUNDRY DEBTORS", "142766.33", "D" },
  { "Chetmora Traders", "SUNDRY DEBTORS", "295376.56", "D" },
  { "Electricity Charges", "ELECTRICITY AND WATER", "38420", "D" },
  { "Legal and Professional Fees", "LEGAL AND PROFESSIONAL CHARGES", "45000", "D" },
  { "Sahyadri Couriers", "SUNDRY CREDITORS FOR EXPENSES", "6120", "C" },
  { "Exhibition Stall", "ADVERTISEMENT AND SALES PROMOTION", "22500", "D" },
}

quillet.exec("delete from " .. year_table .. " where code_no='" .. client .. "'")
quillet.answer("No")
local editor = support.open(client, year)
if editor.active ~= "txtpart" then editor.mnuinsert:click() end

local counts = { ledger = 0, group = 0, amount = 0, ["end"] = 0 }
local counted

local function press(key)
  counts[counted] = counts[counted] + 1
  editor:press(key)
end

local function wanted(text, name) return text:lower() == name:lower() end

-- The keys that take the name from the list: what is offered, or what stands a step or two below.
local function keysTo(list, name)
  if editor.lblhint.text:find('Right takes "' .. name .. '"', 1, true) then return { "Right" } end
  for steps = 0, 2 do
    local row = list.current + steps
    if row > 0 and row <= list.rows and wanted(list:cell(row, 1), name) then
      return ({ [0] = { "Down", "Up" }, { "Down" }, { "Down", "Down" } })[steps]
    end
  end
end

-- Types a name until the list is the shorter way. `enough` says that Enter takes its current row.
local function typeName(box, list, name, enough)
  for at = 1, #name do
    press(name:sub(at, at):lower())
    if enough and list.current > 0 and wanted(list:cell(list.current, 1), name) then return end
    local keys = keysTo(list, name)
    if keys and #keys < #name - at then
      for _, key in ipairs(keys) do press(key) end
      break
    end
  end
  assert(wanted(box.text, name), box.text .. " instead of " .. name)
end

for _, line in ipairs(lines) do
  local ledger, group, amount, side = table.unpack(line)
  counted = "ledger"
  typeName(editor.txtpart, editor.vsfp, ledger, false)
  press("Enter")
  if editor.active == "txtgroup" then
    counted = "group"
    if not wanted(editor.txtgroup.text, group) then
      typeName(editor.txtgroup, editor.vsfg, group, true)
    end
    press("Enter")
  end
  assert(wanted(editor.txtgroup.text, group), editor.txtgroup.text .. " instead of " .. group)
  counted = "amount"
  for key in amount:gmatch(".") do press(key) end
  press("Enter")
  counted = "end"
  if editor.txtdrcr.text:sub(1, 1) ~= side then press(side) end
  press("Enter")
end

local stored = quillet.query("select count(*), count(distinct partid) from " .. year_table ..
  " where code_no='" .. client .. "'")[1]
assert(stored[1] == #lines and stored[2] == #lines, "lines are missing")
local all = 0
for _, part in ipairs { "ledger", "group", "amount", "end" } do
  all = all + counts[part]
  print(string.format("%-7s %4d  %5.1f a line", part, counts[part], counts[part] / #lines))
end
print(string.format("%-7s %4d  %5.1f a line", "all", all, all / #lines))
