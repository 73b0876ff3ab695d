' A host made of a script: the component's home form reads its clients from objects that know their
' members by name alone.
Option Explicit
Dim fakes, forms, grid, calls, closed, failures

Sub Equal(actual, expected, what)
  If CStr(actual) = CStr(expected) Then Exit Sub
  WScript.Echo what & ": expected " & expected & ", got " & actual
  failures = failures + 1
End Sub

Class Field
  Public Name
  Public Value
End Class

Class FieldList
  Public List
  Public Property Get Count
    Count = List.Count
  End Property
  Public Function Item(position)
    Set Item = List.Item(CLng(position))
  End Function
End Class

Class Recordset
  Public Fields
  Public Rows
  Public At
  Public Sub Fill(names, values)
    Dim i, one, list
    Set list = CreateObject("Scripting.Dictionary")
    For i = 0 To UBound(names)
      Set one = New Field
      one.Name = names(i)
      list.Add CLng(i), one
    Next
    Set Fields = New FieldList
    Set Fields.List = list
    Rows = values
    At = -1
    MoveNext
  End Sub
  Public Property Get EOF
    EOF = At > UBound(Rows)
  End Property
  Public Sub MoveNext
    Dim i, row, one
    At = At + 1
    If At > UBound(Rows) Then Exit Sub
    row = Rows(At)
    For i = 0 To Fields.Count - 1
      Set one = Fields.Item(i)
      one.Value = row(i)
    Next
  End Sub
  Public Sub Close
    closed = closed + 1
  End Sub
End Class

Class Connection
  Public State
End Class

Class Host
  Public helpid
  Public Function CheckDllsVersion(check)
    calls = calls & TypeName(check) & check
    CheckDllsVersion = True
  End Function
  Public Property Get DbObj
    Set DbObj = New Connection
  End Property
  Public Property Get ExePath
    ExePath = "C:\"
  End Property
  Public Property Get vLstSelClCode
    vLstSelClCode = ""
  End Property
  Public Sub resize_for_resolution(form)
    calls = calls & " " & form.Name
  End Sub
  Public Function GetSettingINI(section, key, fallback)
    GetSettingINI = fallback
  End Function
  Public Function RecordsetQuery(sql, db, cursor, lock, kind)
    Dim rows
    Set rows = New Recordset
    rows.Fill Array("CodeNo", "Name", "Status", "Father", "Born", "Address", "GroupCode", "GroupName", "Company"), _
      Array(Array("C1", "Asha Traders", "Firm", "", DateSerial(1980, 4, 1), "Pune", "G1", "One", ""), _
            Array("C2", "B" & Chr(228) & "cker", "Company", Null, "", 411001, Empty, "", 1234.5))
    Set RecordsetQuery = rows
  End Function
End Class

Class Reporter
  Public WinModeReport
End Class

Set fakes = CreateObject("QuilletTest.Fakes")
fakes.Serve "TalBase.ClsMain", New Host
fakes.Serve "PrjOrvoReporter.ClsMain", New Reporter
Set forms = CreateObject("PrjQuillet.Forms")
Equal calls, "BooleanTrue", "start-up"
forms.ObjThird.Show
Equal calls, "BooleanTrue third", "the form that the host rescales"
Equal closed, 1, "recordsets closed"
Set grid = forms.ObjThird.ClGrd1
Equal grid.Rows, 3, "rows, with the headings"
Equal grid.TextMatrix(1, 0), "C1", "first code"
Equal grid.TextMatrix(2, 1), "B" & Chr(228) & "cker", "second name"
Set grid = Nothing
Set forms = Nothing

' The script host ends a script that fails without a word, hence the count.
If failures = 0 Then WScript.Echo "OK"
