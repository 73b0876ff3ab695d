-- The deeds that stations noted, played in the order of their instants, and the tables held against
-- that.
local function deeds_of(paths)
  local deeds = {}
  for _, path in ipairs(paths) do
    for line in io.lines(path) do
      local parts = {}
      for part in (line .. "\t"):gmatch("(.-)\t") do parts[#parts + 1] = part end
      parts.order = #deeds
      deeds[#deeds + 1] = parts
    end
  end
  table.sort(deeds, function(a, b)
    if a[1] ~= b[1] then return a[1] < b[1] end
    return a.order < b.order
  end)
  return deeds
end

local function play(deeds)
  local balances = {}
  local function key(...) return table.concat({ ... }, "\t"):upper() end
  for _, each in ipairs(deeds) do
    local kind = each[2]
    if kind == "link" or kind == "merge" then
      local moved = {}
      for pair, amount in pairs(balances) do
        local client, year, name, group = pair:match("^(.-)\t(.-)\t(.-)\t(.*)$")
        local old = kind == "link" and name or group
        if old == each[3]:upper() then
          balances[pair] = nil
          local new = kind == "link" and key(client, year, each[4], group)
            or key(client, year, name, each[4])
          moved[#moved + 1] = { new, amount }
        end
      end
      for _, move in ipairs(moved) do balances[move[1]] = (balances[move[1]] or 0) + move[2] end
    elseif kind == "remove" then
      for pair in pairs(balances) do
        if pair:find(key(each[3], each[4], ""), 1, true) == 1 then balances[pair] = nil end
      end
    else
      local pair = key(each[3], each[4], each[5], each[6])
      balances[pair] = (balances[pair] or 0) + math.tointeger(tonumber(each[7]))
    end
  end
  return balances
end

local function stored()
  local balances = {}
  for _, of in ipairs(quillet.query("select code_no as client, f_yr as first, tbl_nm as tab " ..
    "from master where code_no like 'P_'")) do
    for _, row in ipairs(quillet.query("select p.Particular as name, g.ALLGRP as grp, " ..
      "round(100*sum(if(t.nid=2,-t.amt,t.amt))) as paise from " .. of.tab ..
      " t left join Mast_Part p on p.PartId=t.partid left join Mast_AllGrp g on g.ALLID=t.allid " ..
      "where t.code_no='" .. of.client .. "' and p.Particular<>'Opening' " ..
      "group by t.partid, t.allid")) do
      local pair = table.concat({ of.client, of.first:sub(5), row.name or "?", row.grp or "?" },
        "\t"):upper()
      balances[pair] = (balances[pair] or 0) + math.tointeger(tonumber(row.paise))
    end
  end
  return balances
end

-- Every version of the lines of a pair.
local function versions(pair)
  local client, year, name, group = pair:match("^(.-)\t(.-)\t(.-)\t(.*)$")
  for _, of in ipairs(quillet.query("select tbl_nm as tab from master where code_no='" .. client ..
    "' and f_yr='0104" .. year .. "'")) do
    for _, row in ipairs(quillet.query("select t.srno,t.amt,t.nid,t.row_from as began,t.row_till " ..
      "as till from " .. of.tab .. " for system_time all t join Mast_Part p on p.PartId=t.partid " ..
      "join Mast_AllGrp g on g.ALLID=t.allid where t.code_no='" .. client ..
      "' and p.Particular='" .. name .. "' and g.ALLGRP='" .. group .. "' order by began")) do
      print("version", row.srno, row.amt, row.nid, row.began, row.till)
    end
  end
end

return function(paths)
  local deeds = deeds_of(paths)
  local expected, actual = play(deeds), stored()
  local wrong, all = 0, 0
  for pair in pairs(expected) do
    all = all + 1
    if (actual[pair] or 0) ~= expected[pair] then
      wrong = wrong + 1
      print("wrong", pair, "expected", expected[pair], "stored", actual[pair])
      versions(pair)
    end
  end
  for pair, amount in pairs(actual) do
    if expected[pair] == nil and amount ~= 0 then
      wrong = wrong + 1
      print("not expected", pair, amount)
    end
  end
  for _, finding in ipairs(quillet.check()) do
    -- Links and merges leave several lines of a pair.
    if finding.rule ~= "pair" then wrong = wrong + 1 end
    print("finding", finding.client, finding.rule, finding.what)
  end
  if wrong > 0 then
    for _, each in ipairs(deeds) do print("deed", table.concat(each, "\t")) end
    for _, act in ipairs(quillet.query("select * from SuiteAct order by At")) do
      print("act", act.at, act.person, act.form, act.command, act.client, act.yr, act.tables)
    end
  end
  print(#deeds .. " deeds, " .. all .. " balances, " .. wrong .. " wrong")
  assert(wrong == 0)
  -- What is always refused is never seen to be wrong. Merges are rare: somebody has a year open.
  local kinds = {}
  for _, each in ipairs(deeds) do kinds[each[2]] = (kinds[each[2]] or 0) + 1 end
  for _, kind in ipairs { "add", "link", "merge", "remove" } do
    print(kinds[kind] or 0, kind)
    assert(kinds[kind] or kind == "merge" or #deeds < 1000, "not once: " .. kind)
  end
end

