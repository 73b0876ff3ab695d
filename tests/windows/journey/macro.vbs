' A script that enters a line by names alone, as an office's own macro does: the host sets client and
' year and shows the editor without the home form.
Option Explicit
Dim forms, editor, practice, key, failures

Sub Equal(actual, expected, what)
  If CStr(actual) = CStr(expected) Then Exit Sub
  WScript.Echo what & ": expected " & expected & ", got " & actual
  failures = failures + 1
End Sub

Function Stored(ledger)
  Dim rows
  Set rows = practice.Rows("select t.amt, t.nid from TAB_2 t, Mast_Part p where " & _
    "t.code_no = 'KIR01' and p.PartId = t.partid and p.Particular = '" & ledger & "'")
  Stored = "none"
  If Not rows.EOF Then Stored = rows.Fields.Item(0).Value & " " & rows.Fields.Item(1).Value
End Function

Sub Enter(name, text)
  editor.Controls(name).SetFocus
  editor.Controls(name).Text = text
  editor.Press "Enter"
End Sub

Set practice = CreateObject("QuilletTest.Practice")
Set forms = CreateObject("PrjQuillet.Forms")
forms.VClCode = "KIR01"
forms.VFATbl = "TAB_2"
forms.VFDate = "01042008"
forms.VSDate = "31032009"
Set editor = forms.ObjCreate
editor.Show
Equal editor.Caption, "Trial Balance of Revathi Kirmelkar for the Period 01/04/2008 - 31/03/2009", "caption"
Equal editor.vsfm.Rows, 58, "rows with their heading"
Equal editor.vsfm.TextMatrix(1, 2), "1123152.58", "first amount"

Enter "txtpart", "Office Rent"
Enter "txtgroup", "RENT"
Enter "txtamount", "1600.37"
Enter "txtdrcr", "D"
Equal Stored("Office Rent"), "250000.37 1", "stored"
Equal editor.txtdiff.Text, "1,600.37", "difference"
Equal editor.txtdifft.Text, "Debit", "its side"
editor.Hide
Equal practice.Log, "", "error log"

' The script host ends a script that fails without a word, hence the count.
If failures = 0 Then WScript.Echo "OK"
