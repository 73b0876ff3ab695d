-- The adjustment journal, opened from the editor: a voucher posts at once, is modified, printed and
-- deleted; what a person may type by mistake is refused.
local support = require("support")
local equal = support.equal

quillet.today("2008-06-15")
quillet.add_client { code = "J1", name = "Joshi Jewellers" }
quillet.add_client { code = "J2", name = "Neighbour" }
local tab = support.year("J1", 2008, 1)
quillet.exec("insert into master (code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values " ..
  "('J2','01/04/2008','31/03/2009','" .. tab .. "',1,'01042008','31032009')")
local editor = support.open("J1", 2008)
support.enter(editor, "Cash in Hand", "CASH IN HAND", "500", "D")
support.enter(editor, "Office Rent", "RENT", "40", "D")
editor:press("Escape")
quillet.exec("insert into " .. tab .. " select 1,'J2',partid,allid,77,1 from " .. tab ..
  " where code_no='J1' limit 1")
-- Home goes on to the neighbour; the journal stays with the editor's client.
quillet.context.client = "J2"
editor.mnujournal:click()
local journal = assert(quillet.form("frmjrnl"), "the journal is not open")
equal(journal.lblperiod.caption, "Period: 01/04/2008 - 31/03/2009")
equal(journal.vsf.rows, 0)

local function line(...) support.voucher_line(journal, ...) end
local function vouchers()
  local found = {}
  for i, row in ipairs(quillet.query("select code_no,VID,LSrNo,VDate,Amount from JRNL_1 " ..
    "order by VID,LSrNo")) do
    found[i] = { row[1], row[2], row[3], row[4], row[5] }
  end
  return found
end

journal.cmdadd:click()
equal(journal.txtdt.text, "15/06/2008")
line(0, "By", "Office Rent", nil, "12.505")
equal(journal.txtgroup[0].text, "RENT")
equal(journal.txtcurbal[0].text, "52.51Dr")
quillet.answer("Yes")
line(1, "To", "Söhne 'A' \\ 🙂", "SUNDRY CREDITORS FOR GOODS", "12.50")
equal(support.messages(), { "Do you want to Create New Ledger 'Söhne A \\ 🙂'?" })
journal.cmdupdate:click()
equal(support.messages(), { "Total Debit Amount should be Equal to Total Credit Amount." })
journal.txtcramt[1]:type("12.51")
local narration = string.rep("the owner's share \\ ", 300)
journal.txtnarr:type(narration)
journal.cmdupdate:click()
equal(support.messages(), {})
equal(vouchers(), { { "J1", 1, 1, "2008-06-15", 12.51 }, { "J1", 1, 2, "2008-06-15", -12.51 } })
equal(quillet.query("select VNar from JRNL_1")[1][1], (narration:gsub("'", "")))
equal(support.rows(journal.vsf)[2], { "", "To Söhne A \\ 🙂", "", "12.51" })

-- Modified under the same number, then deleted: the books are what they were.
journal.vsf:pick(1)
journal.cmdmodify:click()
journal.txtdramt[0]:type("5")
journal.txtcramt[1]:type("5")
journal.txtdt:type("01042009")
journal.txtdt:press("Enter")
equal(support.messages(),
  { "Please Specify a Valid Date between 01/04/2008 and 31/03/2009." })
journal.txtdt:type("31032009")
journal.cmdupdate:click()
equal(vouchers(), { { "J1", 1, 1, "2009-03-31", 5 }, { "J1", 1, 2, "2009-03-31", -5 } })
journal.cmdtb:click()
local report = quillet.report()
equal(report.rows[#report.rows],
  { "Grant Total", "540.00", "0.00", "5.00", "5.00", "545.00", "5.00" })
journal.cmdprn:click()
equal(quillet.report().rows[2], { "31-3-2009", "By Office Rent", "5.00", "" })

-- A deletion that fails in the middle is completed by the next try.
journal.vsf:pick(1)
quillet.fail("delete from JRNL_1")
quillet.answer("Yes", "Yes")
journal.Command1:click()
equal(#quillet.log(), 1)
journal.vsf:pick(1)
journal.Command1:click()
equal(vouchers(), {})
equal(quillet.query("select sum(amt*(3-2*nid)) from " .. tab .. " where code_no='J1'")[1][1], 540)
equal(quillet.query("select sum(amt) from " .. tab .. " where code_no='J2'")[1][1], 77)
equal(quillet.query("show tables like 'ledger_temp%'"), {})
support.messages()
quillet.answer("Yes")
journal:close()
equal(support.messages(), { "Do you want to Exit?" })
equal(editor.txttotdeb.text, "540.00")
