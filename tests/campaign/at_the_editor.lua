-- Lines, vouchers, the import of a previous year, the raw-material binding.
return function(kit)
  local act, begin, support = kit.act, kit.begin, kit.support
  local enter, line = support.enter, support.voucher_line
  local scenarios = {}

  local function editor_of_two_years()
    quillet.answer("No")
    return support.open("E1", 2008)
  end

  local function delete(editor, ledger)
    editor.vsfm:pick(ledger)
    quillet.answer("Yes")
    editor.mnudelete:click()
  end

  local function journal(editor)
    editor.mnujournal:click()
    return assert(quillet.form("frmjrnl"), "the journal is not open")
  end
  local function pass(journal, amount, narration)
    journal.cmdadd:click()
    line(journal, 0, "By", "Rent Paid", nil, amount)
    line(journal, 1, "To", "Bank", nil, amount)
    journal.txtnarr:type(narration)
    journal.cmdupdate:click()
  end
  local function change(journal, narration, amount)
    journal.vsf:pick("    " .. narration)
    journal.cmdmodify:click()
    journal.txtdramt[0]:type(amount)
    journal.txtcramt[1]:type(amount)
    journal.cmdupdate:click()
  end
  local function erase(journal, narration)
    journal.vsf:pick("    " .. narration)
    quillet.answer("Yes", "Yes")
    journal.Command1:click()
  end

  -- E1 has lines in the previous year, E2 in both and a voucher, E3 materials.
  function scenarios.arrange()
    for number, code in ipairs { "E1", "E2", "E3" } do
      quillet.add_client { code = code, name = "Editor " .. number }
      support.year(code, 2007, 1)
      support.year(code, 2008, 2)
    end
    for _, code in ipairs { "E1", "E2" } do
      local editor = support.open(code, 2007)
      enter(editor, "Bank", "BANK BALANCES", "500", "D")
      enter(editor, "Rent Paid", "RENT", "40", "D")
      enter(editor, "Loan", "CAPITAL ACCOUNT", "540", "C")
    end
    quillet.answer("Yes")
    local editor = support.open("E2", 2008)
    local book = journal(editor)
    pass(book, "1", "the first")
    quillet.answer("Yes")
    book:close()
    editor:close()
    local groups = quillet.query("select ALLID from Mast_AllGrp where GID=19 limit 2")
    for i, each in ipairs(groups) do
      quillet.exec("insert into TAB_2 values(" .. i .. ",'E3',1," .. each[1] .. ",5,1)")
    end
  end

  function scenarios.lines()
    local editor = editor_of_two_years()
    begin()
    act(enter, editor, "Bank", "BANK BALANCES", "700.10", "D")
    act(enter, editor, "A New Ledger", "RENT", "12.34", "D")
    act(enter, editor, "bank", "bank balances", "200", "C")
    act(enter, editor, "Loan", "CAPITAL ACCOUNT", "1000", "C")
    act(enter, editor, "Another's & \\ One", "SALARIES AND BONUS", "99", "D")
    act(function()
      editor.vsfm:pick("Loan")
      editor.vsfm:dblclick()
      editor.txtpart:type("Loan of a Friend")
      editor.txtamount:type("750")
      editor.txtdrcr:press("Enter")
    end)
    act(enter, editor, "A New Ledger", "RENT", "12.34", "C")
    editor.mnuyrs[2]:click()
    act(delete, editor, "Bank")
    act(enter, editor, "Rent Paid", "RENT", "77", "D")
  end

  -- One act only, that the failures of the disk are tried on.
  function scenarios.save()
    local editor = editor_of_two_years()
    enter(editor, "Bank", "BANK BALANCES", "700.10", "D")
    begin()
    act(enter, editor, "bank", "bank balances", "200", "C")
  end

  function scenarios.import()
    local editor = editor_of_two_years()
    begin()
    act(function()
      quillet.answer("Yes")
      editor.mnurefresh:click()
    end)
    act(enter, editor, "Rent Paid", "RENT", "1", "D")
  end

  -- More than the free pages and the log take: files grow, and pages are written in the middle of
  -- the act.
  function scenarios.large()
    quillet.add_client { code = "E4", name = "Editor 4" }
    support.year("E4", 2007, 1)
    support.year("E4", 2008, 2)
    quillet.exec("set max_recursive_iterations=100000")
    quillet.exec("insert into TAB_1 with recursive n as (select 1 i union all select i+1 from n " ..
      "where i<12000) select i,'E4',1,1+i%50,i,1 from n")
    -- A few spare pages are left.
    local free = "select data_free from information_schema.tables where table_name='TAB_1'"
    while quillet.query(free)[1][1] > 2 * 1048576 do
      quillet.exec("insert into SuiteMisc(Section,Name,Value) select 'Campaign','filling'," ..
        "repeat('x',16000) from TAB_1 where code_no='E4' limit 50")
    end
    quillet.exec("set global innodb_log_checkpoint_now=on")
    quillet.answer("No")
    local editor = support.open("E4", 2008)
    begin()
    act(function()
      quillet.answer("Yes")
      editor.mnurefresh:click()
    end)
  end

  function scenarios.vouchers()
    local book = journal(support.open("E2", 2008))
    begin()
    act(pass, book, "12.50", "the second")
    act(pass, book, "7", "the third")
    act(change, book, "the second", "15")
    act(erase, book, "the third")
    act(change, book, "the first", "2")
    act(pass, book, "9.99", "one more")
    act(erase, book, "the first")
    book.cmdadd:click()
    act(function()
      quillet.answer("Yes")
      line(book, 0, "By", "A Ledger's \\ Name", "RENT", "3")
    end)
    act(function()
      line(book, 1, "To", "Bank", nil, "3")
      book.cmdupdate:click()
    end)
  end

  function scenarios.posting()
    local book = journal(support.open("E2", 2008))
    begin()
    act(pass, book, "12.50", "the second")
  end

  function scenarios.binding()
    local editor = support.open("E3", 2008)
    begin()
    act(function() editor.cmdgrpmanf:click() end)
    local form = assert(quillet.form("frmgrpRM"), "the binding is not open")
    local function add(head, group)
      form.cmdaddM:click()
      form.cbohead:choose(head)
      for i = 0, 2 do form.cbogroup[i]:choose(1) end
      form.cbogroup[1]:choose(group)
      form.cmdupdateM:click()
    end
    act(add, "RAW MATERIAL", 2)
    act(add, "FINISHED GOODS", 3)
    form.cmdsortorder:click()
    form.vsfM:pick("FINISHED GOODS")
    form.cmdup:click()
    act(function()
      quillet.answer("Yes")
      form.cmdupdateM:click()
    end)
    act(function()
      form.vsfM:pick("FINISHED GOODS")
      quillet.answer("Yes")
      form.cmddeleteM:click()
    end)
  end

  return scenarios
end
