-- Years created, created over, merged and deleted.
return function(kit)
  local act, begin, support = kit.act, kit.begin, kit.support
  local choose, delete = support.choose, support.delete
  local scenarios = {}

  local function year_of(code, first, number, lines)
    support.year(code, first, number)
    local editor = support.open(code, first)
    for i = 1, lines do
      support.enter(editor, "Ledger " .. i, i % 2 == 0 and "RENT" or "CAPITAL ACCOUNT",
        tostring(10 * i), i % 4 < 2 and "D" or "C")
    end
    editor:close()
  end

  local function dates(home, from)
    home.MaskEdBox1:type(from)
    home.MaskEdBox1:press("Enter")
    home.MaskEdBox2:press("Enter")
  end
  local function create(client, from)
    local home = choose("mnucreate", client)
    quillet.answer("Yes", "Yes")
    dates(home, from)
  end

  local function file(name)
    local path = quillet.paths.doc .. "/" .. name
    os.execute("mkdir -p '" .. path:match("^(.*)/") .. "'")
    assert(io.open(path, "w")):close()
  end

  -- C1 and C2 have a year, C3 and C4 none, D1 and D2 two, with files.
  function scenarios.arrange()
    for number, code in ipairs { "C1", "C2", "C3", "C4", "D1", "D2" } do
      quillet.add_client { code = code, name = "Home " .. number }
      if number ~= 3 and number ~= 4 then year_of(code, 2007, 1, 20) end
    end
    for _, code in ipairs { "D1", "D2" } do
      create(code, "01042008")
      for _, year in ipairs { "07-08", "08-09" } do
        for _, name in ipairs { "_3cd.txt", "-mauc.rtf", "-sap.txt", "-Misc1.rtf" } do
          file("files/C-" .. code .. "/" .. year .. name)
        end
        file("Annex3CD/" .. code .. "-" .. year .. "/one.rtf")
        file("annexdata/annexa_" .. code .. "_" .. year:gsub("-", "_") .. ".rtf")
      end
    end
    for i, code in ipairs { "C1", "D1" } do
      quillet.exec("insert into TRADE_1(code_no,partid,allid,amt) values('" .. code .. "',1,1,55)")
      support.voucher(code, "1", 8000 + i, "2007-05-01", 1, 1)
    end
  end

  function scenarios.creation()
    quillet.show("third")
    begin()
    act(create, "C1", "01042008")
  end

  function scenarios.creations()
    quillet.show("third")
    begin()
    act(create, "C1", "01042008")
    act(create, "C2", "01042008")
    -- Over itself, without the figures.
    local home = choose("mnucreate", "C1")
    quillet.answer("Yes")
    dates(home, "01042008")
    act(delete, 0, "Yes", "Yes", "No")
    act(create, "C1", "01042009")
  end

  function scenarios.deletions()
    local function remove(client, year, option)
      local home = choose("mnudelete", client)
      home.flexgrid2:pick("01/04/" .. year)
      quillet.answer("Yes")
      home.flexgrid2:dblclick()
      delete(option, "Yes")
    end
    quillet.show("third")
    begin()
    act(remove, "D1", 2007, 0)
    act(remove, "D2", 2008, 1)
    act(remove, "D1", 2008, 0)
    act(remove, "D2", 2007, 0)
  end

  function scenarios.merges()
    local function merge(client, rows, ...)
      local home = choose("mnumerge", client)
      dates(home, "01042007")
      for _, row in ipairs(rows) do home.flexgrid2:tick(row, true) end
      quillet.answer(...)
      home.flexgrid2:press("Enter")
    end
    quillet.show("third")
    begin()
    act(merge, "C3", { 1, 2, 3 }, "Yes")
    act(merge, "C4", { 4 }, "Yes")
  end

  function scenarios.locks()
    local function lock(command, client, reason)
      local home = choose("mnualter", client)
      home[command]:click()
      local form = assert(quillet.form("frmlock"), "the form is not open")
      form.txtreason:type(reason)
      form.cmdok:click()
    end
    quillet.show("third")
    begin()
    act(lock, "mnulockyear", "C1", "Audited")
    act(lock, "mnulockyear", "C2", "Audited")
    act(lock, "mnuunlockyear", "C1", "Late invoice")
  end

  return scenarios
end
