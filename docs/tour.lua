-- The guided tour: what a day with Quillet looks like, on the sample practice. Pictures and results
-- go to the folder given: quillet --data DIR script --show docs/tour.lua FOLDER
local folder = arg[1] or "."
local pictures = 0

local function picture(name)
  pictures = pictures + 1
  quillet.screenshot(string.format("%s/%02d-%s.png", folder, pictures, name))
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
editor:close()
home:close()
assert(#quillet.log() == 0, "something was trapped: " .. tostring(quillet.log()[1]))
say("%d pictures.", pictures)
