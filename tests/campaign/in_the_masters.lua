-- Groups merged, ledgers linked and replaced, in the tables of every year.
return function(kit)
  local act, begin, support = kit.act, kit.begin, kit.support
  local scenarios = {}

  function scenarios.arrange()
    for number, code in ipairs { "M1", "M2" } do
      quillet.add_client { code = code, name = "Master " .. number }
      for count, year in ipairs { 2006, 2007, 2008 } do support.year(code, year, count) end
    end
    for i = 1, 8 do
      quillet.exec("insert into Mast_Part values(" .. 9000 + i .. ",'Master " .. i .. "')")
      quillet.exec("insert into Mast_AllGrp values(" .. 9000 + i .. ",22,'GROUP " .. i .. "','Y')")
      for suffix = 1, 3 do
        for _, code in ipairs { "M1", "M2" } do
          quillet.exec(string.format("insert into TAB_%d values(%d,'%s',%d,%d,%d,%d)", suffix, i,
            code, 9000 + i, 9000 + i, 10 * i, 1 + i % 2))
        end
        support.voucher("M2", suffix, 1000 * suffix + i, 2005 + suffix .. "-05-01", 9000 + i, 9000 + i)
      end
    end
  end

  function scenarios.groups()
    local home = quillet.show("third")
    home.cmdgrpmas:click()
    local form = quillet.form("frmgrpmas")
    local function merge(away, into)
      form.cmdMerge:click()
      for _, name in ipairs(away) do
        form.vsM:tick(form.vsM:pick(name), true)
      end
      form.vsMW:pick(into)
      quillet.answer("Yes", "Yes")
      form.cmdMergeGroup:click()
      form.cmdMergeBack:click()
    end
    begin()
    act(merge, { "GROUP 1", "GROUP 2" }, "GROUP 3")
    act(merge, { "GROUP 4" }, "GROUP 3")
    act(merge, { "GROUP 3", "GROUP 5" }, "GROUP 6")
  end

  local function ledgers()
    local home = quillet.show("third")
    home.cmdledmas:click()
    return quillet.form("frmtbledmas")
  end

  function scenarios.links()
    local form = ledgers()
    local function link(away, into)
      form.vsf:pick(into)
      form.cmdlink:click()
      for _, name in ipairs(away) do form.vsf:tick(form.vsf:pick(name), true) end
      quillet.answer("Yes")
      form.cmdlink:click()
    end
    begin()
    act(link, { "Master 1", "Master 2" }, "Master 3")
    act(link, { "Master 4" }, "Master 3")
    act(link, { "Master 3", "Master 5" }, "Master 6")
  end

  function scenarios.replacements()
    local form = ledgers()
    local function replace(away, by)
      form.vsf:pick(away)
      form.cmdmodify:click()
      form.VTxt1:type(by)
      quillet.answer("Yes", "Yes")
      form.cmdupdate:click()
    end
    begin()
    act(replace, "Master 1", "master 2")
    act(replace, "Master 3", "master 2")
    act(replace, "Master 2", "master 4")
  end

  return scenarios
end
