-- A printout from the home form: shown, read, and saved as PDF and as text without a display.
local support = require("support")
local equal, fails = support.equal, support.fails

quillet.add_client { code = "C1", name = "Rao Textiles" }
local tab = support.year("C1", 2008, 1)
quillet.exec("insert into Mast_Part values(1,'Söhne & Co')")
quillet.exec("insert into " .. tab .. " values(1,'C1',1,72,12000.5,1)")

local home = quillet.show("third")
home.mnusettings:click()
quillet.form("frmSettings").txtfirm:type("Sample & Associates")
quillet.form("frmSettings").cmdok:click()
home.mnualpha:click()
home.ClGrd1:pick("C1")
home.ClGrd1:dblclick()
home.flexgrid2:pick(1)
home.flexgrid2:dblclick()
equal(quillet.log(), {})

local report = assert(quillet.report(), "no report was shown")
local texts = table.concat(report.headings, "\n")
assert(texts:find("Trial Balance For the Period From 01/04/2008 To 31/03/2009", 1, true), texts)
equal(#report.rows, #report.masks)
equal(report.file, "Rao Textiles 2008-09 Trial Balance")
local found
for i, row in ipairs(report.rows) do
  equal(#report.masks[i], 4)
  if table.concat(row, "|"):find("Söhne & Co", 1, true) then found = row end
end
assert(found, "the line is not in the report")
assert(table.concat(found, "|"):find("12000.50", 1, true))

local function contents(path)
  local file <close> = assert(io.open(path, "rb"))
  return file:read("a")
end

-- Every printout has the firm's name at its head, in the text file and on the page.
local text, pdf = quillet.paths.doc .. "/report.txt", quillet.paths.doc .. "/report.PDF"
local function heads(title)
  quillet.save_report(text)
  quillet.save_report(pdf)
  local page <close> = assert(io.popen("pdftotext -layout '" .. pdf .. "' -"))
  for kind, whole in pairs { text = contents(text), pdf = page:read("a") } do
    local head = whole:match("[^\n]+")
    assert(head:find("Sample & Associates", 1, true), kind .. " of " .. title .. ": " .. head)
    assert(whole:find(title, 1, true), kind .. " of " .. title .. ": " .. whole)
    assert(select(2, whole:gsub("Sample & Associates", "")) == 1, kind .. " of " .. title)
    assert(whole:find("12,?000.50"), kind .. " of " .. title .. ": " .. whole)
  end
end
heads("Trial Balance For the Period")
for _, command in ipairs { home.mnusumm, home.mnudet } do
  home:press("Escape")
  command:click()
  home.ClGrd1:dblclick()
  home.flexgrid2:dblclick()
  heads("Trial Balance For the Period")
end
quillet.exec("insert into JRNL_1 values('C1',1,1,'2008-06-15',1,72,12000.5,''),('C1',1,2,'2008-06-15',1,72,-12000.5,'')")
local editor = support.open("C1", 2008)
editor.mnuPreview:click()
heads("Trial Balance")
editor.mnuprnsumm:click()
heads("Summarized Details")
editor.mnujournal:click()
local journal = quillet.form("frmjrnl")
journal.cmdprn:click()
heads("Adjustment Entries Passed of Sample & Associates")
journal.cmdtb:click()
heads("Subsidiary Trial Balance of Sample & Associates")

quillet.answer("Yes")
journal:close()

-- Sheets lie and amounts are divided as the settings say; the text keeps them as they are.
home.mnusettings:click()
quillet.form("frmSettings").cboorientation:choose("Landscape")
quillet.form("frmSettings").cbogrouping:choose("None: 1234567.50")
quillet.form("frmSettings").cmdok:click()
quillet.save_report(text)
quillet.save_report(pdf)
local page <close> = assert(io.popen("pdfinfo '" .. pdf .. "'; pdftotext -layout '" .. pdf .. "' -"))
local paper = page:read("a")
assert(paper:find("842%S* x 595") and paper:find(" 12000.50", 1, true), paper)
assert(contents(text):find("12,000.50", 1, true))
equal(quillet.log(), {})
fails(".pdf or .txt", quillet.save_report, quillet.paths.doc .. "/report.doc")
fails("cannot write", quillet.save_report, quillet.paths.doc .. "/nowhere/report.txt")
fails("cannot write", quillet.save_report, quillet.paths.doc .. "/nowhere/report.pdf")

-- The statements are driven by name; printing and leaving them as well.
home:press("Escape")
home.ClGrd1:pick("C1")
home.mnustatements:click()
local statements = quillet.form("frmstatements")
equal(statements.optpage[0].checked, true)
equal(statements.lblagrees.text, "Assets exceed equity and liabilities by 12,000.50.")
statements.optpage[1]:click()
statements.vsfh:pick(statements.vsfh.rows)
assert(statements.vsfl:row(2)[1]:find("Söhne & Co", 1, true))
statements.optpage[0]:click()
statements.cmdprint:click()
heads("Balance Sheet as at 31/03/2009")
statements.cmdback:click()
equal(statements.visible, false)
