-- What several scripts need: a client with years, the editor open on one, comparisons that say what
-- they found.
local support = {}

local function shown(value)
  if type(value) == "string" then return string.format("%q", value) end
  if type(value) ~= "table" then return tostring(value) end
  local parts = {}
  for i, part in ipairs(value) do parts[i] = shown(part) end
  return "{" .. table.concat(parts, ", ") .. "}"
end

-- Lists of lists of texts and numbers compare cell by cell.
function support.equal(actual, expected, what)
  local a, e = shown(actual), shown(expected)
  if a ~= e then
    error(string.format("%s: expected %s, got %s", what or "value", e, a), 2)
  end
end

-- The call must fail with a message that holds the text.
function support.fails(text, call, ...)
  local ok, message = pcall(call, ...)
  if ok then error("should have failed with: " .. text, 2) end
  if not tostring(message):find(text, 1, true) then
    error(string.format("should have failed with: %s\nbut failed with: %s", text, message), 2)
  end
end

-- Texts of the messages since the last call.
function support.messages()
  local texts = {}
  for i, message in ipairs(quillet.messages()) do texts[i] = message.text end
  return texts
end

-- Registers a trial balance that begins on 1 April of that year; returns its table.
function support.year(client, first, number)
  local name = string.format("TAB_%d", number)
  quillet.exec(string.format(
    "insert into master (code_no, f_year_dt, s_year_dt, tbl_nm, count, f_yr, s_yr) " ..
    "values ('%s', '01/04/%d', '31/03/%d', '%s', %d, '0104%d', '3103%d')",
    client, first, first + 1, name, number, first, first + 1))
  return name
end

-- Chooses the client for a command of the home form, "mnudelete"; returns the form.
function support.choose(command, client)
  local home = quillet.show("third")
  home:press("Escape")
  home[command]:click()
  home.ClGrd1:pick(client)
  home.ClGrd1:dblclick()
  return home
end

-- Deletes with the form of deletions, which is open, by one of its main options; the answers are
-- for what it asks.
function support.delete(option, ...)
  local form = assert(quillet.form("frmdelwhatinTB"), "the deletion form is not open")
  form.optMain[option]:click()
  quillet.answer(...)
  form.cmddelete:click()
end

-- The client's year that begins on 1 April, as a person makes it. `between` is called when its first
-- date was entered.
function support.create_year(client, first, between)
  local home = support.choose("mnucreate", client)
  home.MaskEdBox1:type("0104" .. first)
  home.MaskEdBox1:press("Enter")
  if between then between() end
  home.MaskEdBox2:type("3103" .. first + 1)
  home.MaskEdBox2:press("Enter")
end

-- The client's years, to be opened.
function support.list_years(client)
  local home = quillet.show("third")
  home:press("Escape")
  home.mnualter:click()
  home.ClGrd1:pick(client)
  home.ClGrd1:dblclick()
  return home
end

-- From the home form to the editor, as a person goes.
function support.open(client, first)
  local home = support.list_years(client)
  home.flexgrid2:pick("01/04/" .. first)
  home.flexgrid2:dblclick()
  return assert(quillet.form("frmcrtb"), "the editor is not open")
end

function support.enter(editor, particular, group, amount, side)
  editor.txtpart:type(particular)
  editor.txtpart:press("Enter")
  editor.txtgroup:type(group)
  editor.txtgroup:press("Enter")
  editor.txtamount:type(amount)
  editor.txtamount:press("Enter")
  editor.txtdrcr:type(side)
  editor.txtdrcr:press("Enter")
end

-- A line of the voucher that is being entered; without a group the one proposed stays.
function support.voucher_line(journal, i, side, ledger, group, amount)
  journal.cboside[i]:choose(side)
  journal.txtledger[i]:type(ledger)
  journal.txtledger[i]:press("Tab")
  if group then journal.txtgroup[i]:type(group) end
  local box = side == "By" and journal.txtdramt[i] or journal.txtcramt[i]
  box:type(amount)
  box:press("Enter")
end

-- A client with the year 2008 of two lines, open in the editor.
function support.two_lines()
  quillet.add_client { code = "C1", name = "Rao Textiles" }
  support.year("C1", 2008, 1)
  local editor = support.open("C1", 2008)
  support.enter(editor, "Cash", "BANK BALANCES", "100", "DR")
  support.enter(editor, "Capital", "CAPITAL ACCOUNT", "100", "CR")
  return editor
end

function support.rows(grid)
  local rows = {}
  for r = 1, grid.rows do rows[r] = grid:row(r) end
  return rows
end

-- The client's lines of a table as they are stored, in the order of their numbers.
function support.stored(table_name, client)
  local rows = {}
  for i, row in ipairs(quillet.query(
    "select t.srno, p.Particular, t.amt, t.nid from " .. table_name .. " t " ..
    "left join Mast_Part p on p.PartId=t.partid where t.code_no='" .. client .. "' order by t.srno"))
  do
    rows[i] = {row[1], row[2], row[3], row[4]}
  end
  return rows
end

return support
