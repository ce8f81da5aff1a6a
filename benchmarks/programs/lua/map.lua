local function numbers(count)
    local result = {}
    for k = 0, count - 1 do
        result[#result + 1] = k % 1000
    end
    return result
end

local function map(f, list)
    local result = {}
    for k = 1, #list do
        result[k] = f(list[k])
    end
    return result
end

local function sum(list)
    local result = 0
    for k = 1, #list do
        result = result + list[k]
    end
    return result
end

local elements, result = numbers(200000), nil
for _ = 1, 20 do
    result = sum(map(function(x) return 2 * x - 7 end, elements))
end
io.write(result)
