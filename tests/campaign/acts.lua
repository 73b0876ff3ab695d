-- What a person does, act by act.
--   acts.lua arrange                 prepares the books
--   acts.lua play SCENARIO [FOLDER]  carries the acts out; the tables after each go into FOLDER
--   acts.lua show                    opens the home form and prints the tables
package.path = package.path .. ";" .. arg[0]:match("^(.*)/") .. "/../script/?.lua"
local support = require("support")
local command, scenario, folder = table.unpack(arg)
quillet.today("2008-06-15")

-- The shim that watches the disk, when it is there.
local function tell(what)
  local shim = os.getenv("QUILLET_DISK_SHIM")
  local call = shim and assert(package.loadlib(shim, what))
  if call then call() end
end

-- A voucher of one pair on both sides, as others passed it.
function support.voucher(client, suffix, number, date, ledger, group)
  for line, amount in ipairs { 5, -5 } do
    quillet.exec(string.format("insert into JRNL_%s(code_no,VID,LSrNo,VDate,PartId,AllId,Amount) " ..
      "values('%s',%d,%d,'%s',%d,%d,%d)", suffix, client, number, line, date, ledger, group, amount))
  end
end

local function cells(row)
  local texts = {}
  for i, cell in ipairs(row) do texts[i] = tostring(cell) end
  return table.concat(texts, "|")
end

-- Every row of every table and every file that belongs to a year, in one order; without what the
-- suite notes of the tables' definitions, when it happened, and what only fills the disk.
local left_out = { SchemaState = true, filling = true }
local function books()
  local lines = {}
  local columns = quillet.query("select table_name, group_concat('ifnull(`', column_name, " ..
    "'`,\\'-\\')' order by ordinal_position) from information_schema.columns where " ..
    "table_schema=database() and extra not like '%auto_increment%' and column_name not in " ..
    "('row_from','row_till','At','Hash') group by table_name")
  for _, each in ipairs(columns) do
    for _, row in ipairs(quillet.query("select " .. each[2] .. " from `" .. each[1] .. "`")) do
      if not left_out[row[2]] then lines[#lines + 1] = each[1] .. ": " .. cells(row) end
    end
  end
  for _, each in ipairs(quillet.check()) do
    lines[#lines + 1] = "unsound: " .. each.client .. " " .. each.year .. ": " .. each.what
  end
  local files = assert(io.popen("cd '" .. quillet.paths.doc .. "' && find . -type f -not -path './Deleted/*'"))
  for name in files:lines() do lines[#lines + 1] = "file " .. name end
  files:close()
  table.sort(lines)
  return table.concat(lines, "\n") .. "\n"
end

local acts = 0
local function write()
  if not folder then return end
  local file = assert(io.open(folder .. "/" .. acts, "w"))
  assert(file:write(books()) and file:close())
end

-- From here on acts count; what stands before belongs to the way there.
local function begin()
  quillet.messages()
  write()
end

-- An act that ends without a notice is acknowledged. One that was taken back is tried once more.
local function act(work, ...)
  tell("disk_begin")
  work(...)
  if #quillet.notices() > 0 then
    tell("disk_failed")
    work(...)
    local notices = quillet.notices()
    if #notices > 0 then error(notices[1], 0) end
  end
  acts = acts + 1
  tell("disk_acknowledge")
  write()
  -- Now and then all pages are written, so that something happens on the disk besides the log.
  if acts % 2 == 0 then quillet.exec("set global innodb_log_checkpoint_now=on") end
end

if command == "show" then
  quillet.show("third")
  io.write(books())
else
  for _, name in ipairs { "at_the_editor", "at_home", "in_the_masters" } do
    local scenarios = require(name) { act = act, begin = begin, support = support }
    local play = scenarios[command == "arrange" and "arrange" or scenario]
    if play then play() end
  end
end
