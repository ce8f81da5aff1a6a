local function numbers(count)
    local x, result = 1, {}
    for k = count, 1, -1 do
        x = (x * 10005 + 12345) % 131072
        result[k] = x
    end
    return result
end

local function checkSum(list)
    local sum = 0
    for _, x in ipairs(list) do
        sum = (sum * 31 + x) % 65521
    end
    return sum
end

local unsorted, result = numbers(100000), nil
for _ = 1, 5 do
    local list = table.move(unsorted, 1, #unsorted, 1, {})
    table.sort(list)
    result = checkSum(list)
end
io.write(result)
