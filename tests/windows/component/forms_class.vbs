' The class Forms and the forms by name, as a script uses them that nobody here wrote for.
Option Explicit
Dim forms, again, home, control, names, found, usual, size, turn, failures

Sub Equal(actual, expected, what)
  Fine "before " & what
  If CStr(actual) = CStr(expected) Then Exit Sub
  WScript.Echo what & ": expected " & expected & ", got " & actual
  failures = failures + 1
End Sub

' No statement before ended with an error.
Sub Fine(what)
  If Err.Number = 0 Then Exit Sub
  WScript.Echo what & ": error " & Err.Number & " " & Err.Description
  failures = failures + 1
  Err.Clear
End Sub

' What the statement before ended with; the host's script goes on after errors from here on.
Sub Refused(number, what)
  Dim found
  found = Err.Number
  Err.Clear
  Equal found, number, what
End Sub

Set forms = CreateObject("PrjQuillet.Forms")
On Error Resume Next
Equal forms.MyDllVersion, "2.26.2", "MyDllVersion"
Equal TypeName(forms), "_Forms", "type"
forms.MyDllVersion = "x"
Refused 438, "forms.MyDllVersion = ""x"""
found = forms.VClCode
Refused 438, "reading forms.VClCode"
forms.Nothing1
Refused 438, "forms.Nothing1"
forms.VClCode = Null
Refused 13, "forms.VClCode = Null"
forms.VClCode = forms
Refused 13, "forms.VClCode = forms"
forms.VClCode(1) = "x"
Refused 450, "forms.VClCode(1) = ""x"""
found = forms.MyDllVersion(1)
Refused 450, "reading forms.MyDllVersion(1)"
forms.VClCode = 12345
forms.VClCode = Empty

Set again = CreateObject("PrjQuillet.Forms")
Set home = forms.ObjThird
Equal home Is again.ObjThird, True, "one home form"
Equal forms.ObjCreate Is again.ObjCreate, True, "one editor"
Equal home Is forms.ObjCreate, False, "home is not the editor"
Equal home.Name, "third", "home's name"
Equal forms.ObjCreate.Name, "frmcrtb", "editor's name"

' Places and font before there is a window, and with it.
home.Width = 18000
home.Font.Size = 11
home.Show
Equal home.Visible, True, "visible"
Equal Abs(home.Width - 18000) < 30, True, "width " & home.Width
Equal Abs(home.FontSize - 11) < 0.5, True, "font size " & home.FontSize
home.Move 300, 450
Equal Abs(home.Left - 300) < 30, True, "left " & home.Left
home.Caption = "Clients " & Chr(228) & " & more"
Equal home.Caption, "Clients " & Chr(228) & " & more", "caption"
home.Show 2
Refused 5, "home.Show 2"
home.Show "x"
Refused 13, "home.Show ""x"""
home.Show 0, 0, 0
Refused 450, "home.Show 0, 0, 0"
home.Width = Null
Refused 13, "home.Width = Null"
home.Width = "wide"
Refused 13, "home.Width = ""wide"""
home.Name = "x"
Refused 438, "home.Name = ""x"""
home.NoSuchControl.Text = "x"
Refused 438, "home.NoSuchControl.Text = ""x"""
home.Font = Nothing
Refused 13, "home.Font = Nothing"

' Controls by name, each the same object whenever it is asked for.
Equal home.txtsearch Is home.TxtSearch, True, "one text box"
home.txtsearch.Text = "asha"
Equal home.txtsearch.Text, "asha", "text"
home.txtsearch = ""
Equal home.txtsearch, "", "default property"
Equal home.ClGrd1.Rows > 5, True, "clients " & home.ClGrd1.Rows
Equal Len(home.ClGrd1.TextMatrix(0, 0)) > 0, True, "heading"
Equal Len(home.ClGrd1.TextMatrix(1, 1)) > 0, True, "cell"
found = home.ClGrd1.TextMatrix(1)
Refused 450, "reading home.ClGrd1.TextMatrix(1)"
found = home.ClGrd1.TextMatrix(9999, 0)
Refused 9, "reading home.ClGrd1.TextMatrix(9999, 0)"
home.txtsearch.Rows = 1
Refused 438, "home.txtsearch.Rows = 1"
For Each control In home.Controls
  control.Left = control.Left + 15
  control.FontSize = 9
  names = names & " " & control.Name
Next
Equal InStr(names, " ClGrd1 ") > 0, True, "controls" & names
Equal home.Controls.Count > 10, True, "count of controls"
Equal home.Controls("clgrd1") Is home.ClGrd1, True, "control by name"
Set control = home.Controls(999)
Refused 9, "Set control = home.Controls(999)"

home.Left = 1000000000
Equal home.Left < 60000, True, "within reach: " & home.Left
home.Font.Size = 1000000
home.Hide
Equal home.Visible, False, "hidden"

' A host that rescales each time finds the form as it was designed.
usual = home.Width
size = home.FontSize
Equal usual > 9000, True, "width before there is a window: " & usual
For turn = 1 To 3
  home.Width = home.Width * 1.1
  home.FontSize = home.FontSize * 1.25
  home.Show
  home.Hide
Next
Equal home.Width, usual, "width after rescaling three times"
Equal home.FontSize, size, "font after rescaling three times"
Fine "the end"

' The script host ends a script that fails without a word, hence the count.
If failures = 0 Then WScript.Echo "OK"
