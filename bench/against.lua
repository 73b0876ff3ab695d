-- Played by bench/against with the programs of two commits: uses only what scripts have always had.
--   fill PRACTICE   puts the lines and ledgers of that practice into an empty one
--   start           opens the first window and ends
--   play            does operations, as standard input names them
local kinds = { "TAB_", "JRNL_", "TRADE_" }
local sizes = { 200, 2000, 20000 }

-- --- data ----------------------------------------------------------------------------------------

-- Sends rows in statements of a thousand.
local function inserter(into)
  local rows = {}
  local function send()
    if #rows > 0 then quillet.exec("insert into " .. into .. " values " .. table.concat(rows, ",")) end
    rows = {}
  end
  return function(format, ...)
    if not format then return send() end
    rows[#rows + 1] = "(" .. string.format(format, ...) .. ")"
    if #rows == 1000 then send() end
  end
end

local function register(client, table_name, number)
  quillet.exec(string.format("insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr)" ..
    " values('%s','01/04/2008','31/03/2009','%s',%d,'01042008','31032009')", client, table_name, number))
end

-- Clients with one year each, in one table; their lines are spread over all groups.
local function fillYears()
  local groups = quillet.query("select distinct ALLID from Mast_AllGrp order by ALLID")
  local ledger = inserter("Mast_Part(PartId,Particular)")
  for id = 1, sizes[#sizes] do ledger("%d,'Ledger of Many %d'", id, id * 7919 % sizes[#sizes]) end
  ledger()
  for _, size in ipairs(sizes) do
    local client = "L" .. size
    quillet.add_client { code = client, name = "Client with " .. size .. " Lines" }
    register(client, "TAB_1", 1)
    local line = inserter("TAB_1(srno,code_no,partid,allid,amt,nid)")
    for srno = 1, size do
      line("%d,'%s',%d,%d,%.2f,%d", srno, client, srno, groups[srno * 31 % #groups + 1][1],
        (srno * 7919 % 10000000 + 100) / 100, srno % 2 + 1)
    end
    line()
  end
  quillet.query("analyze table Mast_Part,TAB_1")
end

-- 50,000 ledgers, the first 10,000 in use; 2,000 client years share 400 sets of tables. From 20,000
-- on a hundred for each turn of linking stand in one table each.
local function fillLarge()
  local ledger = inserter("Mast_Part(PartId,Particular)")
  for id = 1, 50000 do ledger("%d,'Ledger of the Large Practice %d'", id, id * 7919 % 50000) end
  ledger()
  local year = inserter("master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr)")
  local client = inserter("TempClTbl(CodeNo,Name)")
  for n = 0, 1999 do
    year("'LM%d','01/04/2008','31/03/2009','TAB_%d',%d,'01042008','31032009'", n, n % 400 + 1, n % 400 + 1)
    client("'LM%d','Client %d'", n, n)
  end
  year()
  client()
  for number = 1, 400 do
    local line = inserter("TAB_" .. number .. "(srno,code_no,partid,allid,amt,nid)")
    local voucher = inserter("JRNL_" .. number .. "(code_no,VID,PartId,AllId,Amount)")
    local stock = inserter("TRADE_" .. number .. "(code_no,partid,allid,amt)")
    for n = number - 1, 1999, 400 do
      for i = 0, 24 do
        line("%d,'LM%d',%d,27,100,1", i + 1, n, i == 0 and 1 or (n * 25 + i) * 31 % 10000 + 1)
      end
      voucher("'LM%d',1,%d,27,5", n, n + 1)
      voucher("'LM%d',1,%d,27,-5", n, n + 2)
      stock("'LM%d',%d,27,50", n, n * 3 + 1)
    end
    if number <= 100 then
      for turn = 0, 49 do
        line("%d,'LM%d',%d,27,1,1", 1000 + turn, number - 1, 20000 + turn * 100 + number)
      end
    end
    line()
    voucher()
    stock()
  end
end

-- --- operations: each returns what is done before a turn, and the turn ---------------------------

local function editorOf(size)
  local context = quillet.context
  context.client, context.table = "L" .. size, "TAB_1"
  context.first, context.second = "01042008", "31032009"
  local editor = quillet.show("frmcrtb")
  assert(editor.vsfm.rows >= size, "lines are missing")
  return editor
end

local operations = {}

function operations.open(size)
  return function()
    local editor = quillet.form("frmcrtb")
    if editor then editor:close() end
  end, function() editorOf(size) end
end

-- Each turn adds a line with another known ledger.
function operations.line(size)
  local editor = editorOf(size)
  local turn = 0
  return function()
    turn = turn + 1
    editor.mnuinsert:click()
    editor.txtpart:type("Ledger of Many " .. turn)
    editor.txtgroup:type("DEPOSITS")
    editor.txtamount:type("1250.75")
    editor.txtdrcr:type("D")
  end, function() editor.txtdrcr:press("Enter") end
end

-- Ten lines whose amounts cancel out.
function operations.voucher(size)
  editorOf(size).mnujournal:click()
  local journal = assert(quillet.form("frmjrnl"))
  local ledgers = quillet.query("select p.Particular, g.ALLGRP from TAB_1 t join Mast_Part p on p.PartId=t.partid " ..
    "join Mast_AllGrp g on g.ALLID=t.allid where t.code_no='L" .. size .. "' order by t.srno limit 5")
  return function()
    quillet.exec("delete from JRNL_1")
    journal.cmdadd:click()
    journal.txtdt:type("15062008")
    for i = 0, 9 do
      local credit = i % 2 == 0
      journal.cboside[i]:choose(credit and "To" or "By")
      journal.txtledger[i]:type(ledgers[i // 2 + 1][1])
      journal.txtledger[i]:press("Tab")
      journal.txtgroup[i]:type(ledgers[i // 2 + 1][2])
      local amount = credit and journal.txtcramt[i] or journal.txtdramt[i]
      amount:type("125.25")
      if i < 9 then amount:press("Enter") end
    end
  end, function()
    journal.cmdupdate:click()
    assert(not journal.cmdupdate.enabled or not journal.cmdupdate.visible, "the voucher was not saved")
  end
end

-- From the year before, with its particulars and their figures.
function operations.year(size)
  local home = quillet.show("third")
  local client = "L" .. size
  return function()
    quillet.exec("delete from master where code_no='" .. client .. "' and f_yr='01042009'")
    quillet.exec("delete from TAB_2 where code_no='" .. client .. "'")
    home:press("Escape")
    home.mnucreate:click()
    home.ClGrd1:pick(client)
    home.ClGrd1:dblclick()
    home.MaskEdBox1:type("01042009")
    home.MaskEdBox1:press("Enter")
    quillet.answer("Yes", "Yes")
  end, function() home.MaskEdBox2:press("Enter") end
end

function operations.summary(size)
  local editor = editorOf(size)
  return function()
    if editor.vsfr.visible then editor.mnushsumm:click() end
  end, function() editor.mnushsumm:click() end
end

local function ledgerMaster()
  quillet.show("third").cmdledmas:click()
  return assert(quillet.form("frmtbledmas"))
end

function operations.master()
  return function()
    local master = quillet.form("frmtbledmas")
    if master then master:close() end
  end, function() assert(ledgerMaster().vsf.rows > 40000, "ledgers are missing") end
end

function operations.link()
  local master = ledgerMaster()
  local turn = 0
  return function()
    master.vsf:pick("Ledger of the Large Practice 7919")
    master.cmdlink:click()
    for id = 20001 + turn * 100, 20100 + turn * 100 do
      master.vsf:tick(master.vsf:pick("Ledger of the Large Practice " .. id * 7919 % 50000), true)
    end
    turn = turn + 1
    quillet.answer("Yes")
  end, function() master.cmdlink:click() end
end

-- --- obeying -------------------------------------------------------------------------------------

local function reply(text)
  io.write(text, "\n")
  io.flush()
end

local function play()
  local prepare, turn
  for line in io.lines() do
    local name, size = line:match("^(%S+) ?(%d*)")
    if name == "prepare" then
      prepare()
      quillet.statements()
      reply("ready")
    elseif name == "run" then
      local before = os.clock()
      turn()
      reply(string.format("%.6f", os.clock() - before))
    else
      prepare, turn = operations[name](tonumber(size))
      reply("ready")
    end
  end
  assert(#quillet.log() == 0, "the error log has entries: " .. table.concat(quillet.log(), "\n"))
end

quillet.today("2009-06-15")
local deed, practice = arg[1], arg[2]
if deed == "fill" then
  if practice == "years" then fillYears() else fillLarge() end
elseif deed == "start" then
  quillet.show("third")
  reply(string.format("%.6f", os.clock()))
else
  play()
end
