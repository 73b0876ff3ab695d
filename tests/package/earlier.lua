-- The books of the practice in practice-before.tar.zst: it was made by the program as it was before
-- practices had a number for how they are laid out.
local support = require("support")
quillet.today("2009-06-15")
local editor = support.open("A1", 2008)
support.equal({ editor.txttotdeb.text, editor.txttotcr.text }, { "45,678.25", "45,678.25" })
support.equal(support.stored("TAB_1", "A1"), {
  { 1, "Capital Asha", 45678.25, 2 },
  { 2, "State Bank of Mysore", 40000.25, 1 },
  { 3, "Till", 5678, 1 },
})
-- And it can be worked with.
support.enter(editor, "Till", "CASH IN HAND", "100", "D")
support.equal({ editor.txttotdeb.text, editor.txtdiff.text }, { "45,778.25", "100.00" })
support.equal(quillet.log(), {})
