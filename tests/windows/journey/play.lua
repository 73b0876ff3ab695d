-- Plays a journey on the forms themselves, as journey.exe plays it by real keys on their windows:
-- script play.lua STEPS RECORD. RECORD gets the statements that each step sends; those after an
-- answer count for the step that brought the question.
local steps = {}
for line in io.lines(arg[1]) do
  local verb, rest = line:match("^(%S+)%s*(.-)%s*$")
  if verb and verb ~= "#" then steps[#steps + 1] = { verb = verb, rest = rest, line = line } end
end

local function front()
  local names = quillet.forms()
  return assert(quillet.form(names[#names]), "no form is open")
end

local function control(path)
  local form, name, index = path:match("^(%w+)%.(%w+)%[?(%d*)%]?$")
  local found = assert(quillet.form(form), form .. " is not open")[name]
  return index == "" and found or found[tonumber(index)]
end

local function equal(actual, expected)
  if actual ~= expected then
    error(string.format("expected %q, got %q", expected, tostring(actual)), 0)
  end
end

local record = assert(io.open(arg[2], "w"))
local function keep(line) record:write(line, "\n") end

local function rows(sql)
  local lines = {}
  for i, row in ipairs(quillet.query(sql)) do
    local cells = {}
    for c = 1, #row do cells[c] = tostring(row[c]) end
    lines[i] = table.concat(cells, " | ")
  end
  return lines
end

-- The closing stock's form is the suite's, and what it sends is not the module's.
local function closeStock()
  if #quillet.forms() == 0 or front().name ~= "frmTrade" then return end
  quillet.statements()
  front():close()
end

-- Keys go on when the last form is closed; nobody takes them then.
local function press(key)
  if #quillet.forms() == 0 then return end
  front():press(key)
  closeStock()
end

local play = {}

function play.show(name) quillet.show(name) end

function play.type(text)
  for _, code in utf8.codes(text) do press(utf8.char(code)) end
end

-- "\t" stands between cells, "\n" between rows.
function play.paste(rest)
  local path, cells = rest:match("^(%S+) (.*)$")
  control(path):paste((cells:gsub("\\n", "\r\n"):gsub("\\t", "\t")))
end

function play.press(keys)
  for key in keys:gmatch("%S+") do press(key) end
end

-- The keys that the window answers to are those of its captions; here it is the control itself.
function play.command(rest) control(rest:match("^%S+")):click() end

local asked = {}
function play.answer(rest)
  local _, text = rest:match("^(%S+) (.*)$")
  for _, message in ipairs(quillet.messages()) do asked[#asked + 1] = message.text end
  equal((table.remove(asked, 1) or "none"):gsub("%s+", " "):match("(.*)"), text)
end

function play.focus(path)
  local form, name = path:match("^(%w+)%.(.*)$")
  equal(front().name .. "." .. tostring(front().active), form .. "." .. name)
end

function play.shows(rest)
  local path, text = rest:match("^(%S+) ?(.*)$")
  equal(control(path).text, text)
end

-- Compared with the lines that follow it, which begin with "|".
function play.rows(sql, at)
  local expected = {}
  while steps[at + 1] and steps[at + 1].verb == "|" do
    at = at + 1
    expected[#expected + 1] = steps[at].rest
  end
  equal(table.concat(rows(sql), "\n"), table.concat(expected, "\n"))
end

play["|"] = function() end
play.picture = play["|"]

-- From now on every question gets this answer, and no file is chosen.
local always
function play.answers(button) always = button end

-- Only when the form is in front and the control can be used.
function play.try(rest)
  local path = rest:match("^%S+")
  local form = path:match("^%w+")
  if #quillet.forms() == 0 or front().name ~= form then return end
  local wanted = control(path)
  if not wanted.enabled or not wanted.visible then return end
  wanted:click()
  closeStock()
end

-- The texts of controls, for a comparison of the records.
function play.keep(paths)
  for path in paths:gmatch("%S+") do
    local form, name = path:match("^(%w+)%.(.*)$")
    local known = quillet.form(form)
    if known and known.visible then
      keep(path .. "=" .. tostring(name == "active" and known.active or control(path).text))
    end
  end
end

function play.fail(text) quillet.fail(text) end

-- The lines of the error log since the last time, without the time at their head.
local logged = 0
function play.log()
  local lines = quillet.log()
  for i = logged + 1, #lines do keep((lines[i]:gsub("^[^\t]*\t", ""))) end
  logged = #lines
end

function play.report()
  local report = quillet.report()
  for _, heading in ipairs(report.headings) do keep(heading) end
  for _, row in ipairs(report.rows) do keep(table.concat(row, "\t")) end
end

function play.stock(rest)
  control(rest:match("^%S+ %S+ (%S+)")):click()
  closeStock()
end

function play.forms(names) equal(table.concat(quillet.forms(), " "), names) end

-- Steps that may bring a question; the others are done while it stands.
local function waits(step) return step.verb ~= "answer" and step.verb ~= "picture" end

for at, step in ipairs(steps) do
  -- An answer stands where a person gives it; here it is queued before.
  local after = at + 1
  while waits(step) and steps[after] and not waits(steps[after]) do
    if steps[after].verb == "answer" then quillet.answer(steps[after].rest:match("^%S+")) end
    after = after + 1
  end
  if always then
    quillet.answer(always, always, always)
    quillet.file(nil)
  end
  local ok, message = pcall(assert(play[step.verb], "no such step: " .. step.line), step.rest, at)
  if not ok then error(step.line .. "\n" .. message .. "\nfocus: " ..
    tostring(#quillet.forms() > 0 and front().active), 0) end
  if waits(step) and step.verb ~= "|" then keep("- " .. step.line) end
  for _, sql in ipairs(quillet.statements()) do keep(sql) end
end
record:close()
assert(#quillet.log() == logged, "something was trapped: " .. tostring(quillet.log()[logged + 1]))
