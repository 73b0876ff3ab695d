-- The guided tour: what a day with Quillet looks like, on the sample practice. Pictures and results
-- go to the folder given: quillet --data DIR script --show docs/tour.lua FOLDER
package.path = package.path .. ";" .. arg[0]:match("^(.*)/") .. "/../tests/script/?.lua"
local support = require("support")
local folder = arg[1] or "."
local pictures = 0

local function picture(name)
  pictures = pictures + 1
  quillet.screenshot(string.format("%s/%02d-%s.png", folder, pictures, name))
end

local reports = 0
local function report(name)
  reports = reports + 1
  quillet.save_report(string.format("%s/%s.pdf", folder, name))
end

local function say(...) print(string.format(...)) end

quillet.today("2009-06-15")

-- The home form: clients, and what can be done for them.
local home = quillet.show("third")
say("The register holds %d clients.", home.ClGrd1.rows)
picture("home")

home.txtsearch:type("tra")
say("Searching for 'tra' leaves %d.", home.ClGrd1.rows)
picture("search")
home.txtsearch:type("")

-- The client with the most years.
local best = quillet.query(
  "select code_no, count(*) as years from master group by code_no order by years desc, code_no limit 1")[1]
home.mnualter:click()
home.ClGrd1:pick(best.code_no)
home.ClGrd1:dblclick()
say("%s has trial balances of %d years.", best.code_no, home.flexgrid2.rows)
picture("years")

-- The last year in the editor.
home.flexgrid2:pick(home.flexgrid2.rows)
home.flexgrid2:dblclick()
local editor = assert(quillet.form("frmcrtb"), "the editor did not open")
say("%s", editor.caption)
say("%d lines, debit %s, credit %s.", editor.vsfm.rows, editor.txttotdeb.text, editor.txttotcr.text)
picture("editor")

-- Entering a line: the lists follow what is typed.
editor.txtpart:type("Rent of Exhibition Stall")
editor.txtpart:press("Enter")
editor.txtgroup:type("rent")
picture("entry")
editor.txtgroup:press("Enter")
editor.txtamount:type("12000")
editor.txtamount:press("Enter")
editor.txtdrcr:type("D")
editor.txtdrcr:press("Enter")
say("After entering a rent: debit %s, difference %s %s.", editor.txttotdeb.text,
  editor.txtdiff.text, editor.txtdifft.text)
picture("entered")

-- And away with it.
editor:press("Escape")
editor.vsfm:pick("Rent of Exhibition Stall")
quillet.answer("Yes")
editor.mnudelete:click()
assert(editor.txtdiff.text == "", "the sample's books balance again")
say("After deleting it again both sides are equal.")

-- Two years side by side.
if editor.mnuyropts.enabled then
  editor.mnuyrs[2]:click()
  say("Beside the previous year: %d lines.", editor.vsfm.rows)
  picture("both-years")
  editor.mnuyrs[0]:click()
end

-- The lines of one group.
editor.mnugroup:click()
picture("group-view")
editor.mnugroup:click()

-- What the year comes to.
editor.mnushsumm:click()
say("Gross profit %s, net profit %s.", editor.vsfr:cell(7, 2), editor.vsfr:cell(10, 2))
picture("summary")
editor.mnuprnsumm:click()
report("summary")
editor.mnushsumm:click()
editor.mnuPreview:click()
picture("preview")
report("trial-balance")

-- The workbook.
local workbook = folder .. "/trial-balance.xls"
os.remove(workbook)
quillet.messages()
quillet.file(workbook)
editor.mnuexport:click()
say("%s", quillet.messages()[1].text)

-- The adjustment journal: a voucher posts at once.
editor.mnujournal:click()
local journal = assert(quillet.form("frmjrnl"), "the journal did not open")
journal.cmdadd:click()
journal.txtdt:type("31032009")
support.voucher_line(journal, 0, "By", "Audit Fees", "AUDIT FEES", "15000")
support.voucher_line(journal, 1, "To", "Audit Fees Payable", "EXPENSES PAYABLE", "15000")
journal.txtnarr:type("Audit fee of the year provided for")
picture("voucher")
journal.cmdupdate:click()
assert(journal.Frame1.visible, "the voucher was not saved")
picture("journal")
journal.cmdtb:click()
report("subsidiary-trial-balance")
journal.vsf:pick(1)
quillet.answer("Yes")
journal.Command1:click()
quillet.answer("Yes")
journal:close()
assert(editor.txtdiff.text == "", "the sample's books balance again")
say("A voucher was passed, posted, and taken out again.")
editor:close()

-- What a year can be rid of, and what hangs on it. Nothing is deleted here.
home:press("Escape")
home.mnudelete:click()
home.ClGrd1:pick(best.code_no)
home.ClGrd1:dblclick()
home.flexgrid2:pick(1)
quillet.answer("Yes")
home.flexgrid2:dblclick()
local deletion = assert(quillet.form("frmdelwhatinTB"), "the deletion form did not open")
deletion.optMain[2]:click()
picture("deletion")
deletion.cmdcancel:click()

-- The masters.
home.cmdgrpmas:click()
picture("group-master")
quillet.form("frmgrpmas"):close()
home.cmdledmas:click()
picture("ledger-master")
quillet.form("frmtbledmas"):close()
home:close()
assert(#quillet.log() == 0, "something was trapped: " .. tostring(quillet.log()[1]))
local made = io.open(workbook)
say("%d pictures, %d reports, %s.", pictures, reports, made and "1 workbook" or "no workbook")
