-- What an act did before the disk was full is taken back; the entry is shown again, a line tells of
-- it, and another Enter saves. A failure of another kind leaves what went before it.
local support = require("support")
local equal, enter = support.equal, support.enter

quillet.add_client { code = "R1", name = "Rao Textiles" }
local tab = support.year("R1", 2008, 1)
local editor = support.open("R1", 2008)
enter(editor, "Office Rent", "RENT", "12000", "D")
local stored = { { 1, "Office Rent", 12000, 1 } }
equal(support.stored(tab, "R1"), stored)
equal(quillet.notices(), {})

local ledgers = #quillet.query("select * from Mast_Part")
local fields = function()
  return { editor.txtpart.text, editor.txtgroup.text, editor.txtamount.text, editor.txtdrcr.text }
end
for _, failing in ipairs { "delete from TAB_1", "insert into TAB_1" } do
  quillet.fail(failing, 1021)
  enter(editor, "Office Rent", "RENT", "40", "C")
  equal(support.stored(tab, "R1"), stored)
  equal(support.rows(editor.vsfm), { { "Office Rent", "RENT", "12000.00", "DR" } })
  equal(fields(), { "Office Rent", "RENT", "40.00", "C" })
  equal(editor.active, "txtdrcr")
  local notices = quillet.notices()
  equal(#notices, 1)
  assert(notices[1]:find("^%d%d:%d%d  Nothing of the last step was stored"), notices[1])
  equal(quillet.notices(), {})
end
editor:press("Enter")
equal(support.stored(tab, "R1"), { { 1, "Office Rent", 11960, 1 } })

-- A ledger that the act had made is gone with it, and is made again.
quillet.fail("insert into TAB_1", 1021)
enter(editor, "Brand New", "RENT", "7", "D")
equal(#quillet.query("select * from Mast_Part"), ledgers)
quillet.notices()
editor:press("Enter")
equal(#quillet.query("select * from Mast_Part where Particular='Brand New'"), 1)
equal(support.stored(tab, "R1"), { { 1, "Office Rent", 11960, 1 }, { 2, "Brand New", 7, 1 } })

-- A statement that fails by itself: those before it stay, and it is told all the same.
quillet.fail("insert into TAB_1")
enter(editor, "Office Rent", "RENT", "60", "C")
equal(support.stored(tab, "R1"), { { 2, "Brand New", 7, 1 } })
local told = quillet.notices()
equal(#told, 1)
assert(told[1]:find("Trial Balance of Rao Textiles", 1, true) and told[1]:find("error log", 1, true),
  told[1])
editor:press("Enter")
equal(support.stored(tab, "R1"), { { 2, "Brand New", 7, 1 }, { 3, "Office Rent", 11900, 1 } })
