-- The table is searched from its start, as assoc does: a look-up by key would be other work.
local function entries(count)
    local result = {}
    for key = 0, count - 1 do
        result[#result + 1] = { key, 3 * key }
    end
    return result
end

local function assoc(key, list)
    for k = 1, #list do
        local entry = list[k]
        if entry[1] == key then
            return entry
        end
    end
end

local function lookUp(list, count)
    local i, sum = 0, 0
    while i < count do
        sum = sum + assoc(i * 7919 % 1000, list)[2]
        i = i + 1
    end
    return sum
end

local list, result = entries(1000), nil
for _ = 1, 3 do
    result = lookUp(list, 20000)
end
io.write(result)
