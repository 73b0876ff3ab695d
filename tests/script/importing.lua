-- Lines from pasted cells and from a file, reviewed and imported; a new year in one go.
local support = require("support")
local equal = support.equal

quillet.add_client { code = "I1", name = "Iyer & Sons" }
local year = support.year("I1", 2007, 1)
local editor = support.open("I1", 2007)

local function lines(table_name)
  return quillet.query("select particular,allgrp,amt,nid from " .. table_name .. " t " ..
    "join Mast_Part p on p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid " ..
    "where code_no='I1' order by srno")
end
local function row(found)
  return { found.particular, found.allgrp, found.amt, found.nid }
end

support.fails("takes no cells", function() editor.txtpart:paste("Cash") end)
editor.txtpart:paste("Particulars\tGroup\tDebit\tCredit\n" ..
  "Cash in Hand\tCASH IN HAND\t1,234.50\t\nIyer's \\ Capital\tCAPITAL ACCOUNT\t\t1,234.50\n" ..
  "Total\t\t1,234.50\t1,234.50\n")
local import = assert(quillet.form("frmimport"), "the review is not open")
equal(import.vsfi:cell(2, "State"), "New ledger")
equal(import.vsfi:cell(4, "Kind"), "Total")
import.cmdimport:click()
equal(#support.messages(), 1)
local found = lines(year)
equal(row(found[1]), { "Cash in Hand", "CASH IN HAND", 1234.5, 1 })
equal(row(found[2]), { "Iyer's \\ Capital", "CAPITAL ACCOUNT", 1234.5, 2 })
equal(editor.vsfm.rows, 2)
equal(#quillet.report().rows, 6)
editor:close()

-- The next year from a file without groups: they are the ones of last year.
local path = os.tmpname()
local file = assert(io.open(path, "w"))
file:write("Particulars,Amount,Dr/Cr\nCash in Hand,\"2,000.00\",Dr\nIyer's \\ Capital,1500,Cr\n",
  "Scrap Sold,500,Cr\n")
file:close()
local home = quillet.show("third")
home:press("Escape")
home.mnucreate:click()
home.ClGrd1:pick("I1")
home.ClGrd1:dblclick()
home.MaskEdBox1:press("Down")
-- No year is made for a file that cannot be read, or that nobody chose.
quillet.file(path .. ".gone")
home.cmdyearimport:click()
assert(support.messages()[1]:find("is not there any more"))
quillet.file(nil)
home.cmdyearimport:click()
equal(quillet.query("select count(*) as n from master where code_no='I1'")[1].n, 1)
equal(quillet.form("frmcrtb"), nil)
quillet.answer("No", "No") -- neither the particulars nor the lines of last year
quillet.file(path)
home.cmdyearimport:click()
support.messages()
import = assert(quillet.form("frmimport"), "the review of the new year is not open")
equal(import.vsfi:cell(2, "Group Is"), "From last year")
equal(import.vsfi.current, 4)
import.txtgroup:type("RENT RECEIVED\n")
import.cmdimport:click()
equal(#support.messages(), 1)
found = lines("TAB_2")
equal(#found, 3)
equal(row(found[1]), { "Cash in Hand", "CASH IN HAND", 2000, 1 })
editor = quillet.form("frmcrtb")

-- A sheet of vouchers leads to their review, whence they are entered.
editor.txtpart:paste("Date\tVoucher No\tParticulars\tDebit\tCredit\tNarration\n" ..
  "30/04/2008\t1\tScrap Sold\t25\t\tTo cash\n\t1\tCash in Hand\t\t25\t\n" ..
  "30/04/2008\t2\tCash in Hand\t3\t\t\n")
equal(quillet.form("frmimport").vsfi.rows, 0)
quillet.form("frmimport").cmdvouchers:click()
import = assert(quillet.form("frmvchimport"), "the review of vouchers is not open")
equal(quillet.form("frmimport"), nil)
equal(import.vsfi:cell(1, "Voucher Is"), "New")
equal(import.vsfi:cell(3, "Voucher Is"), "Stays out")
quillet.answer("Yes")
import.cmdimport:click()
support.messages()
found = quillet.query("select Amount as a from JRNL_2 where code_no='I1' order by LSrNo")
equal({ found[1].a, found[2].a }, { 25, -25 })
equal(lines("TAB_2")[3].amt, 1975)
editor:close()
os.remove(path)
equal(quillet.log(), {})
