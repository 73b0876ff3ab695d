-- The first day of a practice: from a folder without a client to a line that is printed.
local support = require("support")
local equal = support.equal
quillet.today("2009-06-15")

local home = quillet.show("third")
equal(quillet.forms(), { "third" }, "nobody is asked for the firm's name by a script")
home:press("Enter")
local client = assert(quillet.form("frmClient"), "Enter on the empty list enters a client")

-- What is wrong is named, and nothing of what was typed is lost.
client.cmdsave:click()
client.txtcode:type("A1")
client.cmdsave:click()
client.txtname:type("Asha Traders")
client.mskborn:type("31022001")
client.cmdsave:click()
client.mskborn:type("16062009")
client.cmdsave:click()
client.mskborn:type("1602")
client.cmdsave:click()
client.mskborn:type("01042001")
client.txtaddress:type(("x"):rep(251))
client.cmdsave:click()
client.txtaddress:type("12 Mill Road")
client.chkpassword:click()
client.cmdsave:click()
client.txtpassword:type("secret")
client.txtagain:type("secrets")
client.cmdsave:click()
equal(support.messages(), {
  "A client needs a code. Please type one, such as A1.",
  "Client A1 needs a name. Please type it.",
  "There is no day 31/02/2001. Please correct the date of birth or incorporation.",
  "The date of birth or incorporation, 16/06/2009, is after today. Please correct it.",
  "The date of birth or incorporation is not complete: 16/02/____. Please complete it, or delete all of it.",
  "The address is longer than 250 characters: it has 251. Please shorten it.",
  "Please type a password twice, or take the tick off \"Opened with a password\".",
  "The two passwords differ. Please type the same one in both boxes.",
})
client.chkpassword:click()
equal({ client.txtname.text, client.txtaddress.text }, { "Asha Traders", "12 Mill Road" })
client.cmdsave:click()
equal(quillet.forms(), { "third" })
equal(home.ClGrd1:row(home.ClGrd1.current),
  { "A1", "Asha Traders", "", "", "01/04/2001", "12 Mill Road", "", "", "" })

-- The second one is a person; a code that differs only in its capitals is taken.
home.mnunewclient:click()
client.txtcode:type("a1")
client.optkind[1]:click()
client.txtfirst:type("Ravi")
client.txtlast:type("Rao")
client.txtfather:type("D'Souza")
client.cmdsave:click()
equal(support.messages(), { "There is a client with the code a1 already: A1, Asha Traders. " ..
  "Please choose another code; capitals and small letters are the same in it." })
quillet.answer("No")
client:press("Escape")
equal(client.visible, true, "what was typed is not given up unasked")
support.messages()
client.txtcode:type("R1")
client.cmdsave:click()
equal(home.ClGrd1:cell(home.ClGrd1.current, "Name"), "Ravi Rao")

-- A year and a line of the new client, and the list on paper.
support.create_year("A1", 2008)
local editor = support.open("A1", 2008)
support.enter(editor, "Cash in Hand", "CASH IN HAND", "1500", "D")
editor:close()
home:press("Escape")
home.mnualpha:click()
home.ClGrd1:dblclick()
home.flexgrid2:press("Enter")
equal(quillet.report().rows[2][4], "1500.00")

-- A client with years keeps its code and is not deleted; one without may go.
home.mnualter:click()
support.messages()
home.mnudeleteclient:click()
equal(support.messages()[1], "Client A1, Asha Traders cannot be deleted. It has the trial balance" ..
  " of 2008-2009. Delete that first, with \"Delete Trial Balance\".")
home.mnualterclient:click()
client.txtcode:type("B1")
equal(client.txtcode.text, "A1")
client.txtname:type("Asha & Sons")
client.cmdsave:click()
equal(home.ClGrd1:cell(home.ClGrd1.current, "Name"), "Asha & Sons")
home.ClGrd1:pick("R1")
quillet.answer("Yes")
home.mnudeleteclient:click()
equal(home.ClGrd1.rows, 1)
equal(quillet.query("select (select count(*) from owner1)+(select count(*) from TempClTbl) n")[1].n, 1)

-- The firm's name stands on the settings page, and at the head of a report from then on.
home.mnusettings:click()
local settings = quillet.form("frmSettings")
equal({ settings.txtfirm.text, settings.cbogrouping.text, settings.cbotheme.text,
  settings.cboorientation.text }, { "", "As it is", "As the system", "As the report needs it" })
settings.txtfirm:type("Rao & Co")
settings.cbogrouping:choose("Lakhs: 12,34,567.50")
settings.cbotheme:choose("Dark")
settings.cboorientation:choose("Landscape")
settings.cmdok:click()
home.mnusettings:click()
equal({ settings.txtfirm.text, settings.cbogrouping.text, settings.cbotheme.text,
  settings.cboorientation.text }, { "Rao & Co", "Lakhs: 12,34,567.50", "Dark", "Landscape" })
settings:press("Escape")
equal(quillet.log(), {})
