-- The calls of the table `quillet` that the other scripts leave out, and how each one fails.
local support = require("support")
local equal, fails = support.equal, support.fails

equal(quillet.version, "2.26.2")
equal(arg[0]:match("[^/]+$"), "contract_quillet.lua")

-- The context, read and written.
quillet.context.client, quillet.context.table = "Z9", "TAB_3"
quillet.context.first, quillet.context.second = "01042010", "31032011"
equal({ quillet.context.client, quillet.context.table, quillet.context.first,
  quillet.context.second }, { "Z9", "TAB_3", "01042010", "31032011" })
fails("no field 'clint'", function() return quillet.context.clint end)
fails("no field 'third'", function() quillet.context.third = "x" end)
quillet.context.client, quillet.context.table = "", ""

-- The clock.
quillet.today("2008-02-29")
for _, date in ipairs { "2009-02-29", "2008-13-01", "2008-06-31", "15/06/2008", "2008-6-1", "", "2008-06-15x" } do
  fails("is no date", quillet.today, date)
end
fails("bad argument #1", quillet.today)

-- Forms.
equal(quillet.form("third"), nil)
equal(quillet.forms(), {})
fails("'frmjrnl'", quillet.show, "frmjrnl")
local editor = quillet.show("frmcrtb")
equal(support.messages(), { "Year not selected" })
assert(not editor.mnuinsert.enabled and not editor.mnuyropts.enabled)
fails("disabled", editor.mnuinsert.click, editor.mnuinsert)
assert(editor:close())
equal(quillet.form("frmcrtb"), nil)

-- Clients: a misspelt field and what the register refuses.
quillet.add_client { code = "C1", name = "Client", born = "1.4.1980", status = "Firm",
  address = "1, Some Street", group_code = "G", group_name = "Group", company = "Co" }
fails("no field 'nmae'", quillet.add_client, { code = "C2", nmae = "x" })
fails("c1", quillet.add_client, { code = "c1", name = "Twice" })
fails("", quillet.add_client, { name = "Without a code" })
fails("table expected", quillet.add_client, "C3")
equal(quillet.query("select count(*) from Main_Info1")[1][1], 1)

-- Queries: numbers are numbers, texts are texts, NULL is nothing; by position and by name.
local row = quillet.query("select 1 as One, 2.5 as Half, '007' as Code, null as Nothing, 'é''\\\\' as Odd")[1]
equal({ math.type(row.one), math.type(row.half), type(row.code) }, { "integer", "float", "string" })
equal({ row[1], row[2], row[3], row[5] }, { 1, 2.5, "007", "é'\\" })
equal({ row.one, row.half, row.code, row.odd }, { 1, 2.5, "007", "é'\\" })
assert(row.nothing == nil and row[4] == nil)
equal(quillet.query("select 1 from master"), {})
equal(quillet.query("select 999999999999.99 + 0e0 as Much")[1].much, 999999999999.99)
fails("master_of_nothing", quillet.query, "select * from master_of_nothing")
fails("master_of_nothing", quillet.exec, "delete from master_of_nothing")
fails("only reads", quillet.query, "delete from master")

-- The examination of the books: nothing is wrong, then a row that belongs to no year.
equal(quillet.check(), {})
quillet.exec("insert into TAB_3 values(1,'C1',1,1,10,1)")
equal(quillet.check(), { { client = "C1", year = "", table = "TAB_3", rule = "unregistered",
  what = "The table TAB_3 holds 1 row of a year that is not registered.",
  remedy = "It is left alone; a year that the client creates there would begin with it.",
  mendable = false } })
quillet.exec("delete from TAB_3")

-- Answers have to be known; none of a call is queued when one is not.
fails("'Perhaps'", quillet.answer, "Yes", "Perhaps")
fails('"Close"', quillet.refuse, "Close")

-- Reports and pictures need something to show.
equal(quillet.report(), nil)
fails("no report", quillet.save_report, "x.pdf")
fails("take a picture of", quillet.screenshot, "x.png")
assert(quillet.paths.exe ~= "" and quillet.paths.doc ~= "" and quillet.paths.exe ~= quillet.paths.doc)

-- What a script fails comes from the database as far as the module can tell: one line in the log,
-- and the form goes on.
support.year("C1", 2007, 1)
quillet.statements()
editor = support.open("C1", 2007)
local sent = quillet.statements()
assert(#sent > 0)
equal(quillet.statements(), {})
quillet.fail("INSERT INTO tab_1")
support.enter(editor, "Rent", "RENT", "10", "D")
equal(support.stored("TAB_1", "C1"), {})
local log = quillet.log()
equal(#log, 1)
equal(log[1]:match("\t([^\t]+\t[^\t]+)$"), "frmcrtb\tTXTDRCR_KEYPRESS")
editor.txtdrcr:press("Enter")
equal(support.stored("TAB_1", "C1"), { { 1, "Rent", 10, 1 } })

-- A question without an answer is an error of the call that asked, and nothing is stuck after it.
editor.vsfm:pick(1)
fails("selected record", editor.mnudelete.click, editor.mnudelete)
equal(#support.stored("TAB_1", "C1"), 1)
quillet.answer("OK")
fails("selected record", editor.mnudelete.click, editor.mnudelete)
quillet.answer("Yes")
editor.mnudelete:click()
equal(support.stored("TAB_1", "C1"), {})

-- The journal proposes the script's day.
editor.mnujournal:click()
local journal = quillet.form("frmjrnl")
journal.cmdadd:click()
equal(journal.txtdt.text, "29/02/2008")

-- Coroutines and pcall reach the forms like everything else.
equal(coroutine.wrap(function() return editor.txtpart.name end)(), "txtpart")
