-- One of several stations on the same books: random days, each deed that the program acknowledged
-- noted with the instant of its act. `station.lua day NUMBER SEED ACTS LOG` works,
-- `station.lua arrange` makes the clients, `station.lua verify LOG...` plays all deeds in the order
-- of their instants and holds the tables against that.
local here = arg[0]:match("^(.*)/")
package.path = here .. "/../script/?.lua;" .. here .. "/?.lua;" .. package.path
local support = require "support"

local clients = { "P1", "P2", "P3", "P4", "P5" }
local years = { 2007, 2008 }
local groups = { "BANK BALANCES", "RENT", "CAPITAL ACCOUNT", "SALARIES AND BONUS",
  "Own Group 1", "Own Group 2", "Own Group 3" }
-- Whether the list shows the name; it is current then.
local function picks(grid, name) return (pcall(grid.pick, grid, name)) end
local function any(list) return list[math.random(#list)] end
local function ledger() return "Ledger " .. math.random(30) end

local function arrange()
  for i = 1, 3 do
    quillet.exec("insert into Mast_AllGrp(ALLID,GID,ALLGRP,UserGrp) select max(ALLID)+1,22," ..
      "'Own Group " .. i .. "','Y' from Mast_AllGrp")
  end
  for number, code in ipairs(clients) do
    quillet.add_client { code = code, name = "Practice " .. number }
    for count, year in ipairs(years) do support.year(code, year, count) end
    -- An empty year would ask whether to import the previous one.
    for _, year in ipairs(years) do
      quillet.answer("No")
      local editor = support.open(code, year)
      quillet.unanswered()
      support.enter(editor, "Opening", "RENT", "0.01", "D")
      editor:close()
    end
  end
end

-- --- what was acknowledged --------------------------------------------------------------------

local log
local function last_act()
  local person = "substring_index(current_user(),'@',1)"
  local row = quillet.query("select max(At) as at from SuiteAct where " ..
    "substring_index(Person,'@',1)=" .. person)[1]
  return row.at or ""
end

local counts = {}
local function count(what) counts[what] = (counts[what] or 0) + 1 end

-- Runs a deed; its changes are noted when an act of ours is there, and the form says that it is done.
local function deed(name, changes, work, says)
  local before = last_act()
  local done, problem = pcall(work)
  local at = last_act()
  if not done then count("error: " .. tostring(problem):sub(1, 200)) end
  local notices, lines = quillet.notices(), quillet.log()
  if #notices > 0 then print(name, before, at, notices[#notices], lines[#lines]) end
  if not done then print(name, before, at, problem) end
  if at == before or (says and not says()) then return count(name .. " refused") end
  count(name)
  for _, change in ipairs(changes) do
    log:write(at, "\t", table.concat(change, "\t"), "\n")
  end
  log:flush()
end

-- --- in the editor ------------------------------------------------------------------------------

-- A line as it is shown; its amount in paise, negative for credit.
local function any_line(editor)
  if editor.vsfm.rows == 0 then return end
  local row = math.random(editor.vsfm.rows)
  local ledger, group, amount, side = table.unpack(editor.vsfm:row(row))
  if ledger == "Opening" then return end
  local paise = math.tointeger((amount:gsub("[.,]", "")))
  return { row = row, ledger = ledger, group = group, paise = side == "CR" and -paise or paise }
end

-- What was refused stays in the fields, an alteration as one of its line.
local function empty(editor)
  if editor.txtpart.text ~= "" then editor:press("Escape") end
end

local function enter(editor, client, year)
  empty(editor)
  local name, group, paise = ledger(), any(groups), math.random(100000)
  local side = any { "D", "C" }
  deed("enter", { { "add", client, year, name, group, side == "D" and paise or -paise } },
    function()
      support.enter(editor, name, group, string.format("%.2f", paise / 100), side)
    end)
end

local function alter(editor, client, year)
  local line = any_line(editor)
  if not line then return end
  local paise = math.random(100000)
  deed("alter", { { "add", client, year, line.ledger, line.group, paise - line.paise } }, function()
    editor.vsfm:pick(line.row)
    editor.vsfm:dblclick()
    editor.txtamount:type(string.format("%.2f", paise / 100))
    editor.txtdrcr:type("D")
    editor.txtdrcr:press("Enter")
  end)
end

local function delete(editor, client, year)
  empty(editor)
  local line = any_line(editor)
  if not line then return end
  deed("delete", { { "add", client, year, line.ledger, line.group, -line.paise } }, function()
    editor.vsfm:pick(line.row)
    quillet.answer("Yes")
    editor.mnudelete:click()
  end)
end

local function voucher(editor, client, year)
  editor.mnujournal:click()
  local journal = quillet.form("frmjrnl")
  if not journal then return count("no journal") end
  local debit, credit = ledger(), ledger()
  while credit == debit do credit = ledger() end
  local paise = math.random(100000)
  local group = any(groups)
  local function pass()
    local amount = string.format("%.2f", paise / 100)
    journal.cmdadd:click()
    quillet.answer("Yes", "Yes", "Yes", "Yes")
    support.voucher_line(journal, 0, "By", debit, group, amount)
    support.voucher_line(journal, 1, "To", credit, group, amount)
    journal.txtnarr:type("by station")
    journal.cmdupdate:click()
  end
  deed("voucher", { { "add", client, year, debit, group, paise },
    { "add", client, year, credit, group, -paise } }, pass,
    function() return not journal.cmdcancel.visible end)
  quillet.unanswered()
  if journal.cmdcancel.visible then
    quillet.answer("Yes")
    journal.cmdcancel:click()
    quillet.unanswered()
  end
  quillet.answer("Yes")
  journal:close()
  quillet.unanswered()
end

local function year_day(acts)
  local client, year = any(clients), any { 2007, 2008, 2008, 2009 }
  local home = support.choose("mnualter", client)
  if not picks(home.flexgrid2, "01/04/" .. year) then return end
  -- An empty year asks whether to import the one before.
  quillet.answer(year < 2009 and math.random(10) == 1 and "Yes" or "No", "No")
  home.flexgrid2:dblclick()
  quillet.unanswered()
  local editor = quillet.form("frmcrtb")
  for _ = 1, acts do
    if editor.lbllock.caption ~= "" then
      count("reads")
      break
    end
    any { enter, enter, enter, alter, delete, voucher }(editor, client, year)
  end
  editor:close()
end

-- --- in the masters -------------------------------------------------------------------------------

local function link_in(form)
  local away, into = ledger(), ledger()
  if away == into or not picks(form.vsf, away) or not picks(form.vsf, into) then return end
  deed("link", { { "link", away, into } }, function()
    form.cmdlink:click()
    form.vsf:tick(form.vsf:pick(away), true)
    quillet.answer("Yes")
    form.cmdlink:click()
  end)
end

local function merge_in(form)
  local away, into = "Own Group " .. math.random(3), groups[math.random(4)]
  form.cmdMerge:click()
  if not picks(form.vsM, away) or not picks(form.vsMW, into) then return end
  deed("merge", { { "merge", away, into } }, function()
    form.vsM:tick(form.vsM:pick(away), true)
    quillet.answer("Yes", "Yes")
    form.cmdMergeGroup:click()
  end)
end

-- A group that was merged away comes back, for the lines to come.
local function add_in(form)
  local name = "Own Group " .. math.random(3)
  if picks(form.vsf, name) then return end
  deed("new group", {}, function()
    form.cmdadd:click()
    form.Text1:type(name)
    form.Combo1:choose(1)
    form.cmdupdate:click()
  end)
end

local function master(command, name, work)
  local home = quillet.show("third")
  home[command]:click()
  local form = quillet.form(name)
  local ok, problem = pcall(work, form)
  for _ = 1, 3 do
    if not form.visible then break end
    quillet.unanswered()
    quillet.answer("Yes", "Yes")
    pcall(form.press, form, "Escape")
    if form.visible then pcall(form.close, form) end
  end
  quillet.unanswered()
  if not ok then error(problem) end
end

local function link() master("cmdledmas", "frmtbledmas", link_in) end

local function of_groups() master("cmdgrpmas", "frmgrpmas", any { merge_in, add_in, add_in }) end

local function create()
  local client = any(clients)
  local home = support.choose("mnucreate", client)
  deed("create", {}, function()
    quillet.answer("No", "No")
    home.MaskEdBox1:type("01042009")
    home.MaskEdBox1:press("Enter")
    home.MaskEdBox2:press("Enter")
  end)
end

local function remove()
  local client = any(clients)
  local home = support.choose("mnudelete", client)
  if not picks(home.flexgrid2, "01/04/2009") then return end
  deed("remove", { { "remove", client, 2009 } }, function()
    quillet.answer("Yes")
    home.flexgrid2:dblclick()
    support.delete(0, "Yes")
  end)
  local form = quillet.form("frmdelwhatinTB")
  if form and form.visible then form:close() end
end

local function day(number, seed, acts, path)
  math.randomseed(seed, number)
  log = assert(io.open(path, "a"))
  local left = acts
  while left > 0 do
    local some = math.random(8)
    left = left - some
    local rare = any { link, of_groups, create, remove }
    local ok, problem = pcall(math.random(4) == 1 and rare or year_day, some)
    if not ok then count("error: " .. tostring(problem):sub(1, 200)) end
    quillet.unanswered()
    quillet.messages()
    quillet.notices()
  end
  local names = {}
  for name in pairs(counts) do names[#names + 1] = name end
  table.sort(names)
  for _, name in ipairs(names) do print(number, counts[name], name) end
end

if arg[1] == "arrange" then
  arrange()
elseif arg[1] == "day" then
  day(tonumber(arg[2]), tonumber(arg[3]), tonumber(arg[4]), arg[5])
else
  require("station_model")({ table.unpack(arg, 2) })
end
