-- Names and amounts that people type by mistake, by paste, or because the name is like that.
local support = require("support")
local equal, enter = support.equal, support.enter

quillet.add_client { code = "O'B", name = "O'Brien & \"Söhne\" \\ Co" }
local tab = support.year("O''B", 2008, 1)
local editor = support.open("O'B", 2008)
local function stored() return support.stored(tab, "O''B") end

-- Names come back as they were typed but for blanks too many, and twice the same name is the same ledger.
local names = {
  "O'Brien", 'the "best"', "back\\slash", "\\'; drop table master; --", "Söhne & 北京",
  "🙂 smile", "100% _wild_", "=1+1", "`tick`", "single blanks",
}
for i, name in ipairs(names) do
  enter(editor, name, "RENT", "10", "D")
  enter(editor, " " .. name:gsub(" ", "\u{A0} ") .. "\u{200B}", "RENT", tostring(i), "D")
end
local lines = stored()
equal(#lines, #names, "lines")
for i, name in ipairs(names) do
  equal({ lines[i][2], lines[i][3] }, { name, 10 + i }, name)
  equal(editor.vsfm:cell(editor.vsfm:pick(name), "Amount"), string.format("%.2f", 10 + i))
end
equal(#quillet.query("select * from master"), 1, "years after all those quotes")
quillet.exec("delete from " .. tab)
editor.mnurefresh:click()

-- Amounts: what is one is kept to the paisa, what is none is refused and nothing is stored.
quillet.messages()
local refused = "Cannot save the entry due to invalid data."
local amounts = {
  { "999999999999.99", 999999999999.99, "999999999999.99" },
  { "0.01",            0.01,            "0.01" },
  { "1,234.50",        1234.5,          "1234.50" },
  { "0.005",           0.01,            "0.01" },
  { "2.675",           2.68,            "2.68" },
  { ".5",              0.5,             "0.50" },
  { "-007",            7,               "7.00" },
  { "1000000000000000", 1e15, "1000000000000000.00" },
  { "abc",             nil },
  { "",                nil },
  { "0",               nil },
  { "1.2.3",           nil },
}
for _, case in ipairs(amounts) do
  local typed, kept, text = table.unpack(case)
  enter(editor, "Amount", "RENT", typed, "D")
  if kept then
    equal(stored()[1] and stored()[1][3], kept, "stored for '" .. typed .. "'")
    equal(stored()[1][4], typed:sub(1, 1) == "-" and 2 or 1, "side of '" .. typed .. "'")
    equal(editor.vsfm:cell(1, "Amount"), text, "shown for '" .. typed .. "'")
    equal(support.messages(), {}, "messages for '" .. typed .. "'")
  else
    equal(#stored(), 0, "lines for '" .. typed .. "'")
    equal(support.messages(), { refused }, "messages for '" .. typed .. "'")
  end
  quillet.exec("delete from " .. tab)
  editor.mnurefresh:click()
end

-- Sides: any case of the letters; something else keeps the focus where it is and saves nothing.
for _, side in ipairs { "d", "D", "dr", "Dr", "DR" } do
  enter(editor, "Side", "RENT", "1", side)
end
equal({ stored()[1][3], stored()[1][4] }, { 5, 1 })
for _, side in ipairs { "c", "C", "cr", "CR" } do
  enter(editor, "Side", "RENT", "1", side)
end
equal({ stored()[1][3], stored()[1][4] }, { 1, 1 })
equal(support.messages(), {})
enter(editor, "Side", "RENT", "1", "X")
equal(support.messages(), { "Only 'C' or 'c' and 'D' or 'd' are allowed." })
equal(editor.txtpart:focus(), false)
equal(editor.active, "txtdrcr")
editor.txtdrcr:type("D")
editor:press("Escape")

-- A group that does not exist is told when its box is left, and never saved.
quillet.exec("delete from " .. tab)
editor.mnurefresh:click()
editor.txtpart:type("Lost")
editor.txtgroup:type("No such group")
editor.txtamount:focus()
equal(support.messages(), { "Group does not Exist." })
editor.txtamount:type("5")
editor.txtdrcr:type("D")
editor.txtdrcr:press("Enter")
equal(support.messages(), { "Group does not exist." })
equal(stored(), {})
editor:press("Escape")

-- Five thousand characters do not break in; what is kept is the beginning.
local long = string.rep("अ", 5000)
enter(editor, long, "RENT", "1", "D")
local kept = quillet.query("select Particular from Mast_Part where Particular like 'अअ%'")[1]
equal(kept.particular, string.rep("अ", 100))
quillet.messages()
quillet.exec("delete from " .. tab)
editor.mnurefresh:click()

-- Debits of 0.1 and 0.2 beside a credit of 0.3: the plain sums differ in their last binary digit,
-- and the difference is told although it shows as nothing.
enter(editor, "A", "RENT", "0.1", "D")
enter(editor, "B", "RENT", "0.2", "D")
enter(editor, "C", "RENT", "0.3", "C")
equal({ editor.txttotdeb.text, editor.txttotcr.text }, { "0.30", "0.30" })
equal({ editor.txtdiff.text, editor.txtdifft.text }, { "0.00", "Debit" })
equal(quillet.log(), {})
